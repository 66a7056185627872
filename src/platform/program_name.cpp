#include "platform/program_name.h"

using namespace Qt::StringLiterals;

namespace vandrel {

QString programVersion() {
    return u"v"_s + QLatin1StringView(VANDREL_VERSION);
}

} // namespace vandrel
