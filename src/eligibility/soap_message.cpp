#include "eligibility/soap_message.h"

#include <QXmlStreamWriter>

#include <array>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

const QString envelope = u"http://schemas.xmlsoap.org/soap/envelope/"_s;
const QString envelope12 = u"http://www.w3.org/2003/05/soap-envelope"_s;
const QString encoding = u"http://schemas.xmlsoap.org/soap/encoding/"_s;
const QString xsd = u"http://www.w3.org/2001/XMLSchema"_s;
const QString xsi = u"http://www.w3.org/2001/XMLSchema-instance"_s;
const QString wsse = u"http://docs.oasis-open.org/wss/2004/01/oasis-200401-wss-wssecurity-secext-1.0.xsd"_s;
const QString passwordText =
    u"http://docs.oasis-open.org/wss/2004/01/oasis-200401-wss-username-token-profile-1.0#PasswordText"_s;

struct Member {
    const char16_t* name;
    QString struct_TAJInfoReturn::*place;
};

constexpr Member members[] = {
    {u"user", &struct_TAJInfoReturn::user},
    {u"tranKod", &struct_TAJInfoReturn::tranKod},
    {u"hibaSzoveg", &struct_TAJInfoReturn::hibaSzoveg},
    {u"vizitdijKot", &struct_TAJInfoReturn::vizitdijKot},
    {u"hibakod", &struct_TAJInfoReturn::hibakod},
    {u"jogviszony", &struct_TAJInfoReturn::jogviszony},
};

bool isNil(const XmlNode& node) {
    const QString nil = node.attribute(u"nil"_s, xsi);
    return nil == "true"_L1 || nil == "1"_L1;
}

// What an element refers to inside the body; itself when it refers to nothing, null when that is missing.
const XmlNode* target(const XmlNode& node, const XmlNode& body) {
    const QString href = node.attribute(u"href"_s);
    if (href.isEmpty()) return &node;
    for (const XmlNode& other : body.children)
        if (href == '#'_L1 + other.attribute(u"id"_s)) return &other;
    return nullptr;
}

// False when a member comes twice: there is no telling which of them holds.
bool readRecord(const XmlNode& node, const XmlNode& body, const QString& nameSpace,
                struct_TAJInfoReturn& record) {
    std::array<bool, std::size(members)> seen{};
    for (const XmlNode& child : node.children) {
        if (!child.name.nameSpace.isEmpty() && child.name.nameSpace != nameSpace) continue;
        for (std::size_t i = 0; i < std::size(members); ++i) {
            if (child.name.local != QString::fromUtf16(members[i].name)) continue;
            if (std::exchange(seen[i], true)) return false;
            const XmlNode* value = target(child, body);
            if (value == nullptr) return false;
            if (!isNil(*value)) record.*members[i].place = value->text.trimmed();
        }
    }
    return true;
}

bool isTyped(const XmlNode& node, const XmlName& type) {
    const QString said = node.attribute(u"type"_s, xsi);
    return !said.isEmpty() && node.resolve(said) == type;
}

// The element with the record, by the description's name or by the type it says it has.
const XmlNode* findRecord(const ServiceOperation& operation, const XmlName& type, const XmlNode& body) {
    const bool bare = operation.answerWrapper == XmlName();
    const XmlNode* parent = &body;
    if (!bare) {
        if (body.children.empty()) return nullptr;
        parent = &body.children.front();
        if (parent->name.nameSpace != operation.answerWrapper.nameSpace) return nullptr;
        const QString& local = operation.answerWrapper.local;
        if (!local.isEmpty() && parent->name.local != local) return nullptr;
    }
    for (const XmlNode& node : parent->children)
        if (node.name == operation.answer || isTyped(node, type)) return target(node, body);
    return nullptr;
}

