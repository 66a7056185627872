// How a long run shows how far it is, and how it learns that it is not wanted any more. The rules see this
// port; the windows show it as a line (foundation/forms/progress_line.h), the tests write it down.
#pragma once

#include <QString>

namespace vandrel {

// Called a few times a second and at the last item, never once an item. Every function may be left as it is.
class Progress {
  public:
    virtual ~Progress() = default;
    // What the run does from here on ("Feldolgozás...").
    virtual void stage(const QString& /*text*/) {}
    // position counts from 1 to total.
    virtual void moved(qint64 /*position*/, qint64 /*total*/) {}
    // True when the user has wished to stop since this was last asked. The run decides what follows.
    virtual bool stopWished() { return false; }
    // True when the program is ending: the run breaks off without a question.
    virtual bool ending() { return false; }
};

} // namespace vandrel
