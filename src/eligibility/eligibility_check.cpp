#include "eligibility/eligibility_check.h"

#include "platform/fault.h"
#include "platform/format.h"

#include <array>

using namespace Qt::StringLiterals;

namespace vandrel {

NameParts cutName(const QString& name) {
    std::array<QString, 3> parts;
    std::size_t part = 0;
    for (const QChar c : name) {
        if (c != ' '_L1)
            parts[part] += c;
        else if (part + 1 < parts.size())
            ++part; // Deliberate: later words join the third part without a blank, as the service has known
                    // it.
    }
    return {parts[0], parts[1], parts[2]};
}

CheckRequest makeCheckRequest(const CheckedPerson& person, QDate today) {
    CheckRequest request;
    request.taj = person.taj.trimmed();
    if (!request.taj.isEmpty()) {
        request.EllenorzesMod = u"01"_s;
        return request;
    }
    request.EllenorzesMod = u"02"_s;
    const NameParts own = cutName(person.name);
    request.szVezetek = own.family;
    request.szUtonev1 = own.given1;
    request.szUtonev2 = own.given2;
    request.szEv = person.birthDate.mid(0, 4).trimmed();
    request.szHo = person.birthDate.mid(5, 2).trimmed();
    request.szNap = person.birthDate.mid(8, 2).trimmed();
    request.neme = person.sex;
    const NameParts mother = cutName(person.motherName);
    request.aVezetek = mother.family;
    request.aUtonev1 = mother.given1;
    request.aUtonev2 = mother.given2;
    request.datum = format::shortDate(today).remove('.'_L1);
    return request;
}

EligibilityDisplay displayOf(const CheckAnswer& answer) {
    EligibilityDisplay display;
    display.tranzkod = answer.trkod;
    display.jogviszony = answer.jogv;
    display.VizDijKot = answer.VizDijKot;
    display.refused = answer.jogv == "N"_L1;
    if (display.refused) display.tip = answer.htext;
    return display;
}

ServiceAccess storedServiceAccess(const Workstation& station) {
    return {station.setup.longValue(u"TAJINFO"_s, u"URL"_s),
            {station.setup.value(u"KJELO"_s, u"Login"_s), station.setup.value(u"KJELO"_s, u"Password"_s)}};
}

void storeServiceAddress(Workstation& station, const QString& address) {
    station.setup.setValue(u"TAJINFO"_s, u"URL"_s, address);
}

CallOutcome askService(const ServicePorts& ports, const ServiceAccess& access, const CheckRequest& request,
                       const QString& ruser, CheckAnswer& answer) {
    const QUrl address = serviceDescriptionUrl(access.address);
    if (!address.isValid())
        throw Fault(fault::webService,
                    u"A jogviszony-ellenőrző szolgáltatás címe nincs megadva, vagy nem internetcím.\n"
                    "Kérem adja meg az intézmény adatainál!"_s,
                    u"Class_Initialize"_s);
    clsws_TAJInfo client(ports, access.login);
    if (const CallOutcome made = client.Class_Initialize(address); made != CallOutcome::done) return made;
    if (const CallOutcome in = client.wsm_login(); in != CallOutcome::done) return in;
    answer = {};

    TajQuery query;
    query.str_ruser = ruser;
    query.str_mode = request.EllenorzesMod;
    if (request.EllenorzesMod == "01"_L1) {
        query.str_taj = request.taj;
    } else {
        query.str_szVezetek = request.szVezetek;
        query.str_szUtonev1 = request.szUtonev1;
        query.str_szUtonev2 = request.szUtonev2;
        query.str_szHely = request.szHely;
        query.str_szEv = request.szEv;
        query.str_szHo = request.szHo;
        query.str_szNap = request.szNap;
        query.str_neme = request.neme;
        query.str_aVezetek = request.aVezetek;
        query.str_aUtonev1 = request.aUtonev1;
        query.str_aUtonev2 = request.aUtonev2;
        query.str_date = request.datum;
    }
    struct_TAJInfoReturn record;
    const CallOutcome outcome = client.wsm_getTajInfo(query, record);
    if (outcome == CallOutcome::done)
        answer = {record.tranKod, record.jogviszony, record.hibakod, record.hibaSzoveg, record.vizitdijKot};
    return outcome;
}

void logCheck(Workstation& station, const QString& taj, const CheckAnswer& answer) {
    station.files[DataFile::TAJKapu].execute(
        "insert into Tranzakciok (Datum, Kod, TAJ, Jogviszony, Hiba) values (?1, ?2, ?3, ?4, ?5)",
        format::shortDate(station.clock.today()), answer.trkod, taj, answer.jogv, answer.htext);
}

void tieCheckToSheet(Workstation& station, const QString& code, const QString& sheetKey) {
    if (code.trimmed().isEmpty()) return;
    station.files[DataFile::TAJKapu].execute("update Tranzakciok set Adatlap=?1 where Kod=?2", sheetKey,
                                             code);
}

QString lastLoggedCheck(Workstation& station, const QString& taj) {
    if (taj.trimmed().isEmpty()) return {};
    try {
        Query row = station.files[DataFile::TAJKapu].query(
            "select Datum, Kod from Tranzakciok where TAJ=?1 order by rowid desc limit 1", taj.trimmed());
        if (!row.next()) return {};
        return u"Utolsó ellenőrzés: %1 tranzakciókód: %2"_s.arg(row.text(0), row.text(1));
    } catch (const Fault&) {
        return {}; // a hint only: the check itself tells what is wrong with the log
    }
}

} // namespace vandrel
