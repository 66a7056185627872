#include "eligibility/taj_info_client.h"

#include "platform/fault.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

const QString nameSpace = u"http://kjelo/"_s;
const QString answerType = u"TAJInfoReturn"_s;
const QString servicePath = u"/kjelo/TAJInfoSoapHttpPort"_s;
const QString boxTitle = u"Hiba!"_s;

constexpr qint64 largestDocument = 4 << 20; // bytes; such descriptions have some ten thousand
constexpr qint64 largestAnswer = 1 << 20;   // such answers have a thousand

struct NotFetched { // thrown inside this file alone
    bool cancelled;
};

} // namespace

QUrl serviceDescriptionUrl(const QString& typed) {
    QUrl url(typed.trimmed(), QUrl::StrictMode);
    if (!url.isValid() || url.host().isEmpty() || (url.scheme() != "http"_L1 && url.scheme() != "https"_L1))
        return {};
    if ((url.path().isEmpty() || url.path() == "/"_L1) && !url.hasQuery()) {
        url.setPath(servicePath);
        url.setQuery(u"WSDL"_s);
    }
    return url;
}

CallOutcome clsws_TAJInfo::Class_Initialize(const QUrl& wsdl) {
    const auto fetch = [this](const QUrl& url) {
        const HttpAnswer answer =
            exchangeHttp({url, {}, {}, false, largestDocument}, m_ports.way, m_ports.watch);
        if (!answer.good()) throw NotFetched{answer.failure == HttpFailure::cancelled};
        return readXml(answer.body, answer.contentType);
    };
    std::optional<ServiceDescription> service;
    try {
        service = readServiceDescription(
            wsdl, {u"TAJInfo"_s, u"TAJInfoSoapHttpPort"_s, nameSpace, answerType, 15}, fetch);
    } catch (const NotFetched& failure) {
        if (failure.cancelled) return CallOutcome::cancelled;
        m_ports.dialogue.tell(u"HIBA!\nNincs kapcsolat!\nKérem ellenőrizze az internetbeállításokat!"_s,
                              boxTitle);
        return CallOutcome::told;
    }
    if (!service)
        throw Fault(fault::webService,
                    u"A megadott címen nem a jogviszony-ellenőrző szolgáltatás leírása (WSDL) található."_s,
                    u"Class_Initialize"_s);
    m_service = *service;
    return CallOutcome::done;
}

CallOutcome clsws_TAJInfo::wsm_login() {
    return call(m_service.Login, u"wsm_login"_s, {}, nullptr);
}

CallOutcome clsws_TAJInfo::wsm_getTajInfo(const TajQuery& q, struct_TAJInfoReturn& answer) {
    return call(m_service.getTajInfo, u"wsm_getTajInfo"_s,
                {q.str_ruser, q.str_mode, q.str_taj, q.str_szVezetek, q.str_szUtonev1, q.str_szUtonev2,
                 q.str_szHely, q.str_szEv, q.str_szHo, q.str_szNap, q.str_neme, q.str_aVezetek,
                 q.str_aUtonev1, q.str_aUtonev2, q.str_date},
                &answer);
}

CallOutcome clsws_TAJInfo::call(const ServiceOperation& operation, const QString& source,
                                const std::vector<QString>& arguments, struct_TAJInfoReturn* answer) {
    std::vector<QString> texts = arguments;
    texts.push_back(m_headers.ClientUserId);
    texts.push_back(m_headers.ClientPassword);
    if (!std::all_of(texts.begin(), texts.end(), fitsXml))
        throw Fault(fault::webService, u"A kérdés olyan betűt tartalmaz, amely nem küldhető el."_s, source);

    const HttpAnswer http = exchangeHttp(
        {m_service.address,
         {{"Content-Type", "text/xml; charset=utf-8"}, {"SOAPAction", '"' + operation.soapAction + '"'}},
         writeSoapRequest(operation, m_headers, arguments),
         true,
         largestAnswer},
        m_ports.way, m_ports.watch);
    if (http.failure == HttpFailure::cancelled) return CallOutcome::cancelled;
    if (http.failure != HttpFailure::none) throw Fault(fault::webService, describeHttp(http), source);
    const SoapAnswer soap = readSoapAnswer(operation, {nameSpace, answerType}, http.body, http.contentType);
    if (soap.kind == SoapKind::fault) {
        m_ports.dialogue.tell(u"HIBA!\nA felhasználónév / jelszó nem helyes!"_s, boxTitle);
        return CallOutcome::told;
    }
    if (!operation.answered && (http.status == 200 || http.status == 202) && http.body.isEmpty())
        return CallOutcome::done;
    if (http.status != 200) throw Fault(fault::webService, describeHttp(http), source);
    if (soap.kind == SoapKind::unusable)
        throw Fault(fault::webService, u"A szolgáltatás válasza nem értelmezhető."_s, source);
    if (answer != nullptr) *answer = soap.record;
    return CallOutcome::done;
}

} // namespace vandrel
