// Layout, keys and flow of the sheet's screen.
#include "sheet/forms/tetad.h"

#include "foundation/code_lists.h"
#include "foundation/forms/month_picker.h"
#include "foundation/forms/pick_list_frame.h"
#include "platform/format.h"
#include "sheet/forms/institution_head.h"
#include "sheet/forms/other_data_frame.h"
#include "sheet/forms/patient_frame.h"
#include "sheet/forms/procedures_frame.h"
#include "sheet/forms/sheet_desk.h"
#include "sheet/forms/tetad_kieg1.h"
#include "sheet/new_sheet.h"
#include "sheet/sheet_settings.h"
#include "sheet/sheet_store.h"

#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
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
    m_desk->buildChain([this](PickMarker marker, QLineEdit* field) { openPickList(marker, field); });
    orderTabs();
    makeKeys();

    for (OverlayFrame* frame :
         {static_cast<OverlayFrame*>(m_other), static_cast<OverlayFrame*>(m_note),
          static_cast<OverlayFrame*>(m_pickList), static_cast<OverlayFrame*>(m_calendar)})
        connect(frame, &OverlayFrame::closeAsked, this, [this, frame] { leaveFrame(*frame); });
    connect(m_other, &OtherDataFrame::fieldWanted, this, &tetad::focusField);
    connect(m_pickList, &PickListFrame::taken, this, [this](const QString& code) {
        const QPointer<QWidget> field = m_pickList->returnTo;
        uncover(*m_pickList, field);
        if (field == nullptr) return;
        m_desk->setText(field->objectName(), code);
        SelectAll(field);
    });
    connect(m_pickList->switchBox(), &QCheckBox::toggled, this, [this](bool on) { m_desk->altEng = on; });
    connect(m_calendar, &MonthPicker::picked, this, [this](const QString& date) {
        const QPointer<QWidget> field = m_calendar->returnTo;
        uncover(*m_calendar, field);
        if (field == nullptr) return;
        m_desk->setText(field->objectName(), date);
        SelectAll(field);
    });
    connect(m_dictionary.get(), &tetad_kieg1::taken, this, &tetad::dictionaryTaken);
    connect(m_dictionary.get(), &tetad_kieg1::escaped, this, &tetad::dictionaryEscaped);
    connect(m_dictionary.get(), &tetad_kieg1::closed, this, &tetad::dictionaryClosed);
}

tetad::~tetad() {
    m_desk->chain.blockChecks(true);
}

void tetad::layOut() {
    const OpenCalendar calendar = [this](const QString& field) { openCalendar(field); };
    const OpenDictionary dictionary = [this](int tableCode) { openDictionary(tableCode); };
    m_head = new InstitutionHead(this);
    auto* unit = new UnitFrame(*m_desk, this);
    auto* care = new CareFrame(*m_desk, calendar, this);
    auto* diagnoses = new DiagnosesFrame(*m_desk, dictionary, this);
    auto* correction = new CorrectionFrame(*m_desk, calendar, this);
    m_patient = new PatientFrame(*m_desk, calendar, dictionary, this);
    auto* fee = new FeeFrame(*m_desk, this);
    m_procedures = new ProceduresFrame(*m_desk, dictionary, this);
    m_other = new OtherDataFrame(*m_desk, this);
    m_note = new NoteFrame(*m_desk, this);
    m_pickList = new PickListFrame(this);
    m_calendar = new MonthPicker(this);

    for (FormGroup* group : {static_cast<FormGroup*>(unit), static_cast<FormGroup*>(care),
                             static_cast<FormGroup*>(diagnoses), static_cast<FormGroup*>(correction)})
        group->spread();
    auto* left = new QVBoxLayout;
    left->setSpacing(4);
    left->addWidget(unit);
    left->addWidget(care);
    left->addWidget(diagnoses);
    left->addWidget(correction);
    auto* later = new QHBoxLayout;
    for (const auto& [name, text] : laterButtons) {
        auto* button = new QPushButton(QString::fromUtf16(text));
        button->setObjectName(QString::fromLatin1(name));
        button->setAccessibleName(button->text());
        button->setFocusPolicy(Qt::NoFocus);
        button->setEnabled(false);
        later->addWidget(button);
    }
    left->addStretch(1);
    left->addLayout(later);
    auto* right = new QVBoxLayout;
    right->setSpacing(4);
    right->addWidget(m_patient);
    right->addWidget(fee);
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
    row->addStretch(1);
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
    for (const SheetField& field : sheetFieldTable())
        m_desk->input(QString::fromLatin1(field.name))->installEventFilter(this);
    m_note->note()->installEventFilter(this);
}

