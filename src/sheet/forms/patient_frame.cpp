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

PatientFrame::PatientFrame(SheetDesk& desk, const OpenCalendar& calendar, const OpenDictionary& dictionary,
                           QWidget* parent)
    : FormGroup(u"Páciens"_s, 126, parent), m_desk(desk),
      m_eligibility(makeCaption(u"jogviszony"_s, u"Jogviszony"_s)),
      m_feeDuty(makeCaption(u"VizDijKot"_s, u"Vizitdíj-kötelezettség"_s)) {
    layOut(calendar);
    clearEligibility();
    FieldRules& taj = desk.rules(u"Szem_szam"_s);
    taj.changed = [this] { tajChanged(); };
    taj.leave = [this] { return tajLeft(); };
    taj.key = [this](int key) { return key == Qt::Key_Backspace && shortenTaj(); };
    desk.rules(u"Irszam"_s).changed = [this] {
        m_desk.setText(u"City"_s, townByPrefix(m_desk.station, m_desk.text(u"Irszam"_s)));
    };
    // A town typed by hand stays only when it is typed after the postal code was left.
    desk.rules(u"Irszam"_s).leave = [this] {
        m_desk.setText(u"City"_s, townOf(m_desk.station, m_desk.text(u"Irszam"_s)));
        return true;
    };
    desk.rules(u"Anyja_neve"_s).leave = [this] {
        if (!m_desk.text(u"Anyja_neve"_s).trimmed().isEmpty()) return true;
        m_desk.station.dialogue.tell(u"Kötelezően kitöltendő adat!"_s, u"Hiba"_s);
        return false;
    };
    desk.rules(u"Allampol_rov"_s).help = [dictionary] { dictionary(7); };
    desk.rules(u"Allampol_rov"_s).changed = [this] { forgetCountryName(); };
}

void PatientFrame::layOut(const OpenCalendar& calendar) {
    const auto field = [this](const QString& name) { return m_desk.input(name); };
    QHBoxLayout* row = addRow(u"TAJ/Típus:"_s);
    row->addWidget(field(u"Szem_szam"_s));
    row->addWidget(field(u"Azon_tipus"_s));
    row->addWidget(m_desk.makeMeaning(u"Azon_tipus"_s), 1);
    row->addWidget(m_eligibility);
    row->addWidget(m_feeDuty);
    addRow(u"Név:"_s)->addWidget(field(u"Neve"_s));
    row = addRow(u"Lakhely:"_s);
    row->addWidget(field(u"Irszam"_s));
    row->addWidget(field(u"City"_s));
    addRow(u"Cím:"_s)->addWidget(field(u"Cim"_s));
    row = addRow(u"Állampolgárság:"_s);
    row->addWidget(field(u"Allampol_rov"_s));
    row->addSpacing(10);
    row->addWidget(plainLabel(u"Anyja neve:"_s));
    row->addWidget(field(u"Anyja_neve"_s), 1);
    addRow(u"Leánykori név:"_s)->addWidget(field(u"Leanykori_neve"_s));
    row = addRow(u"Közgyógy. ig. szám:"_s);
    row->addWidget(field(u"KgySzam"_s), 1);
    row->addSpacing(10);
    row->addWidget(plainLabel(u"Lejárata:"_s));
    row->addWidget(field(u"KgyLe"_s));
    row->addWidget(makeCalendarButton(m_desk, u"KgyLe"_s, calendar));
    row = addRow(u"Nem:"_s);
    row->addWidget(field(u"Nem"_s));
    row->addWidget(m_desk.makeMeaning(u"Nem"_s), 1);
    row->addWidget(plainLabel(u"Születési dátum:"_s));
    row->addWidget(field(u"Szul_dat"_s));
    row->addWidget(makeCalendarButton(m_desk, u"Szul_dat"_s, calendar));
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
    m_desk.setText(u"Allampol_rov"_s, code);
    m_desk.input(u"Allampol_rov"_s)->setToolTip(plainTip(name));
}

void PatientFrame::forgetCountryName() {
    m_desk.input(u"Allampol_rov"_s)->setToolTip(QString());
}

// The town is not among these: it follows the postal code.
void PatientFrame::clearPatient() {
    for (const QString& name : {u"Neve"_s, u"Irszam"_s, u"Cim"_s, u"Anyja_neve"_s, u"Leanykori_neve"_s,
                                u"KgySzam"_s, u"Azon_tipus"_s, u"Nem"_s})
        m_desk.setText(name, QString());
    m_desk.setText(u"Allampol_rov"_s, homeCountry);
    m_desk.setText(u"KgyLe"_s, format::emptyDate);
    m_desk.setText(u"Szul_dat"_s, format::emptyDate);
}

void PatientFrame::tajChanged() {
    if (m_filling) return;
    clearEligibility();
    const QString typed = m_desk.text(u"Szem_szam"_s);
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
    m_desk.setText(u"Neve"_s, patient->Neve);
    m_desk.setText(u"Irszam"_s, patient->Irszam);
    m_desk.setText(u"Cim"_s, patient->Cim);
    m_desk.setText(u"Allampol_rov"_s, patient->Allampol_rov);
    m_desk.setText(u"Anyja_neve"_s, patient->Anyja_neve);
    m_desk.setText(u"Leanykori_neve"_s, patient->Leanykori_neve);
    m_desk.setText(u"KgySzam"_s, patient->KgySzam);
    m_desk.setText(u"KgyLe"_s, patient->KgyLe);
    m_desk.setText(u"Azon_tipus"_s, patient->Azon_tipus);
    m_desk.setText(u"Nem"_s, patient->Nem);
    m_desk.setText(u"Szul_dat"_s, patient->Szul_dat);
    // The rest of the TAJ stands selected, so that typing goes on over it.
    m_filling = true;
    m_desk.setText(u"Szem_szam"_s, patient->Taj);
    m_filling = false;
    QLineEdit* taj = m_desk.input(u"Szem_szam"_s);
    const int length = static_cast<int>(typed.size());
    taj->setCursorPosition(length);
    if (patient->Taj.size() > length)
        taj->setSelection(length, static_cast<int>(patient->Taj.size()) - length);
}

// Backspace behind a completed TAJ would only delete the completion, which would come right back: it shortens
// what was typed instead.
bool PatientFrame::shortenTaj() {
    QLineEdit* taj = m_desk.input(u"Szem_szam"_s);
    const int start = taj->selectionStart();
    if (start < 1 || taj->selectionEnd() != taj->text().size()) return false;
    taj->setText(taj->text().left(start - 1));
    return true;
}

// Never holds the focus: a TAJ that fails its check can be stored.
bool PatientFrame::tajLeft() {
    const QString taj = m_desk.text(u"Szem_szam"_s).trimmed();
    if (taj.isEmpty()) return true;
    checkTajWithMessages(m_desk.station.dialogue, taj);
    if (m_eligibility->text().isEmpty() && eligibilityCheck) eligibilityCheck();
    return true;
}

} // namespace vandrel
