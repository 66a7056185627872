#include "eligibility/service_description.h"

#include <QSet>
#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

const QString wsdl = u"http://schemas.xmlsoap.org/wsdl/"_s;
const QString soap = u"http://schemas.xmlsoap.org/wsdl/soap/"_s;
const QString overHttp = u"http://schemas.xmlsoap.org/soap/http"_s;
const QString xsd = u"http://www.w3.org/2001/XMLSchema"_s;

constexpr qsizetype mostDocuments = 16;
constexpr int deepestType = 16;

struct Unfit {}; // thrown inside this file alone

void require(bool condition) {
    if (!condition) throw Unfit();
}

// An element as a schema declares it. The type is either named or written in place.
struct Declared {
    XmlName name;
    XmlName type;
    const XmlNode* inPlace = nullptr; // complexType
};

struct Schema {
    const XmlNode* node;
    QString nameSpace; // the includer's, where an included schema has none
};

class Reader {
  public:
    Reader(const ServiceNames& names, const FetchDocument& fetch) : m_names(names), m_fetch(fetch) {}

    ServiceDescription read(const QUrl& url) {
        load(url, QString());
        const XmlNode& service = definition(u"service"_s, {m_names.nameSpace, m_names.service});
        const XmlNode* port = nullptr;
        for (const XmlNode& node : service.children)
            if (node.is(wsdl, u"port"_s) && node.attribute(u"name"_s) == m_names.port) port = &node;
        require(port != nullptr);
        const XmlNode* address = port->child(soap, u"address"_s);
        require(address != nullptr);

        ServiceDescription result;
        result.address = url.resolved(QUrl(address->attribute(u"location"_s)));
        require(result.address.isValid() && !result.address.host().isEmpty());
        require(url.scheme() != "https"_L1 || result.address.scheme() == "https"_L1);

        const XmlNode& binding = definition(u"binding"_s, port->resolve(port->attribute(u"binding"_s)));
        const XmlNode* bound = binding.child(soap, u"binding"_s);
        require(bound != nullptr && bound->attribute(u"transport"_s) == overHttp);
        m_style = bound->attribute(u"style"_s);
        const XmlNode& portType = definition(u"portType"_s, binding.resolve(binding.attribute(u"type"_s)));
        result.Login = operation(binding, portType, u"Login"_s, 0, false);
        result.getTajInfo = operation(binding, portType, u"getTajInfo"_s, m_names.argumentCount, true);
        return result;
    }

  private:
    void load(const QUrl& url, const QString& includer) {
        const QUrl plain = url.adjusted(QUrl::RemoveFragment);
        if (m_seen.contains(plain)) return;
        require(m_seen.size() < mostDocuments);
        m_seen.insert(plain);
        std::optional<XmlNode> tree = m_fetch(plain);
        require(tree.has_value());
        m_documents.push_back(std::make_unique<XmlNode>(std::move(*tree)));
        const XmlNode& root = *m_documents.back();
        if (root.is(xsd, u"schema"_s)) return takeSchema(root, plain, includer);
        require(root.is(wsdl, u"definitions"_s));
        m_definitions.push_back(&root);
        for (const XmlNode& node : root.children) {
            if (node.is(wsdl, u"import"_s)) follow(plain, node.attribute(u"location"_s), QString());
            if (!node.is(wsdl, u"types"_s)) continue;
            for (const XmlNode& schema : node.children)
                if (schema.is(xsd, u"schema"_s)) takeSchema(schema, plain, QString());
        }
    }

    void takeSchema(const XmlNode& schema, const QUrl& base, const QString& includer) {
        const QString own = schema.attribute(u"targetNamespace"_s);
        const QString nameSpace = own.isEmpty() ? includer : own;
        m_schemas.push_back({&schema, nameSpace});
        for (const XmlNode& node : schema.children) {
            const QString location = node.attribute(u"schemaLocation"_s);
            if (node.is(xsd, u"import"_s)) follow(base, location, QString());
            if (node.is(xsd, u"include"_s)) follow(base, location, nameSpace);
        }
    }

    // An import without a place names what is at hand already.
    void follow(const QUrl& base, const QString& location, const QString& includer) {
        if (!location.isEmpty()) load(base.resolved(QUrl(location)), includer);
    }

    const XmlNode& definition(const QString& kind, const XmlName& name) const {
        for (const XmlNode* document : m_definitions) {
            if (document->attribute(u"targetNamespace"_s) != name.nameSpace) continue;
            for (const XmlNode& node : document->children)
                if (node.is(wsdl, kind) && node.attribute(u"name"_s) == name.local) return node;
        }
        throw Unfit();
    }

