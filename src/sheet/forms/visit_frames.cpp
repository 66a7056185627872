// Layout and rules of the groups of the visit.
#include "sheet/forms/visit_frames.h"

#include "foundation/look_ups.h"
#include "sheet/forms/sheet_desk.h"
#include "sheet/new_sheet.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStyle>

using namespace Qt::StringLiterals;

namespace vandrel {

UnitFrame::UnitFrame(SheetDesk& desk, QWidget* parent)
    : FormGroup(u"Szakrendelés, beutaló"_s, leftLabelWidth, parent), m_desk(desk) {
    QHBoxLayout* row = addRow(u"Szakrendelés/Ell.orvos:"_s);
    row->addWidget(desk.input(SheetKey::Szakrend));
    row->addWidget(desk.input(SheetKey::Orvkod));
    QLabel* unit = SheetDesk::makeDataLabel(u"Szakrend_nev"_s);
    row->addWidget(unit, 1);
    // The names help the clerk to see a slip of the finger; nothing depends on them.
    const auto showNames = [this, unit] {
        const QString unitName = Visszaad_szakrend(m_desk.station, m_desk.text(SheetKey::Szakrend).trimmed());
        const QString doctor = Visszaad_orvos(m_desk.station, m_desk.text(SheetKey::Orvkod).trimmed());
        unit->setText(unitName + (unitName.isEmpty() || doctor.isEmpty() ? QString() : u" / "_s) + doctor);
    };
    desk.rules(SheetKey::Szakrend).shown.push_back(showNames);
    desk.rules(SheetKey::Orvkod).shown.push_back(showNames);

    row = addRow(u"Beut. m.h./orv./ind.:"_s);
    row->addWidget(desk.input(SheetKey::Igenylo));
    row->addWidget(desk.input(SheetKey::BeutOrvos));
    row->addWidget(desk.input(SheetKey::BeutIndok));
    QLabel* referrer = SheetDesk::makeDataLabel(u"Igenylo_nev"_s);
    row->addWidget(referrer, 1);
    desk.rules(SheetKey::Igenylo).shown.push_back([this, referrer] {
        const QString code = m_desk.text(SheetKey::Igenylo).trimmed();
        referrer->setText(code.isEmpty() ? QString() : Visszaad_bekuldo(m_desk.station, code));
    });

    row = addRow(u"Beutaló kelte:"_s);
    row->addWidget(desk.input(SheetKey::BeutaloKelte));
    row->addSpacing(18);
    row->addWidget(plainLabel(u"Naplósorszám:"_s));
    row->addWidget(desk.input(SheetKey::Naplo));
    row->addStretch(1);

    desk.rules(SheetKey::Szakrend).leave = [this] { return unitLeft(); };
}

bool UnitFrame::unitLeft() {
    const QString unit = m_desk.text(SheetKey::Szakrend).trimmed();
    if (m_desk.correction || unit.isEmpty()) return true;
    const UnitDefaults defaults = unitDefaults(m_desk.station, unit);
    if (defaults.found) m_desk.setText(SheetKey::Orvkod, defaults.Orvkod);
    m_desk.setText(SheetKey::Naplo, defaults.Naplo);
    return true;
}

FeeFrame::FeeFrame(SheetDesk& desk, QWidget* parent)
    : FormGroup(u"Térítés, ellátás"_s, rightLabelWidth, parent), m_desk(desk) {
    QHBoxLayout* row = addRow(u"Térítési kategória:"_s);
    m_categoryLabel = lastLabel();
    m_categoryLabel->setObjectName(u"Terites_cimke"_s);
    row->addWidget(desk.input(SheetKey::Terites));
    row->addWidget(desk.input(SheetKey::TerReszlDij));
    m_currency = plainLabel(u"Ft"_s);
    m_currency->setObjectName(u"TerReszlDij_Ft"_s);
    row->addWidget(m_currency);
    row->addWidget(desk.makeMeaning(SheetKey::Terites), 1);
    desk.rules(SheetKey::Terites).shown.push_back([this] { showCategory(); });
    desk.rules(SheetKey::Terites).changed = [this] {
        // The partial fee is lost as soon as the category is another one.
        if (m_desk.text(SheetKey::Terites).compare("0R"_L1, Qt::CaseInsensitive) != 0)
            m_desk.setText(SheetKey::TerReszlDij, QString());
    };

    const auto addCode = [&](SheetKey field) {
        row->addWidget(desk.input(field));
        row->addWidget(desk.makeMeaning(field), 1);
    };
    for (const SheetKey field : {SheetKey::Baleset, SheetKey::Ell_tip, SheetKey::Tova}) {
        row = addRow(desk.description(field).label.toString());
        addCode(field);
    }
    row = addRow(desk.description(SheetKey::EU_LAP).label.toString());
    addCode(SheetKey::EU_LAP);
    auto* euSheet = new QPushButton(u"EU adatlap..."_s);
    euSheet->setObjectName(u"EU_adatlap_gomb"_s);
    euSheet->setAccessibleName(euSheet->text());
    euSheet->setFocusPolicy(Qt::NoFocus);
    euSheet->setEnabled(false); // the EU sheet itself is not there yet
    row->addWidget(euSheet);
    desk.rules(SheetKey::EU_LAP).shown.push_back([&desk, euSheet] {
        euSheet->setVisible(desk.text(SheetKey::EU_LAP) != "0"_L1);
    });
    row = addRow(desk.description(SheetKey::ElszNyil).label.toString());
    addCode(SheetKey::ElszNyil);

    row = addRow(u"Vizitdíj / fizetésének módja:"_s);
    row->addWidget(desk.input(SheetKey::VizitDij));
    row->addWidget(desk.input(SheetKey::VizDijOsszeg));
    row->addWidget(plainLabel(u" Ft / "_s));
    row->addWidget(desk.input(SheetKey::VizitdijFizMod));
    row->addWidget(desk.makeMeaning(SheetKey::VizitDij), 1);
    row->addWidget(desk.makeMeaning(SheetKey::VizitdijFizMod), 1);

    row = addRow(u"Térítés vagy mentesség jogcíme:"_s);
    row->addWidget(desk.input(SheetKey::Termen));
    row->addStretch(1);
    desk.link(SheetKey::Termen, SheetKey::VizDijOsszeg, SheetKey::VizitdijFizMod);
    showCategory();
}

void FeeFrame::showCategory() {
    const bool partial = m_desk.text(SheetKey::Terites).compare("0R"_L1, Qt::CaseInsensitive) == 0;
    m_categoryLabel->setText(partial ? u"Térítési kategória/Részl. té. díj:"_s : u"Térítési kategória:"_s);
    m_desk.input(SheetKey::TerReszlDij)->setVisible(partial);
    m_desk.input(SheetKey::TerReszlDij)->setEnabled(partial);
    m_currency->setVisible(partial);
}

DiagnosesFrame::DiagnosesFrame(SheetDesk& desk, const OpenDictionary& dictionary, QWidget* parent)
    : FormGroup(u"Diagnózisok"_s, 40, parent) {
    for (int slot = 1; slot <= 5; ++slot) {
        const SheetKey field = diagnosisKeys[slot - 1];
        QHBoxLayout* row = addRow(slot == 1 ? u"BNO:"_s : QString::number(slot) + u"."_s);
        row->addWidget(desk.input(field));
        QLabel* name = SheetDesk::makeDataLabel(u"Diag%1_nev"_s.arg(slot));
        row->addWidget(name, 1);
        FieldRules& rules = desk.rules(field);
        rules.help = [dictionary, slot] { dictionary(slot + 1); };
        rules.shown.push_back([&desk, field, name] {
            const QString code = desk.text(field).trimmed();
            name->setText(code.isEmpty() ? QString()
                                         : Visszaad_Diagnos(desk.station, code).value_or(QString()));
        });
        if (slot >= 2 && slot <= 4)
            rules.key = [&desk, field](int key) {
                if (key != Qt::Key_Return || !desk.text(field).trimmed().isEmpty()) return false;
                SelectAll(desk.input(SheetKey::BEAV)); // no more diagnoses: straight to the procedures
                return true;
            };
    }
}

CorrectionFrame::CorrectionFrame(SheetDesk& desk, QWidget* parent) : FormGroup(u"Javítás"_s, 64, parent) {
    QHBoxLayout* row = addRow(desk.description(SheetKey::Jav).label.toString());
    row->addWidget(desk.input(SheetKey::Jav));
    row->addSpacing(12);
    row->addWidget(plainLabel(desk.description(SheetKey::Er_azon).label.toString()));
    row->addWidget(desk.input(SheetKey::Er_azon));
    row->addStretch(1);
    row = addRow(desk.description(SheetKey::Edatum).label.toString());
    row->addWidget(desk.input(SheetKey::Edatum));
    row->addWidget(desk.makeCalendarButton(SheetKey::Edatum));
    row->addSpacing(12);
    row->addWidget(plainLabel(desk.description(SheetKey::Enaplo).label.toString()));
    row->addWidget(desk.input(SheetKey::Enaplo));
    row->addStretch(1);
    desk.link(SheetKey::Jav, SheetKey::MENNY, SheetKey::Er_azon);
    desk.link(SheetKey::Er_azon, SheetKey::Jav, SheetKey::Edatum);
    desk.link(SheetKey::Edatum, SheetKey::Er_azon, SheetKey::Enaplo);
    desk.link(SheetKey::Enaplo, SheetKey::Edatum, SheetKey::Szakrend);
}

} // namespace vandrel
