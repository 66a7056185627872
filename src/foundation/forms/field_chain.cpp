#include "foundation/forms/field_chain.h"

#include "foundation/forms/masked_field.h"
#include "foundation/forms/note_edit.h"
#include "platform/page_letters.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPalette>
#include <QPlainTextEdit>
#include <QScopedValueRollback>
#include <QToolTip>
#include <QValidator>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

// The system's own colours: white and dark red with the focus, grey and maroon without.
const QColor focusBackground(255, 255, 255);
const QColor focusText(192, 0, 0);
const QColor idleBackground(192, 192, 192);
const QColor idleText(128, 0, 0);

bool isEnter(int key) {
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

bool numericLetter(QChar c) {
    return (c >= '0'_L1 && c <= '9'_L1) || c == ','_L1;
}

bool passesNumeric(const QKeyEvent& event) {
    const QString text = event.text();
    if (text.isEmpty() || !text[0].isPrint()) return true;
    if (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier)) return true;
    return numericLetter(text[0]);
}

// What cannot be typed cannot be pasted or dropped either. A stored value with other letters may be shown and
// shortened.
class NumericPaste : public QValidator {
  public:
    explicit NumericPaste(QLineEdit* edit) : QValidator(edit), m_foreign(foreignLetters(edit->text())) {
        connect(edit, &QLineEdit::textChanged, this,
                [this](const QString& text) { m_foreign = foreignLetters(text); });
    }
    State validate(QString& text, int&) const override {
        return foreignLetters(text) > m_foreign ? Invalid : Acceptable;
    }

  private:
    static qsizetype foreignLetters(const QString& text) {
        return text.size() - std::ranges::count_if(text, numericLetter);
    }

    qsizetype m_foreign; // in the text that stands
};

void takeNumbersOnly(QWidget* field) {
    auto* edit = qobject_cast<QLineEdit*>(field);
    if (edit != nullptr && edit->inputMask().isEmpty()) edit->setValidator(new NumericPaste(edit));
}

} // namespace

void SelectAll(QWidget* field) {
    field->setFocus(Qt::OtherFocusReason);
    if (auto* edit = qobject_cast<QLineEdit*>(field)) edit->selectAll();
}

FieldBehaviour pressOnEnter(QAbstractButton* button) {
    FieldBehaviour behaviour;
    behaviour.key = [button](int key) {
        if (key != Qt::Key_Return) return false;
        button->click();
        return true;
    };
    return behaviour;
}

void FieldChain::add(QWidget* field, const FieldBehaviour& behaviour) {
    QWidget* previous = nullptr;
    for (const Entry& entry : m_entries)
        if (entry.chained) previous = entry.field;
    if (previous != nullptr) QWidget::setTabOrder(previous, field);
    enrol(field, behaviour, true);
}

void FieldChain::adopt(QWidget* field, const FieldBehaviour& behaviour) {
    enrol(field, behaviour, false);
}

void FieldChain::enrol(QWidget* field, const FieldBehaviour& behaviour, bool chained) {
    m_entries.push_back({field, behaviour, chained});
    if (behaviour.numeric) takeNumbersOnly(field);
    if (auto* edit = qobject_cast<QLineEdit*>(field)) keepToPage(edit);
    if (auto* note = qobject_cast<NoteEdit*>(field))
        connect(note, &NoteEdit::lettersRefused, this,
                [this, note](const QString& notice) { tellRefusedLetters(note, notice); });
    field->installEventFilter(this);
    paint(field, field->hasFocus());
}

// Typed, pasted, dropped or composed: all are edits by the user. A stored text with other letters is shown as
// it is and changes only when it is edited.
void FieldChain::keepToPage(QLineEdit* edit) {
    connect(edit, &QLineEdit::textEdited, this, [this, edit] {
        const PageLetters letters = pageLetters(edit->text());
        if (letters.text == edit->text()) return;
        const auto cursor = pageLetters(edit->text().left(edit->cursorPosition())).text.size();
        edit->setText(letters.text);
        edit->setCursorPosition(static_cast<int>(cursor));
        if (!letters.untouched()) tellRefusedLetters(edit, pageLettersNotice(letters));
    });
}

