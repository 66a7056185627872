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

QPushButton* makeCalendarButton(SheetDesk& desk, const QString& field, const OpenCalendar& open) {
    auto* button = new QPushButton(u"▾"_s);
    button->setObjectName(field + u"_naptar"_s);
    button->setAccessibleName(u"Naptár: "_s + sheetField(field)->label.toString());
    button->setToolTip(u"Naptár (F1 a mezőben)"_s);
    button->setFixedWidth(26);
    button->setFocusPolicy(Qt::NoFocus); // the keyboard opens it with F1
    QObject::connect(button, &QPushButton::clicked, &desk, [open, field] { open(field); });
    desk.rules(field).help = [open, field] { open(field); };
    return button;
}

UnitFrame::UnitFrame(SheetDesk& desk, QWidget* parent)
    : FormGroup(u"Szakrendelés, beutaló"_s, leftLabelWidth, parent), m_desk(desk) {
    QHBoxLayout* row = addRow(u"Szakrendelés/Ell.orvos:"_s);
    row->addWidget(desk.input(u"Szakrend"_s));
    row->addWidget(desk.input(u"Orvkod"_s));
    QLabel* unit = SheetDesk::makeDataLabel(u"Szakrend_nev"_s);
    row->addWidget(unit, 1);
    // The names help the clerk to see a slip of the finger; nothing depends on them.
    const auto showNames = [this, unit] {
        const QString unitName = Visszaad_szakrend(m_desk.station, m_desk.text(u"Szakrend"_s).trimmed());
        const QString doctor = Visszaad_orvos(m_desk.station, m_desk.text(u"Orvkod"_s).trimmed());
        unit->setText(unitName + (unitName.isEmpty() || doctor.isEmpty() ? QString() : u" / "_s) + doctor);
    };
    desk.rules(u"Szakrend"_s).shown.push_back(showNames);
    desk.rules(u"Orvkod"_s).shown.push_back(showNames);

    row = addRow(u"Beut. m.h./orv./ind.:"_s);
    row->addWidget(desk.input(u"Igenylo"_s));
    row->addWidget(desk.input(u"BeutOrvos"_s));
    row->addWidget(desk.input(u"BeutIndok"_s));
    QLabel* referrer = SheetDesk::makeDataLabel(u"Igenylo_nev"_s);
    row->addWidget(referrer, 1);
    desk.rules(u"Igenylo"_s).shown.push_back([this, referrer] {
        const QString code = m_desk.text(u"Igenylo"_s).trimmed();
        referrer->setText(code.isEmpty() ? QString() : Visszaad_bekuldo(m_desk.station, code));
    });

    row = addRow(u"Beutaló kelte:"_s);
    row->addWidget(desk.input(u"BeutaloKelte"_s));
    row->addSpacing(18);
    row->addWidget(plainLabel(u"Naplósorszám:"_s));
    row->addWidget(desk.input(u"Naplo"_s));
    row->addStretch(1);

    desk.rules(u"Szakrend"_s).leave = [this] { return unitLeft(); };
}

bool UnitFrame::unitLeft() {
    const QString unit = m_desk.text(u"Szakrend"_s).trimmed();
    if (m_desk.correction || unit.isEmpty()) return true;
    const UnitDefaults defaults = unitDefaults(m_desk.station, unit);
    if (defaults.found) m_desk.setText(u"Orvkod"_s, defaults.Orvkod);
    m_desk.setText(u"Naplo"_s, defaults.Naplo);
    return true;
}

CareFrame::CareFrame(SheetDesk& desk, const OpenCalendar& calendar, QWidget* parent)
    : FormGroup(u"Ellátás"_s, leftLabelWidth, parent) {
    QHBoxLayout* row = addRow(u"Ellátás ideje:"_s);
    row->addWidget(desk.input(u"F_datum"_s));
    row->addWidget(makeCalendarButton(desk, u"F_datum"_s, calendar));
    row->addSpacing(6);
    row->addWidget(desk.input(u"F_ido"_s));
    row->addStretch(1);
    for (const QString& field : {u"Baleset"_s, u"Ell_tip"_s, u"Tova"_s, u"EU_LAP"_s}) {
        row = addRow(sheetField(field)->label.toString());
        row->addWidget(desk.input(field));
        row->addWidget(desk.makeMeaning(field), 1);
    }
    auto* euSheet = new QPushButton(u"EU adatlap..."_s);
    euSheet->setObjectName(u"EU_adatlap_gomb"_s);
    euSheet->setAccessibleName(euSheet->text());
    euSheet->setFocusPolicy(Qt::NoFocus);
    euSheet->setEnabled(false); // the EU sheet itself is not there yet
    row->addWidget(euSheet);
    desk.rules(u"EU_LAP"_s).shown.push_back([&desk, euSheet] {
        euSheet->setVisible(desk.text(u"EU_LAP"_s) != "0"_L1);
    });
}

