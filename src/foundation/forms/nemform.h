// The status note: a small modal window with one text and one button. The rules show it through the port
// StatusNote while they work; any form may show it with a text of its own. Its caller is disabled meanwhile.
#pragma once

#include "foundation/dialogue.h"

#include <QPointer>
#include <QWidget>

class QPushButton;

namespace vandrel {

class ValueLabel;

class nemform : public QWidget, public StatusNote {
    Q_OBJECT

  public:
    nemform();

    // Shows the note over the window that is in front, or changes the one that is shown. With the button off
    // the note cannot be closed by any means.
    void showNote(const QString& text, bool buttonEnabled) override;
    // The same with the calling form named.
    void showFor(QWidget* caller, const QString& text, bool buttonEnabled = true);

  Q_SIGNALS:
    void closed();

  protected:
    void closeEvent(QCloseEvent* event) override; // enables the caller and gives it the focus
    void keyPressEvent(QKeyEvent* event) override;

  private:
    ValueLabel* m_text;
    QPushButton* m_button;
    QPointer<QWidget> m_caller;
};

} // namespace vandrel
