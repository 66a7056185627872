// XML as a small tree, for documents that come from outside: everything that could make reading them long or
// large ends it. Knows nothing of what the documents say.
#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>

#include <optional>
#include <vector>

namespace vandrel {

struct XmlName {
    QString nameSpace; // empty: none
    QString local;
    bool operator==(const XmlName&) const = default;
};

struct XmlNode {
    struct Attribute {
        XmlName name;
        QString value;
    };

    XmlName name;
    std::vector<Attribute> attributes;
    QHash<QString, QString> prefixes; // in scope here; the empty prefix is the default namespace
    QString text;                     // the element's own characters, children's left out
    std::vector<XmlNode> children;

    bool is(const QString& nameSpace, const QString& local) const {
        return name.nameSpace == nameSpace && name.local == local;
    }
    // Empty when missing.
    QString attribute(const QString& local, const QString& nameSpace = {}) const;
    // The first child of that name; null when there is none.
    const XmlNode* child(const QString& nameSpace, const QString& local) const;
    // What "prefix:name" means here. A prefix that is not declared gives no name at all.
    XmlName resolve(const QString& qualified) const;
};

// Null for what is not well-formed, not wholly in its encoding, deeper than 64 elements or larger than
// 50,000, or has a document type (entities). A charset of the content type goes before the document's own
// word.
std::optional<XmlNode> readXml(const QByteArray& bytes, const QByteArray& contentType = {});

// Whether XML can carry the text: no control characters but tab and line ends, no halves of a letter.
bool fitsXml(const QString& text);

} // namespace vandrel
