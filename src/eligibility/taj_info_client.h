// The client of the Fund's eligibility service. It is built from the service's description and calls its two
// operations; boxes of the service's own faults are shown here. It knows no sheet and no log.
#pragma once

#include "eligibility/soap_message.h"
#include "foundation/dialogue.h"
#include "platform/http.h"

namespace vandrel {

// What a client needs from outside.
struct ServicePorts {
    Dialogue& dialogue;
    HttpWay way;     // the proxy of the user's system settings
    HttpWatch watch; // gives a call up; may be empty
};

enum class CallOutcome {
    done,
    told,      // it failed, and the user has seen the box
    cancelled, // the watch gave it up; nothing was shown
};

// The texts of a query, in the order in which the service takes them.
struct TajQuery {
    QString str_ruser, str_mode, str_taj, str_szVezetek, str_szUtonev1, str_szUtonev2, str_szHely, str_szEv,
        str_szHo, str_szNap, str_neme, str_aVezetek, str_aUtonev1, str_aUtonev2, str_date;
};

class clsws_TAJInfo {
  public:
    clsws_TAJInfo(const ServicePorts& ports, const MyHeaders& credentials)
        : m_ports(ports), m_headers(credentials) {}

    // Fetches and reads the description. Told: no connection, of whatever kind. Fault (source
    // "Class_Initialize"): a description that does not fit.
    CallOutcome Class_Initialize(const QUrl& wsdl);

    // Told: the service refused, which always reads as a bad login. Faults (source the operation's name): a
    // connection that breaks, a status that is no answer, an answer that cannot be read, a text that XML
    // cannot carry. There is no second try and no time-out.
    CallOutcome wsm_login();
    CallOutcome wsm_getTajInfo(const TajQuery& query, struct_TAJInfoReturn& answer);

  private:
    CallOutcome call(const ServiceOperation& operation, const QString& source,
                     const std::vector<QString>& arguments, struct_TAJInfoReturn* answer);

    ServicePorts m_ports;
    MyHeaders m_headers;
    ServiceDescription m_service;
};

// The address of the description: a host alone gets the service's own path. Not valid when it is no address
// of http or https.
QUrl serviceDescriptionUrl(const QString& typed);

} // namespace vandrel
