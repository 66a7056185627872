// Layout and rules of the patient's group.
#include "sheet/forms/patient_frame.h"

#include "foundation/look_ups.h"
#include "foundation/taj_check.h"
#include "platform/format.h"
#include "sheet/forms/sheet_desk.h"
#include "sheet/patient_register.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

const QString homeCountry = u"HUN"_s;

QLabel* makeCaption(const QString& name, const QString& accessible) {
    QLabel* label = SheetDesk::makeDataLabel(name);
    label->setAccessibleName(accessible);
    label->setToolTip(accessible);
    label->setAlignment(Qt::AlignCenter);
    label->setFixedWidth(44);
    return label;
}

// A tool tip takes what looks like mark-up for mark-up.
QString plainTip(const QString& text) {
    return Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text) : text;
}

} // namespace

PatientFrame::PatientFrame(SheetDesk& desk, const OpenDictionary& dictionary, QWidget* parent)
    : FormGroup(u"Páciens"_s, leftLabelWidth, parent), m_desk(desk),
      m_eligibility(makeCaption(u"jogviszony"_s, u"Jogviszony"_s)),
      m_feeDuty(makeCaption(u"VizDijKot"_s, u"Vizitdíj-kötelezettség"_s)) {
    layOut();
    clearEligibility();
    FieldRules& taj = desk.rules(SheetKey::Szem_szam);
    taj.changed = [this] { tajChanged(); };
    taj.leave = [this] { return tajLeft(); };
    taj.key = [this](int key) { return key == Qt::Key_Backspace && shortenTaj(); };
    desk.rules(SheetKey::Irszam).changed = [this] {
        m_desk.setText(SheetKey::City, townByPrefix(m_desk.station, m_desk.text(SheetKey::Irszam)));
    };
    // A town typed by hand stays only when it is typed after the postal code was left.
    desk.rules(SheetKey::Irszam).leave = [this] {
        m_desk.setText(SheetKey::City, townOf(m_desk.station, m_desk.text(SheetKey::Irszam)));
        return true;
    };
    desk.rules(SheetKey::Anyja_neve).leave = [this] {
        if (!m_desk.text(SheetKey::Anyja_neve).trimmed().isEmpty()) return true;
        m_desk.station.dialogue.tell(u"Kötelezően kitöltendő adat!"_s, u"Hiba"_s);
        return false;
    };
    desk.rules(SheetKey::Allampol_rov).help = [dictionary] { dictionary(7); };
    desk.rules(SheetKey::Allampol_rov).changed = [this] { forgetCountryName(); };
}

void PatientFrame::layOut() {
    const auto field = [this](SheetKey key) { return m_desk.input(key); };
    QHBoxLayout* row = addRow(u"TAJ/Típus:"_s);
    row->addWidget(field(SheetKey::Szem_szam));
    row->addWidget(field(SheetKey::Azon_tipus));
    row->addWidget(m_desk.makeMeaning(SheetKey::Azon_tipus), 1);
    row->addWidget(m_eligibility);
    row->addWidget(m_feeDuty);
    addRow(u"Név:"_s)->addWidget(field(SheetKey::Neve));
    row = addRow(u"Lakhely:"_s);
    row->addWidget(field(SheetKey::Irszam));
    row->addWidget(field(SheetKey::City));
    addRow(u"Cím:"_s)->addWidget(field(SheetKey::Cim));
    row = addRow(u"Állampolgárság:"_s);
    row->addWidget(field(SheetKey::Allampol_rov));
    row->addSpacing(10);
    row->addWidget(plainLabel(u"Anyja neve:"_s));
    row->addWidget(field(SheetKey::Anyja_neve), 1);
    addRow(u"Leánykori név:"_s)->addWidget(field(SheetKey::Leanykori_neve));
    row = addRow(u"Közgyógy. ig. szám:"_s);
    row->addWidget(field(SheetKey::KgySzam), 1);
    row->addSpacing(10);
    row->addWidget(plainLabel(u"Lejárata:"_s));
    row->addWidget(field(SheetKey::KgyLe));
    row->addWidget(m_desk.makeCalendarButton(SheetKey::KgyLe));
    row = addRow(u"Ellátás ideje:"_s);
    row->addWidget(field(SheetKey::F_datum));
    row->addWidget(m_desk.makeCalendarButton(SheetKey::F_datum));
    row->addSpacing(6);
    row->addWidget(field(SheetKey::F_ido));
    row->addStretch(1);
    row = addRow(u"Nem:"_s);
    row->addWidget(field(SheetKey::Nem));
    row->addWidget(m_desk.makeMeaning(SheetKey::Nem), 1);
    row->addWidget(plainLabel(u"Születési dátum:"_s));
    row->addWidget(field(SheetKey::Szul_dat));
    row->addWidget(m_desk.makeCalendarButton(SheetKey::Szul_dat));
}

