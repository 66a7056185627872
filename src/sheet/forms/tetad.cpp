// Layout, keys and flow of the sheet's screen.
#include "sheet/forms/tetad.h"

#include "foundation/code_lists.h"
#include "foundation/forms/form_overlays.h"
#include "foundation/forms/note_edit.h"
#include "foundation/forms/pick_list_frame.h"
#include "platform/format.h"
#include "sheet/forms/institution_head.h"
#include "sheet/forms/other_data_frame.h"
#include "sheet/forms/patient_frame.h"
#include "sheet/forms/procedures_frame.h"
#include "sheet/forms/sheet_desk.h"
#include "sheet/forms/tetad_kieg1.h"
#include "sheet/new_sheet.h"
#include "sheet/sheet_checks.h"
#include "sheet/sheet_settings.h"
#include "sheet/sheet_store.h"

#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

struct Command {
    int letter;
    const char16_t* caption;
    const char* name;
    bool ready;
};

// The clickable captions of the foot; the medical history is not there yet.
constexpr Command commands[] = {
    {Qt::Key_E, u"<Ctrl-E> Egyéb adatok", "egyeb", true},
    {Qt::Key_N, u"<Ctrl-N> Megjegyzés", "megjegyzes", true},
    {Qt::Key_K, u"<Ctrl-K> Kórtörténet", "kortortenet", false},
    {Qt::Key_W, u"<Ctrl-W> Tárol", "tarol", true},
    {Qt::Key_X, u"<Ctrl-X> Kilépés", "kilepes", true},
};

bool isCommandKey(int key) {
    for (const Command& command : commands)
        if (command.letter == key) return true;
    return false;
}

// Buttons of screens that are not there yet.
constexpr std::pair<const char*, const char16_t*> laterButtons[] = {
    {"tappenz_gomb", u"Táppénzes adatok..."},
    {"recept_gomb", u"Recept (fejelés)..."},
    {"elsz_gomb", u"Elsz. biz."},
    {"ossz_elsz_gomb", u"Össz.elsz."},
};

} // namespace

tetad::tetad(Workstation& station, QWidget* opener)
    : WorkForm(station, opener), m_desk(new SheetDesk(station, this)),
      m_dictionary(std::make_unique<tetad_kieg1>(station, this)) {
    setObjectName(u"tetad"_s);
    setWindowTitle(u"Ambuláns adatlap"_s);
    layOut();
    m_desk->buildChain();
    orderTabs();
    makeKeys();

    for (OverlayFrame* frame : {static_cast<OverlayFrame*>(m_other), static_cast<OverlayFrame*>(m_note)})
        m_overlays->add(frame);
    m_overlays->setHome(m_desk->input(SheetKey::Szakrend));
    connect(m_other, &OtherDataFrame::fieldWanted, this, [this](SheetKey key) { focusField(key); });
    connect(m_overlays->pickList().switchBox(), &QCheckBox::toggled, this,
            [this](bool on) { m_desk->altEng = on; });
    connect(m_dictionary.get(), &tetad_kieg1::taken, this, &tetad::dictionaryTaken);
    connect(m_dictionary.get(), &tetad_kieg1::escaped, this, &tetad::dictionaryEscaped);
    connect(m_dictionary.get(), &tetad_kieg1::closed, this, &tetad::dictionaryClosed);
}

tetad::~tetad() {
    m_desk->chain.stopChecks();
}