// Tab goes along the fields as Enter does, and also to what Enter passes by.
void tetad::orderTabs() {
    setTabOrder(m_desk->input(u"VizDijOsszeg"_s), m_desk->input(u"Termen"_s));
    setTabOrder(m_desk->input(u"Termen"_s), m_desk->input(u"VizitdijFizMod"_s));
    QWidget* previous = m_desk->input(u"MENNY"_s);
    QList<QWidget*> rest = m_procedures->asideWidgets();
    for (const QString& name : {u"Jav"_s, u"Er_azon"_s, u"Edatum"_s, u"Enaplo"_s})
        rest.append(m_desk->input(name));
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
    m_desk->chain.blockChecks(true);
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
    m_desk->chain.blockChecks(true);
    uncoverAll();
    m_desk->forgetToldFaults();
    m_desk->altEng = true;
    m_pickList->switchBox()->setChecked(true);
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
    m_desk->chain.blockChecks(false);
}

// What an activation reads anew: the settings, and the day.
void tetad::activate() {
    // A clinic that leaves the setting empty wants the character typed for each line.
    m_procedures->setDefaultCharacter(station().setup.value(u"ADATLAP_DEF"_s, u"BEAV_TIP"_s));
    m_head->setToday(format::shortDate(station().clock.today()));
    m_desk->chain.blockChecks(true);
    placeFocus();
    m_desk->chain.blockChecks(false);
}

void tetad::placeFocus() {
    QString field = u"Szakrend"_s;
    const int marker = m_dictionary->returnMarker();
    if (marker >= 1 && marker <= 5) field = u"Diag%1"_s.arg(marker);
    if (marker == 6) field = u"Allampol_rov"_s;
    if (marker == 7) field = m_escapedFromProcedures ? u"MENNY"_s : u"BEAV"_s;
    m_escapedFromProcedures = false;
    SelectAll(m_desk->input(field));
}

