// The check of a patient's eligibility: the question, the answer, its log, and what the sheet shows of it.
// Knows no window; the sheet is a port.
#pragma once

#include "eligibility/taj_info_client.h"
#include "foundation/workstation.h"

namespace vandrel {

// What UserForm1 carries to the service; empty texts are sent empty.
struct CheckRequest {
    QString EllenorzesMod; // "01" by the TAJ, "02" by the person's data
    QString taj;
    QString szVezetek, szUtonev1, szUtonev2, szHely, szEv, szHo, szNap, neme;
    QString aVezetek, aUtonev1, aUtonev2;
    QString datum; // ééééhhnn
};

// What it carries back.
struct CheckAnswer {
    QString trkod, jogv, hibakod, htext, VizDijKot;
};

// The person as the sheet has him; birth date éééé.hh.nn.
struct CheckedPerson {
    QString taj, name, birthDate, sex, motherName;
};

// The request for a sheet: by the trimmed TAJ, or by the person's data where there is none.
CheckRequest makeCheckRequest(const CheckedPerson& person, QDate today);

// Family name and two given names: each blank moves to the next part, and the words from the third one on run
// together without a blank.
struct NameParts {
    QString family, given1, given2;
};
NameParts cutName(const QString& name);

// The colours of the sheet's two fields, 0xRRGGBB.
inline constexpr unsigned refusedColour = 0xF57683;
inline constexpr unsigned normalColour = 0xD4D0C8;

// What the sheet shows of an answer.
struct EligibilityDisplay {
    QString tranzkod;
    QString jogviszony, VizDijKot; // captions
    bool refused = false;          // red background of jogviszony
    QString tip;                   // of jogviszony; plain text
};
EligibilityDisplay displayOf(const CheckAnswer& answer);

// Where the service is and who asks.
struct ServiceAccess {
    QString address; // as the settings have it
    MyHeaders login;
};
// Address and login as setup.ini holds them.
ServiceAccess storedServiceAccess(const Workstation& station);
// Stores the address in its own section. Faults of the file pass through.
void storeServiceAddress(Workstation& station, const QString& address);

// The client is made and logs in, then the query goes out as ruser. answer is cleared after the login and
// filled when the outcome is done. Faults: those of clsws_TAJInfo.
CallOutcome askService(const ServicePorts& ports, const ServiceAccess& access, const CheckRequest& request,
                       const QString& ruser, CheckAnswer& answer);

// One row of the log. Faults of TAJKapu.mdb pass through.
void logCheck(Workstation& station, const QString& taj, const CheckAnswer& answer);

// Ties the log's rows of a transaction code to a stored sheet; does nothing for an empty code. Faults of
// TAJKapu.mdb pass through.
void tieCheckToSheet(Workstation& station, const QString& code, const QString& sheetKey);

// Date and transaction code of the last logged check of a TAJ; empty when there is none or the log cannot be
// read.
QString lastLoggedCheck(Workstation& station, const QString& taj);

} // namespace vandrel
