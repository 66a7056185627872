// A text of several lines that takes the letters of the code page only, typed, pasted or dropped.
#pragma once

#include <QPlainTextEdit>

namespace vandrel {

class NoteEdit : public QPlainTextEdit {
    Q_OBJECT

  public:
    using QPlainTextEdit::QPlainTextEdit;

  Q_SIGNALS:
    void lettersRefused(const QString& notice);

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void insertFromMimeData(const QMimeData* source) override;

  private:
    // False when the text can be taken as it is; else what of it can be is inserted and the rest is told.
    bool insertCleaned(const QString& text);
};

} // namespace vandrel
