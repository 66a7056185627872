// The texts of the code lists, to the letter as the clinics know them, and the short fee category texts of
// the prints. What a field accepts is told elsewhere: list and check differ on purpose in places.
#include "foundation/code_lists.h"

#include "platform/text_compare.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

const std::vector<CodeList>& allLists() {
    static const std::vector<CodeList> lists = {
        {PickMarker::none, {}, 0, {}},
        {PickMarker::Labor,
         u"Laborvizsgálat kérés"_s,
         1,
         {u"0: Nem történt"_s, u"1: kislabor és kémiai vizsgálatok"_s, u"2: szerológia"_s,
          u"3: kislabor és szerológia együtt"_s, u"4: tenyésztéses mikrobiológiai vizsgálat"_s,
          u"5: tenyésztés és rezisztencia vizsgálat"_s, u"6: izotóp laborvizsgálat (in vitro)"_s,
          u"7: izotóp laborvizsgálat (in vivo)"_s, u"8: vizsgálat kérése vérellátótól"_s,
          u"9: egyéb speciális laborvizsgálat"_s}},
        {PickMarker::Rtg,
         u"Képalkotó vizsgálat kérés"_s,
         1,
         {u"0: NEM történt"_s, u"1: csak mellkas röntgen vizsgálat"_s, u"2: egyéb natív röntgen vizsgálat"_s,
          u"3: kontrasztanyagos röntgen vizsgálat (kivéve angiográfia)"_s, u"4: angiográfia"_s,
          u"5: többféle natív és / vagy kontrasztos vizsg. (kivéve angiográfia)"_s,
          u"6: angigráfia és egyéb képalkotó vizsgálat együtt"_s, u"7: ultrahang"_s, u"8: izotóp"_s,
          u"9: egyéb képalkotó vizsgálat"_s}},
        {PickMarker::Ctmr,
         u"CT-MRI-PET vizsgálat kérés"_s,
         1,
         {u"0: NEM történt"_s, u"1: CT vizsgálat"_s, u"2: MRI vizsgálat"_s, u"3: PET vizsgálat"_s,
          u"4: CT-MRI-PET vizsgálat"_s}},
        {PickMarker::K_kep,
         u"Keresőképesség elbírálása"_s,
         1,
         {u"0: keresőképesség elbírálása nem történt"_s,
          u"1: keresőképtelenség megállapítása korébban keresőképes személynél"_s,
          u"2: keresőképtelen személy kontrollja és további keresőképtelenség megállapítása"_s,
          u"3: keresőképtelen személy kontrollja és újbóli keresőképesség megállapítása"_s,
          u"4: keresőképtelenség lezárása halál miatt"_s, u"5: keresőképtelenség lezárása egyéb ok miatt"_s}},
        {PickMarker::Fizio,
         u"Fiziotherápiás vizsgálat kérés"_s,
         1,
         {u"0: NEM történt"_s, u"1: száraz egyéni therápia"_s, u"2: száraz csoportos therápia"_s,
          u"3: nedves egyéni therápia"_s, u"4: nedves csoportos therápia"_s,
          u"5: száraz és nedves csoportos therápia"_s, u"6: elektrotherápia"_s,
          u"7: nedves és elektromos therápia együtt"_s, u"8: fény- és klímatherápia"_s}},
        {PickMarker::Utkltg,
         u"Útiköltség téritési igény kérés"_s,
         1,
         {u"0: útiköltség-térítéssel kapcsolatos esemény nem történt"_s,
          u"1: az útiköltség-térítés indokoltságát a rendelés igazolta"_s,
          u"2: a szakorvosi rendelés útiköltség-utalványt állított ki"_s,
          u"3: betegszállítás megrendelése"_s}},
        {PickMarker::Szakrend, u"Szakrendelő kódszótár"_s, 9, {}},
        {PickMarker::Orvkod, u"Orvosok"_s, 5, {}},
        {PickMarker::Nem, u"A beteg neme"_s, 1, {u"1: Férfi"_s, u"2: Nő"_s}},
        {PickMarker::Azon_tipus,
         u"Személyazonosító típusa"_s,
         1,
         {u"0: üres azonosító"_s, u"1: TAJ"_s, u"2: 6. hónapnál fiatalabb gyermek képzett TAJ száma"_s,
          u"3: igazolványszám"_s, u"4: 'Segítő jobb' engedélyszám"_s, u"5: Menedékes igazolványszám"_s,
          u"6: Ismeretlen TAJ számú ill. elhunyt beteg"_s}},
        {PickMarker::Terites,
         u"Térítési kategória"_s,
         2,
         {u"01: magyar biztosítás alapján végzett ellátás"_s,
          u"02: magyar biztosítással nem rendelkező menekült ellátása"_s,
          u"03: államközi szerződés alapján végzett ellátás"_s,
          u"04: egyéb, magyar biztosítással nem rendelkező el nem számolható ellátást igénybe vevő személyek "
          u"térítésköteles ellátása"_s,
          u"05: menedékes járóbeteg"_s, u"06: fekvőbeteg részére végzett ellátás"_s,
          u"09: külföldön élő magyarok központi költségvetésből támogatott ellátása (Segítő Jobb)"_s,
          u"0A: befogadott külföldi állampolgár"_s, u"0D: menekült, menedékes státusz kérelmező"_s,
          u"0E: elszámoláson alapuló nemz. szerződés alapján történő ellátás"_s,
          u"0F: magyar biztosítással rend. betegnek, kizárólag orvosbiológiai kutatás keretében végz. "
          u"beavatkozást is tartalmazó ellátása"_s,
          u"0G: magyar biztosítással rend. betegnek, kizárólag orvosbiológiai kutatás keretében végz. "
          u"beavatkozása miatt beköv. szövődmény ell."_s,
          u"0K: Külföldi donor ellátása"_s,
          u"0R: magyar biztosítás alapján részleges térítés ellenében végzett ellátás"_s,
          u"0M: magyar biztosítás alapján méltányosságból átvállalt térítés ellenében végzett ellátás"_s,
          u"0S: a Magyar Köztársaság területén tartózkodó beteg 4. § (10) és (11) bekezdése szerinti, más "
          u"forrásból meg nem térülő sürgősségi ellátása"_s}},
        {PickMarker::Baleset,
         u"Baleset minősítése"_s,
         2,
         {u"00: Az ellátás balesettel nem függ össze"_s,
          u"01: munkahelyi baleset munkahely területén és/vagy munkavégzés közben"_s,
          u"16: Ellátást nyújtó egészségügyi intézményben történt baleset"_s,
          u"20: Foglalkozási megbetegedés miatti egészségügyi ellátás"_s,
          u"21: Közúti baleset KRESZ hatálya alá tartozó gépjárművel"_s,
          u"22: közúti baleset tömegközlekedési eszközön"_s, u"31: Háztartási Baleset"_s,
          u"32: Sportbaleset"_s, u"34: Állat okozta baleset"_s, u"40: Közterületen történt baleset"_s,
          u"41: Baleset feltételezhető, de körülményei nem ismertek"_s,
          u"42: Idegenkezűség következtében létrejött baleset"_s,
          u"43: A fentiekbe nem sorolható egyéb baleset"_s}},
        {PickMarker::Ell_tip,
         u"Ellátás típusa"_s,
         1,
         {u"1: Első szakellátás az adott betegséggel kapcsolatban"_s, u"2: Visszarendelés"_s,
          u"3: Szakorvosi konzílium"_s, u"4: Elsősegélynyújtás"_s,
          u"5: Tartósan gondozott beteg kontrollvizsgálata"_s, u"6: szűrés"_s, u"7: gondozásba vétel"_s,
          u"8: gondozott beteg ellátása"_s}},
        {PickMarker::Tova,
         u"Továbbküldés"_s,
         1,
         {u"0: Továbbküldés nem történt"_s, u"1: Más járóbetegszakrendelésre küldve"_s,
          u"2: Háziorvosi szolgálathoz irányítva"_s, u"3: A beküldő háziorvoshoz visszairányítva"_s,
          u"4: Meghalt"_s, u"5: Saját szakorvosi rendelésre visszairányítva"_s,
          u"6: A beküldő szakrendeléshez visszairányítva"_s, u"7: Fekvőbeteg gyógyintézetbe utalva"_s,
          u"8: Házi szakápolásra utalva"_s}},
        {PickMarker::EU_LAP, u"EU-adatlap"_s, 1, {u"0: Nincs"_s, u"1: EU-adatlap hozzákapcsolása"_s}},
        {PickMarker::Felvmod,
         u"Keresőképtelen állományba felvétel"_s,
         1,
         {u"I: Induló"_s, u"A: Átvett"_s, u"D: Új diagnózis"_s, u"H: Kórházból"_s, u"V: Visszamenőleges"_s}},
        {PickMarker::Megszmod,
         u"Keresőképtelen állomány megszüntetése"_s,
         1,
         {u"K: Keresőképes"_s, u"A: Átadva"_s, u"H: Kórházba"_s, u"L: Táppénz joga lejárt"_s,
          u"B: Beteg kérésére"_s, u"D: Diagnózis változás"_s, u"R: Rokkantosítva"_s, u"E: Meghalt"_s}},
        {PickMarker::Paciens, u"Páciensek"_s, 9, {}},
        {PickMarker::Igenylo, {}, 9, {}},
        {PickMarker::ElszNyil,
         u"Elszámolási nyilatkozat"_s,
         2,
         {u"10: az elszámolási nyilatkozat szabályszerű átadása megtörtént"_s,
          u"20: az elszámolási nyilatkozat szabályszerű átadása nem történt meg"_s,
          u"50: a biztosított Vhr. 25/A. §-ának (4)-(5) bekezdése szerinti ellátása nem fejeződött be "
          u"(összetartozó kezelési sorozat nem utolsó eseménye)"_s,
          u"60:  a Vhr. 25/A. §-ának (6) bekezdése alapján az elszámolási nyilatkozatot nem kell "
          u"kiállítani"_s}},
        {PickMarker::VizitDij,
         u"Vizitdíj"_s,
         2,
         {u"01: az ellátásért alapösszegű vizitdíj fizetése történt"_s,
          u"02: az ellátásért emelt összegű vizitdíj fizetése történt"_s,
          u"03: vizitdíj fizetése alóli mentesség 18 év alatti biztosított ellátás okán"_s,
          u"04: vizitdíj fizetése alóli mentesség egyéb jogszabályi feltételek alapján"_s,
          u"05: az ellátásért vizitdíj fizetése nem történt"_s,
          u"06: a vizitdíj fizetés alóli mentesség az egészségügyi szolgáltató döntése alapján"_s}},
        {PickMarker::VizitdijFizMod,
         u"Vizitdíj fizetésének módja"_s,
         2,
         {u"01: készpénzzel"_s, u"02: vizitbérlettel"_s,
          u"03: az erre a célra rendszeresített automata által kiadott vizitdíj befizetését igazoló "
          u"bizonylattal"_s,
          u"04: pénztári kártyával"_s, u"05: készpénz-helyettesítő eszközzel"_s}},
        {PickMarker::BeavJelleg,
         u"Beavatkozás jellege"_s,
         1,
         {u"A: akut beavatkozás"_s, u"V: választott időpontban végzett beavatkozás"_s,
          u"C: orvos biológiai kutatás során szövődmény miatt végzett akut beavatkozás"_s,
          u"D: orvos biológiai kutatás során szövődmény miatt választott időpontban végzett beavatkozás"_s}},
        {PickMarker::Tapjell,
         u"Táppénz jellege"_s,
         1,
         {u"1: Üzemi baleset"_s, u"2: Foglalkozási megbetegedés"_s, u"3: Közúti baleset"_s,
          u"4: Egyéb baleset"_s, u"5: Beteg gyermek ápolása"_s,
          u"6: Terhesség-szülés miatti keresőképtelenség"_s,
          u"7: Közegészségügyi okból foglalkoztatástól eltiltás vagy hatósági elkülönítés"_s,
          u"8: Egyéb keresőképtelenség, illetve veszélyeztetett terhessé"_s}}, // cut off as the clinics have
                                                                               // it
    };
    return lists;
}

