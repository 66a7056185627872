// How a rule asks or tells the user something in mid-sequence, and how it shows that it is at work.
// The forms answer with boxes, the tests with a queue of expected messages; rules know neither.
#pragma once

#include <QString>

namespace vandrel {

using namespace Qt::StringLiterals;

enum class Icon { none, information, question, warning, critical };
enum class Buttons { ok, yesNo };
enum class Answer { ok, yes, no };

// The title of boxes that have none of their own.
inline const QString programTitle = u"Vandrel Járóbeteg program"_s;

struct Message {
    QString text;
    QString title = programTitle;
    Icon icon = Icon::none;
    Buttons buttons = Buttons::ok;
};

class Dialogue {
  public:
    virtual ~Dialogue() = default;
    // Shows a box and waits for its answer: yes or no for yesNo boxes (closing or Esc is no), ok otherwise.
    virtual Answer show(const Message& message) = 0;

    void tell(const QString& text, const QString& title = programTitle, Icon icon = Icon::critical) {
        show({text, title, icon, Buttons::ok});
    }
    bool ask(const QString& text, const QString& title = programTitle, Icon icon = Icon::question) {
        return show({text, title, icon, Buttons::yesNo}) == Answer::yes;
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