void tetad::layOut() {
    const OpenDictionary dictionary = [this](int tableCode) { openDictionary(tableCode); };
    m_head = new InstitutionHead(this);
    auto* unit = new UnitFrame(*m_desk, this);
    auto* diagnoses = new DiagnosesFrame(*m_desk, dictionary, this);
    auto* correction = new CorrectionFrame(*m_desk, this);
    m_patient = new PatientFrame(*m_desk, dictionary, this);
    auto* fee = new FeeFrame(*m_desk, this);
    m_procedures = new ProceduresFrame(*m_desk, dictionary, this);
    m_other = new OtherDataFrame(*m_desk, this);
    m_note = new NoteFrame(*m_desk, this);
    m_overlays = new FormOverlays(*m_desk, this);

    // The road of Enter runs down the left column, then down the right one.
    for (FormGroup* group : {static_cast<FormGroup*>(unit), static_cast<FormGroup*>(m_patient),
                             static_cast<FormGroup*>(correction)})
        group->spread();
    auto* left = new QVBoxLayout;
    left->setSpacing(4);
    left->addWidget(unit);
    left->addWidget(m_patient);
    left->addWidget(correction);
    auto* later = new QGridLayout; // two rows: they must not set the width of the form
    for (const auto& [name, text] : laterButtons) {
        auto* button = new QPushButton(QString::fromUtf16(text));
        button->setObjectName(QString::fromLatin1(name));
        button->setAccessibleName(button->text());
        button->setFocusPolicy(Qt::NoFocus);
        button->setEnabled(false);
        later->addWidget(button, later->count() / 2, later->count() % 2);
    }
    left->addStretch(1);
    left->addLayout(later);
    auto* right = new QVBoxLayout;
    right->setSpacing(4);
    right->addWidget(fee);
    right->addWidget(diagnoses);
    right->addWidget(m_procedures, 1);
    auto* columns = new QHBoxLayout;
    columns->setSpacing(8);
    columns->addLayout(left, 47);
    columns->addLayout(right, 53);
    auto* whole = new QVBoxLayout(this);
    whole->setContentsMargins(8, 6, 8, 6);
    whole->setSpacing(4);
    whole->addWidget(m_head);
    whole->addLayout(columns, 1);
    whole->addWidget(makeFoot());
    resize(1260, 730);
}

QWidget* tetad::makeFoot() {
    auto* foot = new QFrame(this);
    foot->setFrameShape(QFrame::StyledPanel);
    auto* row = new QHBoxLayout(foot);
    row->setContentsMargins(6, 3, 6, 3);
    for (const Command& command : commands) {
        auto* caption = new QPushButton(QString::fromUtf16(command.caption));
        caption->setObjectName(QString::fromLatin1(command.name));
        caption->setAccessibleName(caption->text());
        caption->setFlat(true);
        caption->setCursor(Qt::PointingHandCursor);
        caption->setFocusPolicy(Qt::NoFocus); // a click leaves the focus where it is
        caption->setEnabled(command.ready);
        row->addWidget(caption);
    }
    auto* status = new QLabel;
    status->setObjectName(u"allapot"_s);
    status->setAccessibleName(u"Állapot"_s);
    status->setTextFormat(Qt::PlainText);
    status->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    row->addWidget(status, 1);
    m_desk->chain.setStatusLine(status);
    // Labels only.
    for (const QString& text : {u"<Ctrl-F>Funkc. bill."_s, u"<F1> Segítség"_s}) {
        auto* label = new QLabel(text);
        label->setTextFormat(Qt::PlainText);
        row->addWidget(label);
        row->addSpacing(12);
    }
    return foot;
}

void tetad::makeKeys() {
    const std::pair<const char*, std::function<void()>> actions[] = {
        {"egyeb", [this] { openOtherData(); }},
        {"megjegyzes", [this] { openNote(); }},
        {"tarol", [this] { store(); }},
        {"kilepes", [this] { close(); }},
    };
    for (const auto& [name, action] : actions)
        for (const Command& command : commands) {
            if (QLatin1StringView(command.name) != QLatin1StringView(name)) continue;
            connect(findChild<QPushButton*>(QString::fromLatin1(name)), &QPushButton::clicked, this, action);
            auto* key = new QShortcut(QKeySequence(Qt::CTRL | static_cast<Qt::Key>(command.letter)), this);
            key->setAutoRepeat(false);
            connect(key, &QShortcut::activated, this, action);
        }
    for (const FieldRow<SheetKey>& row : m_desk->table())
        if (QLineEdit* input = m_desk->input(row.key)) input->installEventFilter(this);
    m_note->note()->installEventFilter(this);
}

// Tab goes along the fields as Enter does, and also to what Enter passes by.
void tetad::orderTabs() {
    setTabOrder(m_desk->input(SheetKey::VizDijOsszeg), m_desk->input(SheetKey::Termen));
    setTabOrder(m_desk->input(SheetKey::Termen), m_desk->input(SheetKey::VizitdijFizMod));
    QWidget* previous = m_desk->input(SheetKey::MENNY);
    QList<QWidget*> rest = m_procedures->asideWidgets();
    for (const SheetKey key : {SheetKey::Jav, SheetKey::Er_azon, SheetKey::Edatum, SheetKey::Enaplo})
        rest.append(m_desk->input(key));
    for (QWidget* widget : rest) {
        setTabOrder(previous, widget);
        previous = widget;
    }
}