    static const XmlNode& named(const XmlNode& parent, const QString& name) {
        for (const XmlNode& node : parent.children)
            if (node.is(wsdl, u"operation"_s) && node.attribute(u"name"_s) == name) return node;
        throw Unfit();
    }

    // The parts of a message that go into the body.
    std::vector<const XmlNode*> bodyParts(const XmlNode& direction, const XmlNode& body) const {
        const XmlNode& message =
            definition(u"message"_s, direction.resolve(direction.attribute(u"message"_s)));
        const bool some = std::any_of(body.attributes.begin(), body.attributes.end(), [](const auto& a) {
            return a.name == XmlName{{}, u"parts"_s};
        });
        const QStringList wanted = body.attribute(u"parts"_s).split(' '_L1, Qt::SkipEmptyParts);
        std::vector<const XmlNode*> parts;
        for (const XmlNode& node : message.children)
            if (node.is(wsdl, u"part"_s) && (!some || wanted.contains(node.attribute(u"name"_s))))
                parts.push_back(&node);
        return parts;
    }

    ServiceOperation operation(const XmlNode& binding, const XmlNode& portType, const QString& name,
                               std::size_t count, bool answerWanted) const {
        const XmlNode& bound = named(binding, name);
        const XmlNode& abstract = named(portType, name);
        ServiceOperation result;
        QString style = m_style;
        if (const XmlNode* details = bound.child(soap, u"operation"_s)) {
            result.soapAction = details->attribute(u"soapAction"_s).toUtf8();
            // It goes into a header line.
            require(std::none_of(result.soapAction.begin(), result.soapAction.end(),
                                 [](char c) { return c == '"' || (c >= 0 && c < ' '); }));
            const QString own = details->attribute(u"style"_s);
            if (!own.isEmpty()) style = own;
        }
        require(style.isEmpty() || style == "document"_L1 || style == "rpc"_L1);
        result.document = style != "rpc"_L1; // what a binding without a style means

        const auto bodyOf = [&bound](const QString& direction) {
            const XmlNode* node = bound.child(wsdl, direction);
            return node == nullptr ? nullptr : node->child(soap, u"body"_s);
        };
        const XmlNode* request = bodyOf(u"input"_s);
        const XmlNode* input = abstract.child(wsdl, u"input"_s);
        require(request != nullptr && input != nullptr);
        result.encoded = request->attribute(u"use"_s) == "encoded"_L1;
        const std::vector<const XmlNode*> parts = bodyParts(*input, *request);
        if (result.document)
            readDocumentArguments(result, parts);
        else
            readRpcArguments(result, parts, name, *request, abstract);
        require(result.arguments.size() == count);

        const XmlNode* response = bodyOf(u"output"_s);
        const XmlNode* output = abstract.child(wsdl, u"output"_s);
        result.answered = output != nullptr && response != nullptr;
        if (!answerWanted) return result;
        require(result.answered);
        readAnswer(result, bodyParts(*output, *response), *response);
        return result;
    }

    void readRpcArguments(ServiceOperation& result, const std::vector<const XmlNode*>& parts,
                          const QString& name, const XmlNode& body, const XmlNode& abstract) const {
        result.wrapper = {body.attribute(u"namespace"_s), name};
        QStringList order;
        for (const XmlNode* part : parts)
            order << part->attribute(u"name"_s);
        const QStringList written = order;
        const QStringList said = abstract.attribute(u"parameterOrder"_s).split(' '_L1, Qt::SkipEmptyParts);
        // The order of the call, where it is another one than that of the message.
        QStringList call;
        for (const QString& argument : said)
            if (order.removeOne(argument)) call << argument;
        call << order;
        for (const QString& argument : written) {
            result.arguments.push_back({{}, argument});
            result.positions.push_back(static_cast<std::size_t>(call.indexOf(argument)));
        }
    }

    void readDocumentArguments(ServiceOperation& result, const std::vector<const XmlNode*>& parts) const {
        std::vector<Declared> elements;
        for (const XmlNode* part : parts)
            elements.push_back(global(part->resolve(part->attribute(u"element"_s))));
        if (elements.size() == 1 && complexType(elements[0]) != nullptr) {
            result.wrapper = elements[0].name;
            elements = content(elements[0]);
        }
        for (const Declared& element : elements) {
            result.positions.push_back(result.arguments.size());
            result.arguments.push_back(element.name);
        }
    }