struct FeeText {
    const char16_t* code;
    const char16_t* text;
};

// Deliberate: 0E, 0K, 0M and 0S are missing.
constexpr FeeText feeTexts[] = {
    {u"01", u"biztosított járóbeteg"},
    {u"02", u"menekült járóbeteg"},
    {u"03", u"államközi szerződés alapján ellátott járóbeteg"},
    {u"04", u"nem biztosított járóbeteg"},
    {u"05", u"menedékes járóbeteg"},
    {u"06", u"fekvőbeteg"},
    {u"09", u"költségvetésből támogatott ellátás"},
    {u"0A", u"befogadott külföldi állampolgár"},
    {u"0D", u"menekült, menedékes státuszt kérelmező"},
    {u"0F",
     u"magyar biztosítással rend. betegnek, kizárólag orvosbiológiai kutatás keretében végz. beavatkozást "
     u"is tartalmazó ellátása"},
    {u"0G",
     u"magyar biztosítással rend. betegnek, kizárólag orvosbiológiai kutatás keretében végz. beavatkozása "
     u"miatt beköv. szövődmény ell."},
    {u"0R", u"magyar bizt. alapján részl. tér. ell. végzett ell."},
};

QString entryText(PickMarker marker, const QString& code) {
    const CodeList& list = codeList(marker);
    for (const QString& entry : list.entries)
        if (equalTexts(entry.left(list.width), code.trimmed())) return entry.mid(list.width + 2); // ": "
    return {};
}

} // namespace

const CodeList& codeList(PickMarker marker) {
    const auto found = std::ranges::find(allLists(), marker, &CodeList::marker);
    return found != allLists().end() ? *found : allLists().front();
}

void feeCategoryText(const QString& code, QString& text) {
    for (const FeeText& entry : feeTexts)
        if (equalTexts(QString::fromUtf16(entry.code), code)) text = QString::fromUtf16(entry.text);
}

QString Visszaad_VizDijNev(const QString& code) {
    return entryText(PickMarker::VizitDij, code);
}

QString Visszaad_VizDijFizModNev(const QString& code) {
    return entryText(PickMarker::VizitdijFizMod, code);
}

} // namespace vandrel
