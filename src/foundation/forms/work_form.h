// The form-open protocol: a working form is shown beside its opener, which stays disabled until the form
// closes.
#pragma once

#include "foundation/workstation.h"

#include <QPointer>
#include <QWidget>

namespace vandrel {

class WorkForm : public QWidget {
    Q_OBJECT

  public:
    // opener may be null (tests); it is not the Qt parent: the form is a window of its own.
    WorkForm(Workstation& station, QWidget* opener);

    // Disables the opener, shows the form in the middle of the screen, see-through when the program is set
    // so.
    void open();

  Q_SIGNALS:
    void closed();

  protected:
    Workstation& station() const { return m_station; }
    QWidget* opener() const { return m_opener; }
    void closeEvent(QCloseEvent* event) override; // enables the opener again and gives it the focus

  private:
    Workstation& m_station;
    QPointer<QWidget> m_opener;
};

} // namespace vandrel
