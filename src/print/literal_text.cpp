#include "print/literal_text.h"

using namespace Qt::StringLiterals;

namespace vandrel {

QString literalText(const QString& data) {
    if (!data.contains(u'<')) return data; // nearly always
    QString text = data;
    return text.replace(u'<', "<<u></u>"_L1);
}

} // namespace vandrel