void PatientFrame::clearEligibility() {
    for (QLabel* caption : {m_eligibility, m_feeDuty}) {
        caption->clear();
        // Nothing is seen of them while nothing was asked.
        caption->setPalette(QPalette());
        caption->setAutoFillBackground(false);
    }
    m_eligibility->setToolTip(m_eligibility->accessibleName());
}

void PatientFrame::takeCountry(const QString& code, const QString& name) {
    m_desk.setText(SheetKey::Allampol_rov, code);
    m_desk.input(SheetKey::Allampol_rov)->setToolTip(plainTip(name));
}

void PatientFrame::forgetCountryName() {
    m_desk.input(SheetKey::Allampol_rov)->setToolTip(QString());
}

// The town is not among these: it follows the postal code.
void PatientFrame::clearPatient() {
    for (const SheetKey key :
         {SheetKey::Neve, SheetKey::Irszam, SheetKey::Cim, SheetKey::Anyja_neve, SheetKey::Leanykori_neve,
          SheetKey::KgySzam, SheetKey::Azon_tipus, SheetKey::Nem})
        m_desk.setText(key, QString());
    m_desk.setText(SheetKey::Allampol_rov, homeCountry);
    m_desk.setText(SheetKey::KgyLe, format::emptyDate);
    m_desk.setText(SheetKey::Szul_dat, format::emptyDate);
}

void PatientFrame::tajChanged() {
    if (m_filling) return;
    clearEligibility();
    const QString typed = m_desk.text(SheetKey::Szem_szam);
    if (typed.trimmed().isEmpty()) {
        clearPatient();
        return;
    }
    if (!m_desk.altEng || !registerHasPatients(m_desk.station)) return;
    const std::optional<Patient> patient = findPatientByPrefix(m_desk.station, typed);
    if (!patient) {
        clearPatient();
        return;
    }
    m_desk.setText(SheetKey::Neve, patient->Neve);
    m_desk.setText(SheetKey::Irszam, patient->Irszam);
    m_desk.setText(SheetKey::Cim, patient->Cim);
    m_desk.setText(SheetKey::Allampol_rov, patient->Allampol_rov);
    m_desk.setText(SheetKey::Anyja_neve, patient->Anyja_neve);
    m_desk.setText(SheetKey::Leanykori_neve, patient->Leanykori_neve);
    m_desk.setText(SheetKey::KgySzam, patient->KgySzam);
    m_desk.setText(SheetKey::KgyLe, patient->KgyLe);
    m_desk.setText(SheetKey::Azon_tipus, patient->Azon_tipus);
    m_desk.setText(SheetKey::Nem, patient->Nem);
    m_desk.setText(SheetKey::Szul_dat, patient->Szul_dat);
    // The rest of the TAJ stands selected, so that typing goes on over it.
    m_filling = true;
    m_desk.setText(SheetKey::Szem_szam, patient->Taj);
    m_filling = false;
    QLineEdit* taj = m_desk.input(SheetKey::Szem_szam);
    const int length = static_cast<int>(typed.size());
    taj->setCursorPosition(length);
    if (patient->Taj.size() > length)
        taj->setSelection(length, static_cast<int>(patient->Taj.size()) - length);
}

// Backspace behind a completed TAJ would only delete the completion, which would come right back: it shortens
// what was typed instead.
bool PatientFrame::shortenTaj() {
    QLineEdit* taj = m_desk.input(SheetKey::Szem_szam);
    const int start = taj->selectionStart();
    if (start < 1 || taj->selectionEnd() != taj->text().size()) return false;
    taj->setText(taj->text().left(start - 1));
    return true;
}

// Never holds the focus: a TAJ that fails its check can be stored.
bool PatientFrame::tajLeft() {
    const QString taj = m_desk.text(SheetKey::Szem_szam).trimmed();
    if (taj.isEmpty()) return true;
    checkTajWithMessages(m_desk.station.dialogue, taj);
    if (m_eligibility->text().isEmpty() && eligibilityCheck) eligibilityCheck();
    return true;
}

} // namespace vandrel
