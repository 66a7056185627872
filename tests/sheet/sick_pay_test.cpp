// Sick-pay episodes: what the code of fitness for work opens, what a store writes, what a correction shows.
#include "sheet/sick_pay.h"

#include "sheet/sheet_store.h"
#include "support/sheet_samples.h"

using namespace Qt::StringLiterals;

namespace vandrel::test {

class SickPay : public testing::Test {
  protected:
    SickPay() { station.dialogue.takeAll(); }

    SheetFields sheet(const QString& workCapacity, const QString& taj = u"123456788"_s) {
        SheetFields fields = goodSheet(station.workstation);
        fields.Szem_szam = taj;
        fields.Diag[0] = u"J0690"_s;
        fields.K_kep = workCapacity;
        return fields;
    }
    WorkCapacityLeft leave(const SheetFields& fields, bool altEng = true) {
        return leaveWorkCapacity(station.workstation, fields, SickPayEpisode(), altEng);
    }
    // "field: message" of a refusal; empty where the code is taken.
    static QString said(const std::optional<CheckFailure>& failure) {
        return failure ? failure->field + u": "_s + failure->message : QString();
    }
    void store(const SheetFields& fields, const std::optional<SickPayEpisode>& panel) {
        SheetRecord record(fields);
        record.sickPay = panel;
        EXPECT_NE(storeSheet(station.workstation, record).outcome, StoreOutcome::refused);
    }
    // A filled take-on, stored.
    SheetFields takeOn(const QString& taj = u"123456788"_s, const QString& from = u"2008.04.01."_s) {
        const SheetFields fields = sheet(u"1"_s, taj);
        SickPayEpisode panel = leave(fields).panel;
        panel.KKALLKEZD = from;
        panel.FELVMOD = u"I"_s;
        panel.TAPJELL = u"8"_s;
        panel.KEZDORVKOD = u"12345"_s;
        store(fields, panel);
        return fields;
    }
    void end(const QString& taj = u"123456788"_s) {
        const SheetFields fields = sheet(u"3"_s, taj);
        SickPayEpisode panel = leave(fields).panel;
        panel.MEGSZMOD = u"K"_s;
        panel.ZAROORVKOD = u"54321"_s;
        panel.KKALLVEG = u"2008.04.03."_s;
        store(fields, panel);
    }
    QString episodes(const std::string& columns) {
        return firstText(station.data(), "select group_concat(" + columns + ",'; ') from TAPPENZ");
    }
    LabelledStation station;
};

TEST_F(SickPay, WhatLeavingTheCodeRefuses) {
    SheetFields fields = sheet(u"1"_s);
    fields.Szem_szam.clear();
    fields.Diag[0].clear();
    EXPECT_EQ(said(leave(fields).refusal),
              u"Szem_szam: A táppénzes adatok kitöltéséhez meg kell adni a páciens adatokat!"_s);
    fields.Szem_szam = u"123456788"_s;
    EXPECT_EQ(said(leave(fields).refusal),
              u"Diag1: A táppénzes adatok kitöltéséhez meg kell a fődiagnózist!"_s);
    for (const QString& wrong : {u"6"_s, u"x"_s, u"-1"_s, u"12"_s})
        for (const bool altEng : {true, false})
            EXPECT_EQ(said(leave(sheet(wrong), altEng).refusal),
                      u"K_kep: Nem megfelelő 'Ker. képesség elbírálás'kód!"_s);
    EXPECT_EQ(leave(sheet(u""_s)).value, u"0"_s);
    EXPECT_EQ(leave(sheet(u""_s), false).value, QString());
    EXPECT_FALSE(leave(sheet(u"0"_s)).panelOpens);
    for (const QString& code : {u"3"_s, u"4"_s, u"5"_s})
        EXPECT_EQ(said(leave(sheet(code)).refusal),
                  u"K_kep: Ez az eset nem zárható le, mert nem került még kiírásra!"_s);
    takeOn();
    for (const QString& code : {u"1"_s, u"2"_s}) {
        EXPECT_EQ(said(leave(sheet(code)).refusal), u"K_kep: A páciens táppénzes állománya már nyitott!"_s);
        EXPECT_TRUE(leave(sheet(code, u"111111110"_s)).panelOpens); // somebody else's
    }
    // Deleted or ended, it is open no more.
    station.data().execute("update TAPPENZ set TRL='1'");
    EXPECT_FALSE(leave(sheet(u"3"_s)).panelOpens);
    EXPECT_TRUE(leave(sheet(u"2"_s)).panelOpens);
    station.data().execute("update TAPPENZ set TRL='0', MEGSZMOD=' '");
    EXPECT_TRUE(leave(sheet(u"3"_s)).panelOpens);
    end();
    EXPECT_FALSE(leave(sheet(u"3"_s)).panelOpens);
}

TEST_F(SickPay, ProposedNumberAndLines) {
    station.data().executeScript("insert into [DEFAULT] values ('010000001','12345',5,41);"
                                 "update AZONOSIT set Tp_naplo=7;");
    const SickPayEpisode panel = leave(sheet(u"2"_s)).panel;
    EXPECT_EQ(panel.TNAPLOSZAM, u"8"_s);
    EXPECT_EQ(panel.TBETNEV + u'/' + panel.TTAJSZAM + u'/' + panel.GYERTAJ, u"Kovács Éva/123456788/"_s);
    EXPECT_EQ(panel.TDIAG + panel.TSZAKREND + panel.TSZULDAT, u"J06900100000011970.05.06."_s);
    EXPECT_EQ(panel.eletkor, 37); // on 2008.04.03.
    EXPECT_FALSE(panel.parentShown);
    SheetFields fields = sheet(u"1"_s);
    station.data().execute("delete from AZONOSIT");
    EXPECT_EQ(leave(fields).panel.TNAPLOSZAM, u"42"_s);
    fields.Szakrend = u"099999999"_s;
    EXPECT_EQ(leave(fields).panel.TNAPLOSZAM, u"1"_s);
}

TEST_F(SickPay, AgeAndWeeks) {
    const QDate today(2008, 4, 3);
    EXPECT_EQ(ageAt(u"1996.04.03."_s, today), 12); // today counts
    EXPECT_EQ(ageAt(u"1996.04.04."_s, today), 11);
    EXPECT_EQ(ageAt(u"1996.05.01."_s, today), 11);
    EXPECT_EQ(ageAt(u"1996.03.31."_s, today), 12);
    EXPECT_EQ(ageAt(u"    .  .  ."_s, today), std::nullopt);
    const struct {
        const char16_t* date;
        const char16_t* key;
    } weeks[] = {
        {u"2008.01.01.", u"0801"},  {u"2008.02.03.", u"0805"},  {u"2008.02.04.", u"0806"},
        {u"2008.03.09.", u"08010"}, {u"2008.03.10.", u"0811"},  {u"2008.12.29.", u"0853"},
        {u"2007.12.31.", u"0701"}, // the week of this year's first day
        {u"2007.12.30.", u"0700"},  {u"2007.12.23.", u"070-1"}, {u"    .  .  .", u""},
    };
    for (const auto& week : weeks)
        EXPECT_EQ(weekKey(QString::fromUtf16(week.date), today), QString::fromUtf16(week.key));
}

TEST_F(SickPay, PanelChecksInOrder) {
    SickPayEpisode panel;
    panel.parentShown = true;
    const auto expect = [&](const QString& code, const QString& message) {
        const std::optional<CheckFailure> failure = checkSickPayPanel(panel, code);
        EXPECT_EQ(said(failure), message);
        EXPECT_TRUE(!failure || failure->title == u"Hiba"_s);
    };
    expect(u"1"_s, u"FELVMOD: Kitöltetlen: FELVÉTELI MÓD!"_s);
    panel.FELVMOD = u"I"_s;
    expect(u"2"_s, u"TAPJELL: Kitöltetlen: TÁPPÉNZ JELLEG!"_s);
    panel.TAPJELL = u"1"_s;
    expect(u"1"_s, u"KEZDORVKOD: Kitöltetlen: ORVOS PECSÉTSZÁM!"_s);
    panel.KEZDORVKOD = u"1"_s;
    expect(u"1"_s, u"KKALLKEZD: Kitöltetlen: KEZDŐ DÁTUM!"_s);
    panel.KKALLKEZD = u"2008.04.01."_s;
    expect(u"1"_s, u"TBETNEV: Kitöltetlen: SZÜLŐ NEVE!"_s);
    panel.TBETNEV = u"Kis Pál"_s;
    expect(u"1"_s, u"TTAJSZAM: Kitöltetlen: SZÜLŐ TAJ!"_s);
    expect(u"3"_s, u"MEGSZMOD: Kitöltetlen: MEGSZÜNTETÉS MÓDJA!"_s);
    panel.MEGSZMOD = u"K"_s;
    expect(u"4"_s, u"ZAROORVKOD: Kitöltetlen: ORVOS PECSÉTSZÁM!"_s);
    panel.ZAROORVKOD = u"1"_s;
    expect(u"5"_s, u"KKALLVEG: Kitöltetlen: ZÁRÓ DÁTUM!"_s);
    panel.KKALLVEG = u"2008.04.03."_s;
    panel.TTAJSZAM = u"1"_s;
    expect(u"5"_s, QString());
    expect(u"1"_s, QString());
}

TEST_F(SickPay, TakeOnAndEnd) {
    const SheetFields first = takeOn();
    EXPECT_EQ(episodes("TAZON||'|'||TTAJSZAM||'|'||TBETNEV||'|'||GYERTAJ||'|'||TDIAG||'|'||TNAPLOSZAM||'|'||"
                       "ELOZONAPLO||'|'||ELETKOR||'|'||KKALLKEZD||'|'||THET||'|'||JAV||TRL||ATV||'|'||"
                       "FELVMOD||TAPJELL||KEZDORVKOD||'|'||ifnull(MEGSZMOD,'null')"),
              u"ABC0000001|123456788|Kovács Éva||J0690|1|0|37|2008.04.01.|0814|000|I812345|null"_s);
    EXPECT_EQ(firstText(station.data(), "select TN from [DEFAULT]"), u"1"_s); // a new row only
    EXPECT_EQ(firstText(station.data(), "select Tp_naplo from AZONOSIT"), u"0"_s);
    const SickPayEpisode open = leave(sheet(u"3"_s)).panel;
    EXPECT_EQ(open.TAZON + u'/' + open.KKALLKEZD + u'/' + open.FELVMOD, u"ABC0000001/2008.04.01./I"_s);
    end();
    EXPECT_EQ(episodes("TAZON||'|'||MEGSZMOD||'|'||KKALLVEG||'|'||ZAROORVKOD||'|'||THETVEG"),
              u"ABC0000001|K|2008.04.03.|54321|0814"_s);
    // The first row with the TAJ is the one that is closed, though it is closed already.
    takeOn(u"123456788"_s, u"2008.03.09."_s);
    SheetFields again = sheet(u"4"_s);
    SickPayEpisode panel;
    panel.MEGSZMOD = u"E"_s;
    store(again, panel);
    EXPECT_EQ(episodes("THET||ifnull(MEGSZMOD,'-')||ifnull(THETVEG,'-')"), u"0814E; 08010--"_s);
}

TEST_F(SickPay, AChildInTheParentsName) {
    SheetFields fields = sheet(u"1"_s, u"111111110"_s);
    fields.Szul_dat = u"1996.04.04."_s;
    SickPayEpisode panel = leave(fields).panel;
    EXPECT_TRUE(panel.parentShown);
    EXPECT_EQ(panel.TBETNEV + panel.TTAJSZAM + u'/' + panel.GYERTAJ, u"/111111110"_s);
    panel.TBETNEV = u"Kis Pál"_s;
    panel.TTAJSZAM = u"222222220"_s;
    store(fields, panel);
    EXPECT_EQ(episodes("TTAJSZAM||'|'||TBETNEV||'|'||GYERTAJ||'|'||ELETKOR"),
              u"222222220|Kis Pál|111111110|11"_s);
    EXPECT_TRUE(leave(sheet(u"3"_s, u"111111110"_s)).panelOpens);
    EXPECT_TRUE(leave(sheet(u"3"_s, u"222222220"_s)).panelOpens);
    fields.correction = true;
    const LoadedEpisode loaded = loadEpisode(station.workstation, fields);
    EXPECT_TRUE(loaded.panel.parentShown);
    EXPECT_EQ(loaded.panel.TBETNEV + loaded.panel.TTAJSZAM, u"Kis Pál222222220"_s);
    end(u"111111110"_s);
    EXPECT_EQ(episodes("MEGSZMOD"), u"K"_s);
}

TEST_F(SickPay, Corrections) {
    SheetFields taken = takeOn();
    taken.correction = true;
    LoadedEpisode loaded = loadEpisode(station.workstation, taken);
    EXPECT_TRUE(loaded.buttonShown);
    EXPECT_EQ(loaded.panel.eletkor, 37);
    EXPECT_EQ(loaded.panel.KKALLVEG + loaded.panel.MEGSZMOD, u"    .  .  ."_s); // Null leaves them
    loaded.panel.JAV = u"1"_s;
    loaded.panel.TRL = u"1"_s;
    loaded.panel.ELOZONAPLO = u"12"_s;
    store(taken, loaded.panel);
    EXPECT_EQ(episodes("TAZON||JAV||TRL||'/'||ELOZONAPLO"), u"ABC000000111/12"_s); // edited, not added
    station.data().execute("delete from TAPPENZ");
    store(taken, loaded.panel);
    EXPECT_EQ(episodes("TAZON"), u"ABC0000001"_s); // added where the row is gone

    // A sheet that ended an episode shows that end, and stores it again unchanged.
    station.data().execute("update TAPPENZ set TRL='0'");
    end();
    SheetFields ended = sheet(u"3"_s);
    ended.Azonosito = u"ABC0000002"_s;
    ended.correction = true;
    loaded = loadEpisode(station.workstation, ended);
    EXPECT_EQ(loaded.panel.MEGSZMOD + loaded.panel.KKALLVEG + loaded.panel.ZAROORVKOD,
              u"K2008.04.03.54321"_s);
    const QString before = episodes("MEGSZMOD||KKALLVEG||ZAROORVKOD||THETVEG");
    store(ended, loaded.panel);
    EXPECT_EQ(episodes("MEGSZMOD||KKALLVEG||ZAROORVKOD||THETVEG"), before);
    ended.K_kep = u"0"_s;
    EXPECT_FALSE(loadEpisode(station.workstation, ended).buttonShown);
}

TEST_F(SickPay, AnUnfilledPanelAndNoPanel) {
    store(sheet(u"1"_s), std::nullopt);
    EXPECT_EQ(station.count("TAPPENZ"), 0);
    store(sheet(u"2"_s, u"111111110"_s), SickPayEpisode());
    EXPECT_EQ(episodes("TNAPLOSZAM||'|'||FELVMOD||'|'||KKALLKEZD||'|'||THET||'|'||ELETKOR"),
              u"0||    .  .  .||37"_s);
    // A number that is none leaves neither the sheet nor the episode.
    SheetRecord record(sheet(u"1"_s, u"222222220"_s));
    record.sickPay = SickPayEpisode();
    record.sickPay->TNAPLOSZAM = u"12/a"_s;
    EXPECT_EQ(faultNumberOf([&] { storeSheet(station.workstation, record); }), fault::typeMismatch);
    EXPECT_EQ(station.count("TAPPENZ"), 1);
    EXPECT_EQ(station.count("BETEG"), 2);
}

} // namespace vandrel::test
