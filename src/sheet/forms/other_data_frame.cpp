// Layout and rules of the two frames.
#include "sheet/forms/other_data_frame.h"

#include "foundation/forms/note_edit.h"
#include "sheet/forms/sheet_desk.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

constexpr SheetKey requests[] = {SheetKey::Labor, SheetKey::Rtg,   SheetKey::Ctmr,
                                 SheetKey::K_kep, SheetKey::Fizio, SheetKey::Utkltg};
constexpr SheetKey counts[] = {SheetKey::Recept, SheetKey::Gyogyseg, SheetKey::Gyogyfurd};

constexpr int longestUserField = 35; // letters, as the parameters allow

SheetKey userField(int slot) { // from 1
    return userFieldKeys[slot - 1];
}

} // namespace

OtherDataFrame::OtherDataFrame(SheetDesk& desk, QWidget* form)
    : OverlayFrame(form, u"egyeb_keret"_s, u"Egyéb adatok"_s), m_desk(desk) {
    setPanelSize(860, 0);
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(8);
    grid->setVerticalSpacing(5);
    grid->setColumnStretch(2, 1);
    body()->addLayout(grid);
    int row = 0;
    const auto addField = [&](SheetKey field, QWidget* beside) {
        QLabel* label = desk.makeLabel(field);
        grid->addWidget(label, row, 0);
        if (desk.description(field).shown > 0) {
            grid->addWidget(desk.input(field), row, 1);
            if (beside != nullptr) grid->addWidget(beside, row, 2);
        } else {
            grid->addWidget(desk.input(field), row, 1, 1, 2);
        }
        ++row;
        desk.rules(field).key = [this, field](int key) { return fieldKey(field, key); };
        return label;
    };
    const auto addGap = [&] { grid->setRowMinimumHeight(row++, 10); };
    for (const SheetKey field : requests)
        addField(field, desk.makeMeaning(field));
    addGap();
    for (const SheetKey field : counts)
        addField(field, nullptr);
    addGap();
    for (int slot = 1; slot <= 5; ++slot)
        m_userLabels[static_cast<std::size_t>(slot - 1)] = addField(userField(slot), nullptr);
    desk.rules(SheetKey::K_kep).leave = [this] { return capacityLeft(); };
    setKeysHint(u"<F1> Lista     <Esc> Vissza a laphoz, a darabszámoknál az előző mezőre"_s);
}

void OtherDataFrame::setUserFields(const std::array<UserField, 5>& fields) {
    for (int slot = 1; slot <= 5; ++slot) {
        const UserField& field = fields[static_cast<std::size_t>(slot - 1)];
        QLabel* label = m_userLabels[static_cast<std::size_t>(slot - 1)];
        QLineEdit* edit = m_desk.input(userField(slot));
        label->setText(field.caption);
        label->setVisible(field.inUse());
        edit->setAccessibleName(field.caption);
        edit->setVisible(field.inUse());
        if (!field.inUse()) continue;
        // A caption without a length limits nothing; a field that takes no letter would be a riddle.
        const int length = field.length > 0 ? field.length : longestUserField;
        m_desk.setLimit(userField(slot), std::min(length, noLimit));
        const int letter = edit->fontMetrics().horizontalAdvance(u'0');
        edit->setMaximumWidth(letter * std::clamp(length + 2, 3, 80));
    }
}

bool OtherDataFrame::fieldKey(SheetKey field, int key) {
    if (key == Qt::Key_Escape) {
        // In the three counts Esc goes one field back, everywhere else it leaves the frame.
        if (field == counts[0] || field == counts[1] || field == counts[2])
            m_desk.chain.goPrevious(m_desk.input(field));
        else
            Q_EMIT closeAsked();
        return true;
    }
    // The frame's chain ends at its ends.
    if (key == Qt::Key_Up) return field == requests[0];
    if (key != Qt::Key_Return && key != Qt::Key_Down) return false;
    SheetKey last = counts[2];
    for (int slot = 1; slot <= 5; ++slot)
        if (!m_desk.input(userField(slot))->isHidden()) last = userField(slot);
    if (field != last) return false;
    if (key == Qt::Key_Return) Q_EMIT closeAsked(); // done: back to the sheet
    return true;
}

bool OtherDataFrame::capacityLeft() {
    if (m_desk.text(SheetKey::Szem_szam).trimmed().isEmpty()) {
        m_desk.station.dialogue.tell(u"A táppénzes adatok kitöltéséhez meg kell adni a páciens adatokat!"_s,
                                     u"Hiba"_s);
        Q_EMIT fieldWanted(SheetKey::Szem_szam);
        return true;
    }
    if (m_desk.text(SheetKey::Diag1).trimmed().isEmpty()) {
        m_desk.station.dialogue.tell(u"A táppénzes adatok kitöltéséhez meg kell a fődiagnózist!"_s);
        Q_EMIT fieldWanted(SheetKey::Diag1);
        return true;
    }
    return !prepareSickPay || prepareSickPay();
}

NoteFrame::NoteFrame(SheetDesk& desk, QWidget* form)
    : OverlayFrame(form, u"megjegyzes_keret"_s, u" Megjegyzés"_s), m_note(new NoteEdit) {
    setPanelSize(700, 360);
    m_note->setObjectName(u"NOTE"_s);
    m_note->setAccessibleName(u" Megjegyzés"_s);
    m_note->setTabChangesFocus(true);
    body()->addWidget(m_note);
    m_note->installEventFilter(this);
    desk.chain.adopt(m_note);
    setKeysHint(u"<Esc> Vissza a laphoz"_s);
}

bool NoteFrame::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_note && event->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
        Q_EMIT closeAsked();
        return true;
    }
    return OverlayFrame::eventFilter(watched, event);
}

} // namespace vandrel
