#include "demo/visits.h"

using namespace Qt::StringLiterals;

namespace vandrel::demo {

namespace {

struct Patient {
    QString number; // the first eight digits of the TAJ
    QString name;
    QString postalCode;
    QString street;
    QString mother;
    QString maidenName;
    QString sex;
    QString birth; // digits
};

// Eight digits and the check digit after them: three times the odd places, seven times the even ones.
QString withCheckDigit(const QString& number) {
    int sum = 0;
    for (int i = 0; i < 8; ++i)
        sum += number[i].digitValue() * (i % 2 == 0 ? 3 : 7);
    return number + QString::number(sum % 10);
}

const std::vector<Patient>& patients() {
    static const std::vector<Patient> all = {
        {u"11203040"_s, u"Árvai Ödönné"_s, u"1081"_s, u"Őszirózsa utca 4."_s, u"Ürmös Örzse"_s,
         u"Szűcs Ágnes"_s, u"2"_s, u"19410312"_s},
        {u"12345678"_s, u"Kővári Győző"_s, u"6720"_s, u"Tűzoltó köz 12."_s, u"Őri Ilona"_s, u""_s, u"1"_s,
         u"19580723"_s},
        {u"20817263"_s, u"Szűcs Ágoston"_s, u"4025"_s, u"Fő tér 1."_s, u"Kiss Mária"_s, u""_s, u"1"_s,
         u"19771104"_s},
        {u"31415926"_s, u"Új-Horváth Zsófia"_s, u"9021"_s, u"Kálvária utca 33/B"_s, u"Nagy Erzsébet"_s,
         u"Horváth Zsófia"_s, u"2"_s, u"19860228"_s},
        {u"40506070"_s, u"D'Angelo Béla"_s, u"7621"_s, u"Rákóczi út 18."_s, u"O'Neill Margit"_s, u""_s,
         u"1"_s, u"19690501"_s},
        {u"52134768"_s, u"Csörgő Eszter"_s, u"3300"_s, u"Dobó tér 7."_s, u"Tóth Katalin"_s, u""_s, u"2"_s,
         u"20011015"_s},
        {u"60021998"_s, u"Űrbán Ülő"_s, u"8000"_s, u"Palotai út 90."_s, u"Öllős Piroska"_s, u""_s, u"1"_s,
         u"19330206"_s},
        {u"71830562"_s, u"Gyökér Hajnalka"_s, u"5000"_s, u"Tisza part 2."_s, u"Ács Julianna"_s,
         u"Bíró Hajnalka"_s, u"2"_s, u"19640818"_s},
        {u"83512340"_s, u"Kis Bence"_s, u"2600"_s, u"Duna sor 5."_s, u"Kisné Pető Réka"_s, u""_s, u"1"_s,
         u"20060411"_s},
        {u"90127845"_s, u"Zsembery Lőrinc"_s, u"9400"_s, u"Várkerület 51."_s, u"Pálffy Sarolta"_s, u""_s,
         u"1"_s, u"19520930"_s},
        {u"13572468"_s, u"Müller Johann"_s, u"8360"_s, u"Balaton sétány 3."_s, u"Schmidt Eva"_s, u""_s,
         u"1"_s, u"19480617"_s},
        {u"24681357"_s, u"Tengerdi-Győrffy Annamária"_s, u"6000"_s, u"Nagykőrösi utca 27."_s,
         u"Győrffy Anna"_s, u"Győrffy Annamária"_s, u"2"_s, u"19790105"_s},
        {u"35792468"_s, u"Öveges Tamásné"_s, u"3525"_s, u"Széchenyi utca 66."_s, u"Végh Terézia"_s,
         u"Új Tünde"_s, u"2"_s, u"19551222"_s},
        {u"46801357"_s, u"Nyírő Márton"_s, u"4400"_s, u"Kossuth tér 10."_s, u"Szőke Edit"_s, u""_s, u"1"_s,
         u"19930614"_s},
    };
    return all;
}

const QString internal = u"010100001"_s, surgery = u"020100001"_s, gynaecology = u"040100001"_s;

Visit visitOf(int patient, bool known, int day, const QString& diagnosis, const QString& unit = internal) {
    const Patient& person = patients().at(static_cast<std::size_t>(patient));
    Visit visit;
    visit.name = person.name;
    visit.taj = withCheckDigit(person.number);
    visit.known = known;
    visit.date = u"2008.03.%1."_s.arg(day, 2, 10, '0'_L1);
    visit.time = u"%1%2"_s.arg(8 + day % 9, 2, 10, '0'_L1).arg(10 + day);
    visit.unit = unit;
    visit.postalCode = person.postalCode;
    visit.sex = person.sex;
    visit.birth = person.birth;
    visit.citizenship = u"HUN"_s;
    visit.diagnosis = diagnosis;
    visit.fields.emplace_back(u"Szakrend"_s, unit);
    visit.fields.emplace_back(u"Orvkod"_s, u"9000"_s + (unit == internal  ? u'1'
                                                        : unit == surgery ? u'2'
                                                                          : u'3'));
    visit.fields.emplace_back(u"Szem_szam"_s, known ? visit.taj.left(3) : visit.taj);
    if (!known) {
        for (const Entry& entry : {Entry(u"Azon_tipus"_s, u"1"_s), Entry(u"Neve"_s, person.name),
                                   Entry(u"Irszam"_s, person.postalCode), Entry(u"Cim"_s, person.street),
                                   Entry(u"Anyja_neve"_s, person.mother), Entry(u"Nem"_s, person.sex),
                                   Entry(u"Szul_dat"_s, person.birth)})
            visit.fields.push_back(entry);
        if (!person.maidenName.isEmpty()) visit.fields.emplace_back(u"Leanykori_neve"_s, person.maidenName);
    }
    visit.fields.emplace_back(u"F_datum"_s, QString(visit.date).remove(u'.'));
    visit.fields.emplace_back(u"F_ido"_s, visit.time);
    if (!diagnosis.isEmpty()) visit.fields.emplace_back(u"Diag1"_s, diagnosis);
    return visit;
}

Line line(const QString& code, const QString& quantity = {}) {
    return {code, code, quantity};
}

Line key(const QString& name, const QString& code) {
    return {name, code, {}, Line::Way::functionKey};
}

Line search(const QString& name, const QString& code) {
    return {name, code, {}, Line::Way::dictionary};
}

std::vector<Visit> makeVisits() {
    std::vector<Visit> all;
    const auto add = [&all](Visit visit, const QString& remark) -> Visit& {
        visit.remark = remark;
        all.push_back(std::move(visit));
        return all.back();
    };

    Visit* visit = &add(visitOf(0, false, 3, u"I10H0"_s), u"az első lap: szakrendelés és orvos listából"_s);
    visit->picked = {{u"Szakrend"_s, internal}, {u"Orvkod"_s, u"90001"_s}};
    visit->lines = {key(u"F2"_s, u"10010"_s)};

    visit = &add(visitOf(1, false, 3, u"E1190"_s), u"hat beavatkozás"_s);
    visit->lines = {line(u"10010"_s), line(u"30010"_s), line(u"30030"_s),
                    line(u"30060"_s), line(u"30090"_s), line(u"30110"_s)};
    visit->fields.emplace_back(u"Diag2"_s, u"E7850"_s);

    visit = &add(visitOf(2, false, 4, u"S6100"_s, surgery),
                 u"hét beavatkozás, más szakrendelés, baleset listából"_s);
    visit->picked = {{u"Baleset"_s, u"31"_s}};
    visit->lines = {line(u"10010"_s),         line(u"40160"_s), line(u"40020"_s, u"2"_s), line(u"50070"_s),
                    line(u"40040"_s, u"3"_s), line(u"10110"_s), line(u"10070"_s)};

    visit = &add(visitOf(3, false, 4, u"Z0000"_s), u"beavatkozás nélkül; 1986.02.29. nincs a naptárban"_s);
    visit->wrongBirth = u"19860229"_s;
    visit->fields.emplace_back(u"Ell_tip"_s, u"6"_s);

    visit = &add(visitOf(4, false, 5, u"M5450"_s), u"nyolc beavatkozás, beutalóval"_s);
    for (const Entry& entry : {Entry(u"Igenylo"_s, u"800000002"_s), Entry(u"BeutOrvos"_s, u"80123"_s),
                               Entry(u"BeutIndok"_s, u"M5450"_s), Entry(u"BeutaloKelte"_s, u"20080228"_s)})
        visit->fields.push_back(entry);
    visit->lines = {line(u"10010"_s),         line(u"60010"_s, u"5"_s), line(u"60030"_s, u"5"_s),
                    line(u"60060"_s, u"3"_s), line(u"60080"_s, u"2"_s), line(u"60110"_s),
                    line(u"60120"_s, u"2"_s), line(u"70070"_s)};

    visit = &add(visitOf(5, false, 5, u"J0690"_s), u"térítési kategória listából: részleges térítés (0R)"_s);
    visit->picked = {{u"Terites"_s, u"0R"_s}};
    visit->fields.emplace_back(u"TerReszlDij"_s, u"1500"_s);
    visit->lines = {line(u"10010"_s)};

    visit = &add(visitOf(6, false, 6, u"I5090"_s), u"tizenhárom beavatkozás"_s);
    for (const char16_t* code : {u"10010", u"20010", u"20050", u"30010", u"30060", u"30070", u"30080",
                                 u"30090", u"30100", u"30110", u"30120", u"30130", u"10110"})
        visit->lines.push_back(line(QString::fromUtf16(code)));
    visit->fields.emplace_back(u"Diag2"_s, u"I48H0"_s);
    visit->fields.emplace_back(u"Diag3"_s, u"E7900"_s);

    visit = &add(visitOf(0, true, 10, u"I10H0"_s), u"visszatérő beteg: a TAJ három jegyéből"_s);
    visit->fields.emplace_back(u"Ell_tip"_s, u"2"_s);
    visit->lines = {key(u"F3"_s, u"10020"_s), line(u"10120"_s)};

    visit = &add(visitOf(7, false, 10, {}), u"diagnózis és beavatkozás név szerint keresve"_s);
    visit->diagnosis = u"N3000"_s;
    visit->searched = {{u"Diag1"_s, u"hólyaghurut"_s}};
    visit->lines = {search(u"vizelet"_s, u"30040"_s), line(u"30050"_s)};

    visit = &add(visitOf(8, false, 11, u"J0290"_s), u"gyermek; a nem kimarad, a tárolás visszautasítja"_s);
    visit->forgetSex = true;
    visit->lines = {line(u"10010"_s), line(u"30150"_s)};

    visit = &add(visitOf(9, false, 11, u"I2090"_s), u"egyéb adatok és megjegyzés"_s);
    visit->otherData = {{u"Labor"_s, u"1"_s}, {u"Rtg"_s, u"7"_s}, {u"Ctmr"_s, u"0"_s}, {u"Recept"_s, u"3"_s}};
    visit->note = u"Kontroll két hét múlva.\nŐrzött panasz: fulladás."_s;
    visit->lines = {key(u"F2"_s, u"10010"_s), key(u"F5"_s, u"20010"_s)};

    visit = &add(visitOf(10, false, 12, u"S9340"_s), u"külföldi beteg: állampolgárság név szerint keresve"_s);
    visit->citizenship = u"AUT"_s;
    visit->searched = {{u"Allampol_rov"_s, u"ausztria"_s}};
    visit->fields.emplace_back(u"Terites"_s, u"0E"_s);
    visit->lines = {line(u"10010"_s), line(u"70060"_s), line(u"40200"_s)};

    visit = &add(visitOf(1, true, 17, u"E1190"_s), u"visszatérő beteg, hat beavatkozás"_s);
    visit->fields.emplace_back(u"Ell_tip"_s, u"5"_s);
    visit->lines = {line(u"10050"_s), line(u"30010"_s), line(u"30030"_s, u"3"_s),
                    line(u"30090"_s), line(u"30100"_s), line(u"10110"_s, u"2"_s)};

    visit = &add(visitOf(11, false, 17, u"O2600"_s, gynaecology), u"nőgyógyászat, vizitdíjjal"_s);
    for (const Entry& entry : {Entry(u"VizitDij"_s, u"01"_s), Entry(u"VizDijOsszeg"_s, u"300"_s),
                               Entry(u"VizitdijFizMod"_s, u"01"_s)})
        visit->fields.push_back(entry);
    visit->lines = {line(u"10010"_s), line(u"70030"_s)};

    visit = &add(visitOf(2, true, 18, u"Z4800"_s, surgery), u"varratszedés a sebészeten"_s);
    visit->lines = {line(u"40030"_s), line(u"40040"_s)};

    visit = &add(visitOf(12, false, 19, u"M1790"_s), u"közgyógyellátott beteg"_s);
    visit->fields.emplace_back(u"KgySzam"_s, u"KGY-778812"_s);
    visit->fields.emplace_back(u"KgyLe"_s, u"20091231"_s);
    visit->lines = {key(u"F2"_s, u"10010"_s), line(u"70060"_s), line(u"50050"_s)};

    visit = &add(visitOf(6, true, 20, u"I5090"_s), u"továbbküldés fekvőbeteg-intézetbe"_s);
    visit->picked = {{u"Tova"_s, u"7"_s}};
    visit->lines = {line(u"10020"_s), line(u"20010"_s), line(u"10100"_s)};

    visit = &add(visitOf(13, false, 25, u"L0200"_s, surgery), u"funkcióbillentyűk"_s);
    visit->lines = {key(u"F2"_s, u"10010"_s), key(u"F7"_s, u"40010"_s), key(u"F8"_s, u"50020"_s)};

    visit = &add(visitOf(9, true, 27, u"I2090"_s), u"kontroll"_s);
    visit->fields.emplace_back(u"Ell_tip"_s, u"2"_s);
    visit->lines = {key(u"F3"_s, u"10020"_s)};

    visit = &add(visitOf(4, true, 31, u"M5450"_s), u"az utolsó lap: visszatérő beteg, hét beavatkozás"_s);
    visit->lines = {line(u"10020"_s),         line(u"60010"_s, u"5"_s), line(u"60030"_s, u"5"_s),
                    line(u"60060"_s, u"3"_s), line(u"60080"_s),         line(u"60040"_s),
                    line(u"60050"_s)};
    return all;
}

} // namespace

const std::vector<Visit>& visits() {
    static const std::vector<Visit> all = makeVisits();
    return all;
}

} // namespace vandrel::demo
