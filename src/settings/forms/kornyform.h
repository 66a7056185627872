// "Környezet": today's date and the time.
#pragma once

#include "foundation/forms/work_form.h"

namespace vandrel {

class kornyform : public WorkForm {
    Q_OBJECT

  public:
    kornyform(Workstation& station, QWidget* opener);
};

} // namespace vandrel