FeeFrame::FeeFrame(SheetDesk& desk, QWidget* parent)
    : FormGroup(u"Térítés"_s, rightLabelWidth, parent), m_desk(desk) {
    QHBoxLayout* row = addRow(u"Térítési kategória:"_s);
    m_categoryLabel = lastLabel();
    m_categoryLabel->setObjectName(u"Terites_cimke"_s);
    row->addWidget(desk.input(u"Terites"_s));
    row->addWidget(desk.input(u"TerReszlDij"_s));
    m_currency = plainLabel(u"Ft"_s);
    m_currency->setObjectName(u"TerReszlDij_Ft"_s);
    row->addWidget(m_currency);
    row->addWidget(desk.makeMeaning(u"Terites"_s), 1);
    desk.rules(u"Terites"_s).shown.push_back([this] { showCategory(); });
    desk.rules(u"Terites"_s).changed = [this] {
        // The partial fee is lost as soon as the category is another one.
        if (m_desk.text(u"Terites"_s).compare("0R"_L1, Qt::CaseInsensitive) != 0)
            m_desk.setText(u"TerReszlDij"_s, QString());
    };

    row = addRow(u"Elszámolási nyilatkozat:"_s);
    row->addWidget(desk.input(u"ElszNyil"_s));
    row->addWidget(desk.makeMeaning(u"ElszNyil"_s), 1);

    row = addRow(u"Vizitdíj / fizetésének módja:"_s);
    row->addWidget(desk.input(u"VizitDij"_s));
    row->addWidget(desk.input(u"VizDijOsszeg"_s));
    row->addWidget(plainLabel(u" Ft / "_s));
    row->addWidget(desk.input(u"VizitdijFizMod"_s));
    row->addWidget(desk.makeMeaning(u"VizitDij"_s), 1);
    addRow(QString())->addWidget(desk.makeMeaning(u"VizitdijFizMod"_s), 1);

    row = addRow(u"Térítés vagy mentesség jogcíme:"_s);
    row->addWidget(desk.input(u"Termen"_s));
    row->addStretch(1);
    desk.link(u"Termen"_s, u"VizDijOsszeg"_s, u"VizitdijFizMod"_s);
    showCategory();
}

void FeeFrame::showCategory() {
    const bool partial = m_desk.text(u"Terites"_s).compare("0R"_L1, Qt::CaseInsensitive) == 0;
    m_categoryLabel->setText(partial ? u"Térítési kategória/Részl. té. díj:"_s : u"Térítési kategória:"_s);
    m_desk.input(u"TerReszlDij"_s)->setVisible(partial);
    m_desk.input(u"TerReszlDij"_s)->setEnabled(partial);
    m_currency->setVisible(partial);
}

DiagnosesFrame::DiagnosesFrame(SheetDesk& desk, const OpenDictionary& dictionary, QWidget* parent)
    : FormGroup(u"Diagnózisok"_s, 40, parent) {
    for (int slot = 1; slot <= 5; ++slot) {
        const QString field = u"Diag%1"_s.arg(slot);
        QHBoxLayout* row = addRow(slot == 1 ? u"BNO:"_s : QString::number(slot) + u"."_s);
        row->addWidget(desk.input(field));
        QLabel* name = SheetDesk::makeDataLabel(field + u"_nev"_s);
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
                SelectAll(desk.input(u"BEAV"_s)); // no more diagnoses: straight to the procedures
                return true;
            };
    }
}

CorrectionFrame::CorrectionFrame(SheetDesk& desk, const OpenCalendar& calendar, QWidget* parent)
    : FormGroup(u"Javítás"_s, 64, parent) {
    QHBoxLayout* row = addRow(sheetField(u"Jav")->label.toString());
    row->addWidget(desk.input(u"Jav"_s));
    row->addSpacing(12);
    row->addWidget(plainLabel(sheetField(u"Er_azon")->label.toString()));
    row->addWidget(desk.input(u"Er_azon"_s));
    row->addStretch(1);
    row = addRow(sheetField(u"Edatum")->label.toString());
    row->addWidget(desk.input(u"Edatum"_s));
    row->addWidget(makeCalendarButton(desk, u"Edatum"_s, calendar));
    row->addSpacing(12);
    row->addWidget(plainLabel(sheetField(u"Enaplo")->label.toString()));
    row->addWidget(desk.input(u"Enaplo"_s));
    row->addStretch(1);
    desk.link(u"Jav"_s, u"MENNY"_s, u"Er_azon"_s);
    desk.link(u"Er_azon"_s, u"Jav"_s, u"Edatum"_s);
    desk.link(u"Edatum"_s, u"Er_azon"_s, u"Enaplo"_s);
    desk.link(u"Enaplo"_s, u"Edatum"_s, u"Szakrend"_s);
}

} // namespace vandrel