void FieldChain::tellRefusedLetters(QWidget* field, const QString& notice) {
    if (m_status != nullptr)
        m_status->setText(notice);
    else
        QToolTip::showText(field->mapToGlobal(field->rect().bottomLeft()), notice.toHtmlEscaped(), field);
}

const FieldChain::Entry* FieldChain::find(const QObject* field) const {
    for (const Entry& entry : m_entries)
        if (entry.field == field) return &entry;
    return nullptr;
}

bool FieldChain::go(QWidget* from, int step) {
    int place = -1;
    const int count = static_cast<int>(m_entries.size());
    for (int i = 0; i < count; ++i)
        if (m_entries[static_cast<std::size_t>(i)].field == from) place = i;
    if (place < 0) return false;
    for (int i = place + step; i >= 0 && i < count; i += step) {
        const Entry& entry = m_entries[static_cast<std::size_t>(i)];
        if (!entry.chained || entry.field == nullptr || !entry.field->isVisible() ||
            !entry.field->isEnabled())
            continue;
        SelectAll(entry.field);
        return true;
    }
    return false;
}

void FieldChain::goNext(QWidget* from) {
    go(from, 1);
}

void FieldChain::goPrevious(QWidget* from) {
    go(from, -1);
}

void FieldChain::paint(QWidget* field, bool focused) {
    // The colours are for fields with a text: a tick box in grey would look disabled.
    if (qobject_cast<QAbstractButton*>(field) != nullptr) return;
    QPalette palette = field->palette();
    palette.setColor(QPalette::Base, focused ? focusBackground : idleBackground);
    palette.setColor(QPalette::Text, focused ? focusText : idleText);
    field->setPalette(palette);
}

bool FieldChain::eventFilter(QObject* watched, QEvent* event) {
    const Entry* entry = find(watched);
    if (entry == nullptr) return false;
    auto* field = static_cast<QWidget*>(watched);
    switch (event->type()) {
    case QEvent::FocusIn: {
        paint(field, true);
        if (m_current != field) {
            m_current = field;
            takeAsUnchanged();
        }
        if (auto* edit = qobject_cast<QLineEdit*>(field)) {
            const auto reason = static_cast<QFocusEvent*>(event)->reason();
            // A mouse press sets the cursor after this event: select behind it.
            if (reason == Qt::MouseFocusReason)
                QMetaObject::invokeMethod(edit, &QLineEdit::selectAll, Qt::QueuedConnection);
            else if (reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason) {
                m_selectDue = edit;
                QMetaObject::invokeMethod(
                    edit,
                    [this, edit] {
                        // Keys typed ahead have been served before this: what they wrote must not be
                        // selected, or the next key would write over it.
                        if (m_selectDue != edit) return;
                        m_selectDue = nullptr;
                        if (edit->hasFocus() && !edit->hasSelectedText()) edit->selectAll();
                    },
                    Qt::QueuedConnection);
            }
        }
        return false;
    }
    case QEvent::FocusOut: {
        const auto reason = static_cast<QFocusEvent*>(event)->reason();
        // A menu in front is no leaving.
        if (reason == Qt::PopupFocusReason || reason == Qt::MenuBarFocusReason) return false;
        // Behind another window the focus may be moved without a word to this field: it must not go on
        // looking focused. Coming back paints it again.
        paint(field, false);
        if (reason == Qt::ActiveWindowFocusReason) return false;
        if (auto* masked = qobject_cast<MaskedField*>(field)) masked->padSingleDigits();
        if (m_pauses == 0) m_current = nullptr;
        // A long text shows its beginning again, and nothing stays marked that no key would write over.
        if (auto* edit = qobject_cast<QLineEdit*>(field)) edit->setCursorPosition(0);
        if (entry->behaviour.leave && m_pauses == 0) leaveLater(field);
        return false;
    }
    case QEvent::MouseButtonRelease:
        // In an empty mask there is one place to type at.
        if (auto* masked = qobject_cast<MaskedField*>(field); masked != nullptr && masked->isEmptyMask())
            QMetaObject::invokeMethod(
                masked,
                [masked] {
                    masked->deselect();
                    masked->setCursorPosition(0);
                },
                Qt::QueuedConnection);
        return false;
    case QEvent::KeyPress:
        // A key typed ahead of a check that gives the focus back belongs to nobody.
        if (!settle() && !field->hasFocus()) return true;
        m_selectDue = nullptr;
        return keyPressed(field, *entry, static_cast<QKeyEvent*>(event));
    default:
        return false;
    }
}

