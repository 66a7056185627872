// How a rule asks or tells the user something in mid-sequence, and how it shows that it is at work.
// The forms answer with boxes, the tests with a queue of expected messages; rules know neither.
#pragma once

#include "platform/program_name.h"

#include <QString>

namespace vandrel {

using namespace Qt::StringLiterals;

enum class Icon { none, information, question, warning, critical };
enum class Buttons { ok, yesNo };
enum class Answer { ok, yes, no };

// How a question is put.
enum class Asking {
    plain, // Enter is yes; Esc and the close button are no
    loss,  // yes destroys something: Enter is no, too
    writes // both answers lead to writing: only the buttons and their letters answer
};

struct Message {
    QString text;
    QString title = programTitle;
    Icon icon = Icon::none;
    Buttons buttons = Buttons::ok;
    Asking asking = Asking::plain;
};

class Dialogue {
  public:
    virtual ~Dialogue() = default;
    // Shows a box and waits for its answer: yes or no for yesNo boxes (what Esc and Enter are, Asking says),
    // ok otherwise.
    virtual Answer show(const Message& message) = 0;

    void tell(const QString& text, const QString& title = programTitle, Icon icon = Icon::critical) {
        show({text, title, icon, Buttons::ok, Asking::plain});
    }
    bool ask(const QString& text, const QString& title = programTitle, Icon icon = Icon::question,
             Asking asking = Asking::plain) {
        return show({text, title, icon, Buttons::yesNo, asking}) == Answer::yes;
    }
};

// The status note (nemform) as the rules see it: one text and one button.
class StatusNote {
  public:
    virtual ~StatusNote() = default;
    // Shows the note, or changes the one that is shown. With the button off the user can only wait.
    virtual void showNote(const QString& text, bool buttonEnabled) = 0;
};

} // namespace vandrel
