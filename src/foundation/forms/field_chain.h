// What every input form has in common: Enter and Down go to the next field, Up to the previous one, the text
// is selected on focus, the focused field is white with dark red text and the others grey, F1 opens a field's
// list, numeric fields drop other keys, and a check runs when the focus leaves a field.
#pragma once

#include <QLabel>
#include <QObject>
#include <QPointer>
#include <QWidget>

#include <functional>
#include <vector>

class QAbstractButton;
class QLineEdit;
class QKeyEvent;

namespace vandrel {

// What a field does beyond standing in the chain. Functions may be empty.
struct FieldBehaviour {
    bool numeric = false;             // only digits, comma and Backspace pass
    std::function<void()> help = {};  // F1
    std::function<bool()> leave = {}; // after the focus left; false gives the focus back to the field
    // Sees Enter (as Key_Return), arrows, Esc and F-keys first; true: handled.
    std::function<bool(int)> key = {};
};

class FieldChain : public QObject {
    Q_OBJECT

  public:
    explicit FieldChain(QObject* parent) : QObject(parent) {}

    // Appends a field to the chain. Its place in the chain is its Tab place too.
    void add(QWidget* field, const FieldBehaviour& behaviour = {});
    // Colours, selection, F1 and checks as above, but no place in the chain.
    void adopt(QWidget* field, const FieldBehaviour& behaviour = {});

    // The next or previous field of the chain that is visible and enabled gets the focus.
    void goNext(QWidget* from);
    void goPrevious(QWidget* from);

    // Runs the leave checks that still wait for the event loop; false when one of them gave the focus back.
    bool settle();
    // Runs them and the check of the field that has the focus now, for an action that takes the form's
    // content or covers the field; false when one failed or sent the focus elsewhere.
    bool checkFocused();
    // The same for an action that takes the form's content only: the check of the field that has the focus
    // runs only when its text was changed since it got the focus.
    bool checkFocusedIfChanged();
    // What the form shows now is what is unchanged: a record was put on it.
    void takeAsUnchanged();
    // Where the letters that a field did not take are told; without a line a tool tip at the field tells
    // them.
    void setStatusLine(QLabel* line) { m_status = line; }
    void tellRefusedLetters(QWidget* field, const QString& notice);
    // No leave check runs any more: the form closes. For a while only: ChecksPaused.
    void stopChecks() { ++m_pauses; }

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    struct Entry {
        QPointer<QWidget> field;
        FieldBehaviour behaviour;
        bool chained;
    };

    void enrol(QWidget* field, const FieldBehaviour& behaviour, bool chained);
    void keepToPage(QLineEdit* edit);
    const Entry* find(const QObject* field) const;
    bool keyPressed(QWidget* field, const Entry& entry, QKeyEvent* event);
    void paint(QWidget* field, bool focused);
    void leaveLater(QWidget* field);
    bool go(QWidget* from, int step);

    std::vector<Entry> m_entries;
    std::vector<QPointer<QWidget>> m_left; // fields whose leave check is due
    QPointer<QWidget> m_selectDue;         // just got the focus; no key has been typed into it yet
    QPointer<QLabel> m_status;
    QPointer<QWidget> m_current; // the field that has the focus, or lent it to a frame or list of its own
    QString m_unchanged;         // its text when it got the focus
    bool m_checking = false;
    int m_pauses = 0;

    friend class ChecksPaused;
};

// While one lives no leave check of the chain runs, and what the focus leaves meanwhile is not checked
// afterwards either: the form is being filled, cleared or covered. They nest.
class [[nodiscard]] ChecksPaused {
  public:
    explicit ChecksPaused(FieldChain& chain) : m_chain(&chain) { ++chain.m_pauses; }
    ~ChecksPaused() {
        if (m_chain != nullptr) --m_chain->m_pauses;
    }
    ChecksPaused(const ChecksPaused&) = delete;
    ChecksPaused& operator=(const ChecksPaused&) = delete;

  private:
    QPointer<FieldChain> m_chain;
};

// For a button that stands in a chain: Enter presses it.
FieldBehaviour pressOnEnter(QAbstractButton* button);

// Focus to a field with its text selected.
void SelectAll(QWidget* field);

} // namespace vandrel
