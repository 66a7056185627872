#include "eligibility/xml_tree.h"

#include <QStringDecoder>
#include <QXmlStreamReader>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

constexpr std::size_t deepest = 64;
constexpr int largest = 50000; // elements

// Empty when the content type names none.
QByteArray charsetOf(const QByteArray& contentType) {
    for (const QByteArray& part : contentType.split(';').mid(1)) {
        const qsizetype sign = part.indexOf('=');
        if (sign < 0 || part.left(sign).trimmed().toLower() != "charset") continue;
        QByteArray charset = part.mid(sign + 1).trimmed();
        if (charset.size() >= 2 && charset.startsWith('"') && charset.endsWith('"'))
            charset = charset.mid(1, charset.size() - 2);
        return charset;
    }
    return {};
}

XmlNode nodeOf(const QXmlStreamReader& reader, const XmlNode* parent) {
    XmlNode node;
    node.name = {reader.namespaceUri().toString(), reader.name().toString()};
    if (parent != nullptr) node.prefixes = parent->prefixes;
    for (const QXmlStreamNamespaceDeclaration& declared : reader.namespaceDeclarations())
        node.prefixes.insert(declared.prefix().toString(), declared.namespaceUri().toString());
    for (const QXmlStreamAttribute& attribute : reader.attributes())
        node.attributes.push_back({{attribute.namespaceUri().toString(), attribute.name().toString()},
                                   attribute.value().toString()});
    return node;
}

std::optional<XmlNode> readTree(QXmlStreamReader& reader) {
    std::optional<XmlNode> root;
    std::vector<XmlNode*> open; // each the last child of the one before it, so that none moves
    int count = 0;
    while (!reader.atEnd()) {
        switch (reader.readNext()) {
        case QXmlStreamReader::StartElement: {
            if (++count > largest || open.size() >= deepest) return std::nullopt;
            if (open.empty()) {
                root = nodeOf(reader, nullptr);
                open.push_back(&*root);
            } else {
                XmlNode* parent = open.back();
                parent->children.push_back(nodeOf(reader, parent));
                open.push_back(&parent->children.back());
            }
            break;
        }
        case QXmlStreamReader::EndElement:
            open.pop_back();
            break;
        case QXmlStreamReader::Characters:
            if (!open.empty()) open.back()->text += reader.text();
            break;
        case QXmlStreamReader::DTD:
        case QXmlStreamReader::EntityReference:
            return std::nullopt;
        default:
            break;
        }
    }
    if (reader.hasError()) return std::nullopt;
    return root;
}

} // namespace

QString XmlNode::attribute(const QString& local, const QString& nameSpace) const {
    for (const Attribute& attribute : attributes)
        if (attribute.name.local == local && attribute.name.nameSpace == nameSpace) return attribute.value;
    return {};
}

const XmlNode* XmlNode::child(const QString& nameSpace, const QString& local) const {
    for (const XmlNode& node : children)
        if (node.is(nameSpace, local)) return &node;
    return nullptr;
}

XmlName XmlNode::resolve(const QString& qualified) const {
    const QString whole = qualified.trimmed();
    const qsizetype colon = whole.indexOf(':'_L1);
    const QString prefix = colon < 0 ? QString(""_L1) : whole.left(colon);
    if (colon >= 0 && !prefixes.contains(prefix)) return {};
    return {prefixes.value(prefix), whole.mid(colon + 1)};
}

std::optional<XmlNode> readXml(const QByteArray& bytes, const QByteArray& contentType) {
    const QByteArray charset = charsetOf(contentType);
    if (charset.isEmpty()) {
        QXmlStreamReader reader(bytes);
        return readTree(reader);
    }
    QStringDecoder decoder(charset.constData());
    if (!decoder.isValid()) return std::nullopt;
    const QString text = decoder.decode(bytes);
    if (decoder.hasError()) return std::nullopt;
    QXmlStreamReader reader(text);
    return readTree(reader);
}

bool fitsXml(const QString& text) {
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        if (c.unicode() < 0x20 && c != '\t'_L1 && c != '\n'_L1 && c != '\r'_L1) return false;
        if (c.unicode() >= 0xFFFE) return false;
        if (c.isLowSurrogate()) return false;
        if (c.isHighSurrogate() && (++i == text.size() || !text[i].isLowSurrogate())) return false;
    }
    return true;
}

} // namespace vandrel
