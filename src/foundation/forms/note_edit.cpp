#include "foundation/forms/note_edit.h"

#include "platform/page_letters.h"

#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMimeData>

namespace vandrel {

bool NoteEdit::insertCleaned(const QString& text) {
    const PageLetters letters = pageLetters(text, LineEnds::kept);
    if (letters.text == text) return false;
    insertPlainText(letters.text);
    if (!letters.untouched()) Q_EMIT lettersRefused(pageLettersNotice(letters));
    return true;
}

void NoteEdit::keyPressEvent(QKeyEvent* event) {
    const bool types = !event->text().isEmpty() && event->text()[0].isPrint() &&
                       !(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier));
    if (!types || !insertCleaned(event->text())) QPlainTextEdit::keyPressEvent(event);
}

void NoteEdit::inputMethodEvent(QInputMethodEvent* event) {
    const PageLetters letters = pageLetters(event->commitString(), LineEnds::kept);
    if (letters.text == event->commitString()) {
        QPlainTextEdit::inputMethodEvent(event);
        return;
    }
    QInputMethodEvent cleaned;
    cleaned.setCommitString(letters.text, event->replacementStart(), event->replacementLength());
    QPlainTextEdit::inputMethodEvent(&cleaned);
    if (!letters.untouched()) Q_EMIT lettersRefused(pageLettersNotice(letters));
}

void NoteEdit::insertFromMimeData(const QMimeData* source) {
    if (!source->hasText() || !insertCleaned(source->text())) QPlainTextEdit::insertFromMimeData(source);
}

} // namespace vandrel