    void readAnswer(ServiceOperation& result, const std::vector<const XmlNode*>& parts,
                    const XmlNode& body) const {
        const XmlName wanted{m_names.nameSpace, m_names.answerType};
        for (const XmlNode* part : parts) {
            if (!result.document) {
                if (part->resolve(part->attribute(u"type"_s)) != wanted) continue;
                result.answerWrapper = {body.attribute(u"namespace"_s), {}};
                result.answer = {{}, part->attribute(u"name"_s)};
                return;
            }
            const Declared element = global(part->resolve(part->attribute(u"element"_s)));
            if (element.type == wanted) {
                result.answer = element.name;
                return;
            }
            for (const Declared& inner : content(element)) {
                if (inner.type != wanted) continue;
                result.answerWrapper = element.name;
                result.answer = inner.name;
                return;
            }
        }
        throw Unfit();
    }

    Declared global(const XmlName& name) const {
        for (const Schema& schema : m_schemas) {
            if (schema.nameSpace != name.nameSpace) continue;
            for (const XmlNode& node : schema.node->children)
                if (node.is(xsd, u"element"_s) && node.attribute(u"name"_s) == name.local)
                    return declared(node, name);
        }
        throw Unfit();
    }

    static Declared declared(const XmlNode& node, const XmlName& name) {
        const QString type = node.attribute(u"type"_s);
        return {name, type.isEmpty() ? XmlName() : node.resolve(type), node.child(xsd, u"complexType"_s)};
    }

    struct FoundType {
        const XmlNode* node = nullptr;
        const Schema* schema = nullptr;
    };

    FoundType typeNamed(const XmlName& name) const {
        for (const Schema& schema : m_schemas) {
            if (schema.nameSpace != name.nameSpace) continue;
            for (const XmlNode& node : schema.node->children)
                if (node.is(xsd, u"complexType"_s) && node.attribute(u"name"_s) == name.local)
                    return {&node, &schema};
        }
        return {};
    }

    const XmlNode* complexType(const Declared& element) const {
        return element.inPlace != nullptr ? element.inPlace : typeNamed(element.type).node;
    }

    // The elements inside a declared one, those of the types that it extends first.
    std::vector<Declared> content(const Declared& element) const {
        std::vector<Declared> result;
        FoundType type = typeNamed(element.type);
        if (element.inPlace != nullptr) {
            type.node = element.inPlace;
            for (const Schema& schema : m_schemas)
                if (schema.nameSpace == element.name.nameSpace) type.schema = &schema;
            for (const Schema& schema : m_schemas)
                for (const XmlNode& node : schema.node->children)
                    if (node.child(xsd, u"complexType"_s) == element.inPlace) type.schema = &schema;
        }
        if (type.node != nullptr && type.schema != nullptr) collect(*type.node, *type.schema, 0, result);
        return result;
    }

    void collect(const XmlNode& node, const Schema& schema, int depth, std::vector<Declared>& result) const {
        require(depth < deepestType);
        for (const XmlNode& inner : node.children) {
            if (inner.is(xsd, u"element"_s)) {
                result.push_back(local(inner, schema));
            } else if (inner.is(xsd, u"extension"_s)) {
                const FoundType base = typeNamed(inner.resolve(inner.attribute(u"base"_s)));
                if (base.node != nullptr) collect(*base.node, *base.schema, depth + 1, result);
                collect(inner, schema, depth + 1, result);
            } else if (inner.is(xsd, u"sequence"_s) || inner.is(xsd, u"all"_s) ||
                       inner.is(xsd, u"complexContent"_s)) {
                collect(inner, schema, depth + 1, result);
            }
            require(result.size() <= 1000);
        }
    }

    Declared local(const XmlNode& node, const Schema& schema) const {
        const QString ref = node.attribute(u"ref"_s);
        if (!ref.isEmpty()) return global(node.resolve(ref));
        QString form = node.attribute(u"form"_s);
        if (form.isEmpty()) form = schema.node->attribute(u"elementFormDefault"_s);
        return declared(node,
                        {form == "qualified"_L1 ? schema.nameSpace : QString(), node.attribute(u"name"_s)});
    }

    const ServiceNames& m_names;
    const FetchDocument& m_fetch;
    QString m_style;
    QSet<QUrl> m_seen;
    std::vector<std::unique_ptr<XmlNode>> m_documents;
    std::vector<const XmlNode*> m_definitions;
    std::vector<Schema> m_schemas;
};

} // namespace

std::optional<ServiceDescription> readServiceDescription(const QUrl& url, const ServiceNames& names,
                                                         const FetchDocument& fetch) {
    try {
        return Reader(names, fetch).read(url);
    } catch (const Unfit&) {
        return std::nullopt;
    }
}

} // namespace vandrel
