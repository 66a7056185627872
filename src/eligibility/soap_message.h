// The SOAP 1.1 messages of the eligibility service: what goes out and what comes back. No network.
#pragma once

#include "eligibility/service_description.h"

class QXmlStreamWriter;

namespace vandrel {

// The credentials of one client and the header that carries them. They go nowhere else: no message, no log.
struct MyHeaders {
    QString ClientUserId;
    QString ClientPassword;

    bool IHeaderHandler_WillWriteHeaders() const { return true; }
    // The entry Security of WS-Security 1.0 with the name and the password in the clear.
    void IHeaderHandler_WriteHeaders(QXmlStreamWriter& writer) const;
    // Headers of an answer are taken as understood; nothing is read from them.
    bool IHeaderHandler_ReadHeader() const { return true; }
};

// The answer, as its texts came; what the service left out is empty.
struct struct_TAJInfoReturn {
    QString user; // not used
    QString tranKod;
    QString hibaSzoveg;
    QString vizitdijKot; // "I" or "N"
    QString hibakod;
    QString jogviszony; // "I" or "N"
};

// One request in UTF-8. There are as many arguments as the operation takes, and all fit into XML.
QByteArray writeSoapRequest(const ServiceOperation& operation, const MyHeaders& headers,
                            const std::vector<QString>& arguments);

enum class SoapKind {
    answer,
    fault,    // the service refused
    unusable, // no SOAP, or not the answer that was asked for
};

struct SoapAnswer {
    SoapKind kind = SoapKind::unusable;
    struct_TAJInfoReturn record; // of an operation that answers with one
};

// Reads a body, whatever its prefixes; also encoded answers that keep the record elsewhere in the body
// (href). answerType is the record's type with its namespace.
SoapAnswer readSoapAnswer(const ServiceOperation& operation, const XmlName& answerType,
                          const QByteArray& body, const QByteArray& contentType);

} // namespace vandrel