// After a correction the form stays open without a word.
void tetad::store() {
    if (pickingNow() || !m_desk->chain.checkFocused()) return;
    StoreResult result;
    if (!m_desk->guarded([&] { result = storeSheet(station(), fields()); })) return;
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

// The focus goes to a field wherever it stands: a frame that hides it closes, the frame it stands in opens.
void tetad::focusField(const QString& name) {
    QLineEdit* field = m_desk->input(name);
    if (field == nullptr) field = m_desk->input(u"EU_LAP"_s); // the EU sheet's fields are behind it
    m_desk->chain.blockChecks(true);
    const bool inOther = m_other->isAncestorOf(field);
    for (OverlayFrame* frame : {static_cast<OverlayFrame*>(m_note), static_cast<OverlayFrame*>(m_other)})
        if (frame->isVisible() && !frame->isAncestorOf(field)) frame->uncover();
    if (inOther && !m_other->isVisible()) {
        m_other->returnTo = m_desk->input(u"Szakrend"_s);
        m_other->cover();
    }
    SelectAll(field);
    m_desk->chain.blockChecks(false);
}

// Covers the form with a frame, unless the field that has the focus does not let it go.
bool tetad::cover(OverlayFrame& frame, QWidget* focus) {
    if (!m_desk->chain.checkFocused()) return false;
    frame.returnTo = focusWidget();
    m_desk->chain.blockChecks(true);
    frame.cover();
    SelectAll(focus);
    m_desk->chain.blockChecks(false);
    return true;
}

void tetad::uncover(OverlayFrame& frame, QWidget* focus) {
    m_desk->chain.blockChecks(true);
    frame.uncover();
    SelectAll(focus != nullptr ? focus : m_desk->input(u"Szakrend"_s));
    m_desk->chain.blockChecks(false);
}

void tetad::leaveFrame(OverlayFrame& frame) {
    if (!m_desk->chain.checkFocused() || !frame.isVisible()) return;
    uncover(frame, frame.returnTo);
}

void tetad::uncoverAll() {
    for (OverlayFrame* frame :
         {static_cast<OverlayFrame*>(m_other), static_cast<OverlayFrame*>(m_note),
          static_cast<OverlayFrame*>(m_pickList), static_cast<OverlayFrame*>(m_calendar)})
        frame->uncover();
}

bool tetad::pickingNow() const {
    return m_pickList->isVisible() || m_calendar->isVisible();
}

void tetad::openOtherData() {
    if (pickingNow() || m_other->isVisible()) return;
    if (m_note->isVisible()) leaveFrame(*m_note);
    cover(*m_other, m_desk->input(u"Labor"_s));
}

void tetad::openNote() {
    if (pickingNow() || m_note->isVisible()) return;
    if (m_other->isVisible()) leaveFrame(*m_other);
    if (!m_other->isVisible()) cover(*m_note, m_note->note());
}

// The check of the field that asked waits until the list is done with.
void tetad::openPickList(PickMarker marker, QLineEdit* field) {
    m_desk->guarded([&] {
        m_desk->altEng = true;
        m_pickList->switchBox()->setChecked(true);
        m_pickList->load(station(), marker, field->text());
        m_pickList->returnTo = field;
        m_desk->chain.blockChecks(true);
        m_pickList->cover();
        m_pickList->list()->setFocus(Qt::OtherFocusReason);
        m_desk->chain.blockChecks(false);
    });
}

void tetad::openCalendar(const QString& field) {
    if (pickingNow()) return;
    // By its button the calendar opens while another field has the focus, which is then left.
    if (focusWidget() != m_desk->input(field) && !m_desk->chain.checkFocused()) return;
    m_calendar->load(m_desk->text(field), station().clock.today());
    m_calendar->returnTo = m_desk->input(field);
    m_desk->chain.blockChecks(true);
    m_calendar->cover();
    m_calendar->calendar()->setFocus(Qt::OtherFocusReason);
    m_desk->chain.blockChecks(false);
}

void tetad::openDictionary(int tableCode) {
    // Opening disables this form, which takes the focus from the field: that is no leaving.
    m_desk->chain.blockChecks(true);
    if (!m_desk->guarded([&] { m_dictionary->openFor(tableCode); })) m_desk->chain.blockChecks(false);
}

void tetad::dictionaryTaken(int tableCode, const QString& code, const QString& name) {
    if (tableCode == tetad_kieg1::procedures)
        m_procedures->takeProcedure(code, name);
    else if (tableCode == tetad_kieg1::citizenship)
        m_patient->takeCountry(code, name);
    else
        m_desk->setText(u"Diag%1"_s.arg(tableCode - tetad_kieg1::firstDiagnosis + 1), code);
}

void tetad::dictionaryEscaped(int tableCode) {
    // Esc among the diagnoses empties the slot that asked, and that is wanted.
    if (tableCode >= tetad_kieg1::firstDiagnosis && tableCode < tetad_kieg1::citizenship)
        m_desk->setText(u"Diag%1"_s.arg(tableCode - tetad_kieg1::firstDiagnosis + 1), QString());
    m_escapedFromProcedures = tableCode == tetad_kieg1::procedures;
}

void tetad::dictionaryClosed() {
    if (!isVisible()) return;
    activate();
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
    m_desk->chain.blockChecks(true);
    uncoverAll();
    WorkForm::closeEvent(event);
}

} // namespace vandrel