// The text fields' own editing keys (Ctrl-X, Ctrl-E, Ctrl-K ...) stand back behind the form's commands.
bool tetad::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride) {
        auto* key = static_cast<QKeyEvent*>(event);
        if (key->modifiers() == Qt::ControlModifier && isCommandKey(key->key())) {
            event->ignore();
            return true;
        }
    }
    if (event->type() == QEvent::KeyPress) {
        // A command that is not there yet must not edit the field either.
        auto* key = static_cast<QKeyEvent*>(event);
        if (key->modifiers() == Qt::ControlModifier && isCommandKey(key->key())) return true;
    }
    return WorkForm::eventFilter(watched, event);
}

void tetad::Uj() {
    const ChecksPaused paused(m_desk->chain);
    const bool made = m_desk->guarded([this] {
        const SheetFields sheet = makeNewSheet(station());
        setFields(sheet);
    });
    if (!made) {
        close(); // also when it was never shown: whoever made it gets it back, and the opener is free
        return;
    }
    present();
}

void tetad::present() {
    if (!isVisible()) open();
    activate();
}

SheetFields tetad::fields() const {
    SheetFields fields = m_rest;
    fields.correction = m_desk->correction;
    m_desk->read(fields);
    fields.NOTE = m_note->note()->toPlainText();
    return fields;
}

void tetad::setFields(const SheetFields& fields) {
    m_closed.reset();
    const ChecksPaused paused(m_desk->chain);
    m_overlays->closeAll();
    m_desk->forgetToldFaults();
    m_desk->altEng = true;
    m_overlays->pickList().switchBox()->setChecked(true);
    m_desk->correction = fields.correction;
    m_rest = fields;
    m_head->setKey(fields.Azonosito);
    m_head->setMode(fields.correction ? u"Javítás"_s : QString());
    m_patient->clearEligibility();
    m_patient->forgetCountryName();
    m_desk->guarded([this] {
        const InstitutionLines institution = institutionLines(station());
        m_head->setInstitution(institution.name, institution.address);
        m_other->setUserFields(userFields(station()));
    });
    m_desk->write(fields);
    m_note->note()->setPlainText(fields.NOTE);
    m_procedures->showSheet(fields.Azonosito);
    m_desk->chain.settle(); // nothing that was left before concerns this sheet
}

// What an activation reads anew: the settings, and the day.
void tetad::activate() {
    // A clinic that leaves the setting empty wants the character typed for each line.
    m_procedures->setDefaultCharacter(station().setup.value(u"ADATLAP_DEF"_s, u"BEAV_TIP"_s));
    m_head->setToday(format::shortDate(station().clock.today()));
    const ChecksPaused paused(m_desk->chain);
    placeFocus();
}

void tetad::placeFocus() {
    SheetKey field = SheetKey::Szakrend;
    const int marker = m_dictionary->returnMarker();
    if (marker >= 1 && marker <= 5) field = diagnosisKeys[marker - 1];
    if (marker == 6) field = SheetKey::Allampol_rov;
    if (marker == 7) field = m_escapedFromProcedures ? SheetKey::MENNY : SheetKey::BEAV;
    m_escapedFromProcedures = false;
    SelectAll(m_desk->input(field));
}

// After a correction the form stays open without a word.
void tetad::store() {
    if (m_overlays->picking() || !m_desk->chain.settle()) return;
    // The checks of the sheet come before a rule of the focused field could put something in its place.
    std::optional<CheckFailure> failure;
    if (!m_desk->guarded([&] { failure = checkSheet(station(), fields()); })) return;
    if (failure) {
        tell(station().dialogue, *failure);
        focusField(failure->field);
        return;
    }
    if (!m_desk->chain.checkFocusedIfChanged() || !typedCodeSettled()) return;
    StoreResult result;
    try {
        result = storeSheet(station(), fields());
    } catch (const FieldFault& fault) {
        station().dialogue.tell(fault.text(), u"Hiba"_s);
        focusField(fault.field());
        return;
    } catch (const Fault& fault) {
        station().dialogue.tell(fault.text(), u"Hiba"_s);
        return;
    }
    switch (result.outcome) {
    case StoreOutcome::refused:
        focusField(result.field);
        return;
    case StoreOutcome::stored:
        return;
    case StoreOutcome::storedAnother:
        m_dictionary->clearMarker();
        Uj();
        return;
    case StoreOutcome::storedDone:
        close();
        return;
    }
}