// SOAP 1.1 knows one type; a server that leaves the difference to application/xml is taken at its word.
bool isXmlType(const QByteArray& contentType) {
    const QByteArray type = contentType.split(';').value(0).trimmed().toLower();
    return type == "text/xml" || type == "application/xml";
}

} // namespace

void MyHeaders::IHeaderHandler_WriteHeaders(QXmlStreamWriter& writer) const {
    // Elements in a default namespace; an attribute can only be in a namespace by a prefix.
    writer.writeStartElement(u"Security"_s);
    writer.writeDefaultNamespace(wsse);
    writer.writeAttribute(envelope, u"mustUnderstand"_s, u"0"_s);
    writer.writeStartElement(u"UsernameToken"_s);
    writer.writeTextElement(u"Username"_s, ClientUserId);
    writer.writeStartElement(u"Password"_s);
    writer.writeNamespace(wsse, u"wsse"_s);
    writer.writeAttribute(wsse, u"Type"_s, passwordText);
    writer.writeCharacters(ClientPassword);
    writer.writeEndElement();
    writer.writeEndElement();
    writer.writeEndElement();
}

QByteArray writeSoapRequest(const ServiceOperation& operation, const MyHeaders& headers,
                            const std::vector<QString>& arguments) {
    QByteArray bytes;
    QXmlStreamWriter writer(&bytes);
    writer.writeStartDocument();
    writer.writeNamespace(envelope, u"SOAP-ENV"_s);
    if (operation.encoded) {
        writer.writeNamespace(xsd, u"xsd"_s);
        writer.writeNamespace(xsi, u"xsi"_s);
    }
    if (!operation.wrapper.nameSpace.isEmpty()) writer.writeNamespace(operation.wrapper.nameSpace, u"m"_s);
    writer.writeStartElement(envelope, u"Envelope"_s);
    if (headers.IHeaderHandler_WillWriteHeaders()) {
        writer.writeStartElement(envelope, u"Header"_s);
        headers.IHeaderHandler_WriteHeaders(writer);
        writer.writeEndElement();
    }
    writer.writeStartElement(envelope, u"Body"_s);
    const bool wrapped = operation.wrapper != XmlName();
    const auto start = [&writer](const XmlName& name) {
        if (name.nameSpace.isEmpty())
            writer.writeStartElement(name.local);
        else
            writer.writeStartElement(name.nameSpace, name.local);
    };
    if (wrapped) {
        start(operation.wrapper);
        if (operation.encoded) writer.writeAttribute(envelope, u"encodingStyle"_s, encoding);
    }
    for (std::size_t i = 0; i < operation.arguments.size(); ++i) {
        start(operation.arguments[i]);
        if (operation.encoded) writer.writeAttribute(xsi, u"type"_s, u"xsd:string"_s);
        writer.writeCharacters(arguments.at(operation.positions.at(i)));
        writer.writeEndElement();
    }
    writer.writeEndDocument();
    return bytes;
}

SoapAnswer readSoapAnswer(const ServiceOperation& operation, const XmlName& answerType,
                          const QByteArray& body, const QByteArray& contentType) {
    SoapAnswer result;
    if (!isXmlType(contentType)) return result;
    const std::optional<XmlNode> root = readXml(body, contentType);
    if (!root || root->name.local != "Envelope"_L1) return result;
    const QString& version = root->name.nameSpace;
    if (version != envelope && version != envelope12) return result;
    const XmlNode* content = root->child(version, u"Body"_s);
    if (content == nullptr) return result;
    if (content->child(version, u"Fault"_s) != nullptr) {
        result.kind = SoapKind::fault;
        return result;
    }
    if (version != envelope) return result;
    if (operation.answer != XmlName()) {
        const XmlNode* record = findRecord(operation, answerType, *content);
        if (record == nullptr || isNil(*record)) return result;
        if (!readRecord(*record, *content, answerType.nameSpace, result.record)) return result;
    }
    result.kind = SoapKind::answer;
    return result;
}

} // namespace vandrel
