#include "print/literal_text.h"

namespace vandrel {

QString literalText(const QString& data) {
    if (!data.contains(u'<')) return data; // nearly always
    QString text = data;
    return text.replace(u'<', QLatin1String("<<u></u>"));
}

} // namespace vandrel