// A code that was typed and not added would be lost without a word.
bool tetad::typedCodeSettled() {
    const QString code = m_desk->text(SheetKey::BEAV).trimmed();
    if (code.isEmpty() ||
        station().dialogue.ask(
            u"A beírt beavatkozás (%1) nincs felvéve az adatlapra.\nTárolja az adatlapot nélküle?"_s.arg(
                code),
            u"Kérdés"_s))
        return true;
    focusField(SheetKey::BEAV);
    return false;
}

void tetad::focusField(const QString& name) {
    if (const SheetKey* key = m_desk->keyOf(name)) focusField(*key);
}

// The focus goes to a field wherever it stands: a frame that hides it closes, the frame it stands in opens.
void tetad::focusField(SheetKey key) {
    QLineEdit* field = m_desk->input(key);
    if (field == nullptr) field = m_desk->input(SheetKey::EU_LAP); // the EU sheet's fields are behind it
    const ChecksPaused paused(m_desk->chain);
    m_overlays->uncover(field);
    if (m_other->isAncestorOf(field) && !m_other->isVisible())
        m_overlays->show(*m_other, m_desk->input(SheetKey::Szakrend), field);
    SelectAll(field);
}

void tetad::openOtherData() {
    if (m_overlays->picking() || m_other->isVisible()) return;
    if (m_note->isVisible()) m_overlays->leave(*m_note);
    m_overlays->cover(*m_other, m_desk->input(SheetKey::Labor));
}

void tetad::openNote() {
    if (m_overlays->picking() || m_note->isVisible()) return;
    if (m_other->isVisible()) m_overlays->leave(*m_other);
    if (!m_other->isVisible()) m_overlays->cover(*m_note, m_note->note());
}

void tetad::openDictionary(int tableCode) {
    // Opening disables this form, which takes the focus from the field: that is no leaving.
    m_dictionaryOpen.emplace(m_desk->chain);
    if (!m_desk->guarded([&] { m_dictionary->openFor(tableCode); })) m_dictionaryOpen.reset();
}

void tetad::dictionaryTaken(int tableCode, const QString& code, const QString& name) {
    if (tableCode == tetad_kieg1::procedures)
        m_procedures->takeProcedure(code, name);
    else if (tableCode == tetad_kieg1::citizenship)
        m_patient->takeCountry(code, name);
    else
        m_desk->setText(diagnosisKeys[tableCode - tetad_kieg1::firstDiagnosis], code);
}

void tetad::dictionaryEscaped(int tableCode) {
    // Esc among the diagnoses empties the slot that asked, and that is wanted.
    if (tableCode >= tetad_kieg1::firstDiagnosis && tableCode < tetad_kieg1::citizenship)
        m_desk->setText(diagnosisKeys[tableCode - tetad_kieg1::firstDiagnosis], QString());
    m_escapedFromProcedures = tableCode == tetad_kieg1::procedures;
}

void tetad::dictionaryClosed() {
    if (isVisible()) activate();
    m_dictionaryOpen.reset();
}

void tetad::setEligibilityCheck(const std::function<void()>& check) {
    m_patient->eligibilityCheck = check;
}

void tetad::setSickPayPreparation(const std::function<bool()>& preparation) {
    m_other->prepareSickPay = preparation;
}

// Nothing is asked and no field is checked any more: what is not stored is left behind, but for the lines.
void tetad::closeEvent(QCloseEvent* event) {
    // The dictionary first: its closing hands the form back to the clerk and lets the checks run again.
    if (m_dictionary->isVisible()) m_dictionary->close();
    m_dictionary->clearMarker();
    m_closed.emplace(m_desk->chain);
    m_overlays->closeAll();
    WorkForm::closeEvent(event);
}

} // namespace vandrel