bool FieldChain::keyPressed(QWidget* field, const Entry& entry, QKeyEvent* event) {
    const int key = isEnter(event->key()) ? static_cast<int>(Qt::Key_Return) : event->key();
    const bool plain = !(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
    if (plain && entry.behaviour.key && entry.behaviour.key(key)) return true;
    if (plain && key == Qt::Key_F1 && entry.behaviour.help) {
        entry.behaviour.help();
        return true;
    }
    // A text of several lines keeps its own Enter and arrows.
    if (plain && qobject_cast<QPlainTextEdit*>(field) == nullptr && entry.chained) {
        if (key == Qt::Key_Return || key == Qt::Key_Down) {
            goNext(field);
            return true;
        }
        if (key == Qt::Key_Up) {
            goPrevious(field);
            return true;
        }
    }
    return entry.behaviour.numeric && !passesNumeric(*event);
}

void FieldChain::leaveLater(QWidget* field) {
    m_left.emplace_back(field);
    // The check may show a box, and a box inside the focus change would re-enter it.
    QMetaObject::invokeMethod(
        this, [this] { settle(); }, Qt::QueuedConnection);
}

bool FieldChain::settle() {
    if (m_checking) return true;
    bool kept = true;
    while (!m_left.empty()) {
        const QPointer<QWidget> field = m_left.front();
        m_left.erase(m_left.begin());
        if (field == nullptr || m_pauses > 0) continue;
        const Entry* entry = find(field);
        if (entry == nullptr || !entry->behaviour.leave || field->hasFocus()) continue;
        bool good = true;
        {
            // Also when the check raises a fault: later fields are checked all the same.
            const QScopedValueRollback<bool> guard(m_checking, true);
            good = entry->behaviour.leave();
        }
        if (good || field == nullptr) continue;
        kept = false;
        SelectAll(field);
        // A field that loses the focus only because it is given back was not left by the clerk: checking it
        // would send two wrong fields' boxes to and fro without end.
        m_left.clear();
    }
    return kept;
}

void FieldChain::takeAsUnchanged() {
    const auto* edit = qobject_cast<QLineEdit*>(m_current);
    m_unchanged = edit != nullptr ? edit->displayText() : QString();
}

bool FieldChain::checkFocusedIfChanged() {
    if (!settle()) return false;
    const auto* edit = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    if (edit == nullptr || edit != m_current || edit->displayText() == m_unchanged) return true;
    return checkFocused();
}

bool FieldChain::checkFocused() {
    if (!settle()) return false;
    QWidget* field = QApplication::focusWidget();
    if (auto* masked = qobject_cast<MaskedField*>(field)) masked->padSingleDigits();
    const Entry* entry = field != nullptr ? find(field) : nullptr;
    if (entry == nullptr || !entry->behaviour.leave || m_pauses > 0 || m_checking) return true;
    bool good = true;
    {
        const QScopedValueRollback<bool> guard(m_checking, true);
        good = entry->behaviour.leave();
    }
    if (!good) SelectAll(field);
    return good && QApplication::focusWidget() == field;
}

} // namespace vandrel
