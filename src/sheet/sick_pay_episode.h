// The sick-pay panel of a sheet as its texts are on the form.
#pragma once

#include <QString>

#include <optional>

namespace vandrel {

using namespace Qt::StringLiterals;

// A panel that was never filled: dates are the empty mask, all else is empty but for the two marks.
struct SickPayEpisode {
    // take-on
    QString TNAPLOSZAM, FELVMOD, TAPJELL, KEZDORVKOD, ELOZONAPLO;
    QString KKALLKEZD = u"    .  .  ."_s;
    // end
    QString MEGSZMOD, ZAROORVKOD;
    QString KKALLVEG = u"    .  .  ."_s;
    // who is on sick pay: the patient, or the typed parent of a child under 12
    QString TBETNEV, TTAJSZAM, GYERTAJ;
    bool parentShown = false;
    // shown while the sheet is corrected
    QString JAV = u"0"_s, TRL = u"0"_s;
    // read-only lines
    QString TAZON, TSZAKREND, TSZULDAT, TIRSZAM, TCITY, TUTCA, TNEM, TDIAG;
    // Whole years; nullopt until a check has computed it or a row has given it.
    std::optional<int> eletkor;
};

} // namespace vandrel
