// What the service's WSDL says that a request needs: where it goes, how it is shaped, and by which name the
// answer's record comes back. Read anew for every client, since the service's words are not laid down here.
#pragma once

#include "eligibility/xml_tree.h"

#include <QUrl>

#include <functional>

namespace vandrel {

struct ServiceOperation {
    QByteArray soapAction;
    bool document = false;          // binding style; otherwise rpc
    bool encoded = false;           // use of the request; otherwise literal
    XmlName wrapper;                // element around the arguments; no name: they stand in the body itself
    std::vector<XmlName> arguments; // elements, in the order in which they are written
    std::vector<std::size_t> positions; // of each element: which argument of the call it carries
    bool answered = true;               // false: one way, nothing comes back
    XmlName answerWrapper;              // no local name: any name will do; no name at all: none
    XmlName answer;                     // the element that holds the record; no name: none is wanted
};

struct ServiceDescription {
    QUrl address;
    ServiceOperation Login;
    ServiceOperation getTajInfo;
};

// Which service is meant, and the type of its answer.
struct ServiceNames {
    QString service, port, nameSpace, answerType;
    std::size_t argumentCount; // of getTajInfo; Login has none
};

// A document that the description names, or nothing when it is no XML. May throw to end the reading.
using FetchDocument = std::function<std::optional<XmlNode>(const QUrl&)>;

// Follows the imports of descriptions and schemas (16 documents at the most). Null when the description does
// not fit: no such service, port or operation, another protocol than SOAP 1.1 over HTTP, other arguments, no
// answer of the type, or an address that would send to plain http what was described over https.
std::optional<ServiceDescription> readServiceDescription(const QUrl& url, const ServiceNames& names,
                                                         const FetchDocument& fetch);

} // namespace vandrel
