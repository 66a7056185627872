// The inputs of a form, made from its field table: named, limited, masked, in the chain, with F1 lists,
// calendar buttons and the checks on leaving a field. Fields are found by the table's typed keys. It knows no
// layout: the form puts the inputs where they belong.
#pragma once

#include "foundation/field_table.h"
#include "foundation/forms/field_chain.h"
#include "foundation/workstation.h"

#include <QHash>
#include <QObject>
#include <QSet>

#include <functional>
#include <vector>

class QLabel;
class QLineEdit;
class QPushButton;

namespace vandrel {

// What a field does beyond its row in the table, set by the form. Functions may be empty.
struct FieldRules {
    std::function<void()> changed; // on each change of the text by hand, list or rule; not while a record is
                                   // being put on the form
    std::vector<std::function<void()>> shown; // what is shown beside the field, on each change whatever its
                                              // cause
    std::function<void()> help;               // F1, where it is neither a list of the table nor a calendar
    std::function<bool()> leave;              // after the checks of the table; false keeps the focus
    std::function<bool(int key)> key;         // sees the keys first; true: handled
};

// What opens over the form for a field. A form without such frames leaves them empty.
struct FieldAids {
    std::function<void(PickMarker list, QLineEdit* field)> openList;
    std::function<void(QLineEdit* field)> openCalendar;
};

// By place in the table; forms use FieldSet below.
class FieldSetBase : public QObject {
    Q_OBJECT

  public:
    Workstation& station;
    FieldChain chain;
    // Runs on leaving a field, after the checks of the table and before the field's own rule; false keeps the
    // focus. Empty: none.
    std::function<bool(const FieldDescription& field, QLineEdit* input)> check;

    void setAids(const FieldAids& aids) { m_aids = aids; }

    // Runs something that touches data; a fault is shown in a box and false is given back.
    bool guarded(const std::function<void()>& work);
    // The same for what runs on every key stroke: one fault is told once a record.
    void quietlyGuarded(const std::function<void()>& work);
    void forgetToldFaults() { m_told.clear(); }

    // After all rules are set: puts the fields into the chain, in the table's order.
    void buildChain();

    // Masked: with the mask's literals and blanks, as wide as the mask.
    static QString textOf(const QLineEdit* input);
    // For what fills a field without knowing its key. The field is one of this set.
    void setTextOf(const QLineEdit* input, const QString& value);
    static QLabel* makeLabel(const FieldDescription& field);
    // A label that shows data: plain text, may be cut by its neighbours.
    static QLabel* makeDataLabel(const QString& objectName, QWidget* parent = nullptr);

  protected:
    FieldSetBase(Workstation& workstation, QWidget* form);

    void makeInput(const FieldDescription& field, QWidget* form); // appends
    QLineEdit* inputAt(std::size_t place) const { return m_fields[place].input; }
    FieldRules& rulesAt(std::size_t place) { return m_fields[place].rules; }
    void setTextAt(std::size_t place, const QString& value);
    void setLimitAt(std::size_t place, int limit);
    void linkAt(std::size_t place, QLineEdit* previous, QLineEdit* next);
    QPushButton* makeCalendarButtonAt(std::size_t place);
    QLabel* makeMeaningAt(std::size_t place);

    bool filling = false; // a record is being put on the form

  private:
    struct Field {
        const FieldDescription* description;
        QLineEdit* input; // null for FieldPlace::none
        FieldRules rules;
        int limit;
    };

    void textChanged(std::size_t place);
    bool leaveField(std::size_t place);

    std::vector<Field> m_fields;
    FieldAids m_aids;
    QSet<QString> m_told;
};

template<typename Key>
class FieldSet : public FieldSetBase {
  public:
    // The table must outlive the set; the form is the inputs' parent until a layout moves them.
    FieldSet(Workstation& workstation, QWidget* form, FieldTable<Key> rows)
        : FieldSetBase(workstation, form), m_table(rows) {
        for (const FieldRow<Key>& row : rows)
            makeInput(row.field, form);
    }

    FieldTable<Key> table() const { return m_table; }
    const FieldDescription& description(Key key) const { return m_table[place(key)].field; }
    // Null for a value without an input.
    QLineEdit* input(Key key) const { return inputAt(place(key)); }
    QLineEdit* operator[](Key key) const { return input(key); }
    QString text(Key key) const { return textOf(input(key)); }
    // A value longer than the field's limit stays whole: the limit is for typing. A mask takes the empty text
    // for the empty mask.
    void setText(Key key, const QString& value) { setTextAt(place(key), value); }
    void setLimit(Key key, int limit) { setLimitAt(place(key), limit); }
    FieldRules& rules(Key key) { return rulesAt(place(key)); }
    // Enter, Down and Up of a field that stands in no chain.
    void link(Key key, Key previous, Key next) { linkAt(place(key), input(previous), input(next)); }

    QLabel* makeLabel(Key key) const { return FieldSetBase::makeLabel(description(key)); }
    // The button beside a date; F1 in the field opens the calendar too, whether there is a button or not.
    QPushButton* makeCalendarButton(Key key) { return makeCalendarButtonAt(place(key)); }
    // A label beside the field that shows what its code means in its list.
    QLabel* makeMeaning(Key key) { return makeMeaningAt(place(key)); }

    // The key of a field by its name, for rules that name a field; null when it is no field of the table.
    const Key* keyOf(QStringView name) const {
        for (const FieldRow<Key>& row : m_table)
            if (name == QLatin1StringView(row.field.name)) return &row.key;
        return nullptr;
    }

    // The inputs' texts into the record, and back.
    template<typename Record>
    void read(Record& record) const {
        for (const FieldRow<Key>& row : m_table)
            if (input(row.key) != nullptr) valueOf(record, row.key) = text(row.key);
    }
    template<typename Record>
    void write(const Record& record) {
        Record copy = record;
        filling = true;
        for (const FieldRow<Key>& row : m_table)
            if (input(row.key) != nullptr) setText(row.key, valueOf(copy, row.key));
        filling = false;
        chain.takeAsUnchanged();
    }

  private:
    // A key without a row is a slip in the table, which everyKeyInOrder finds when the table is compiled.
    std::size_t place(Key key) const {
        return static_cast<std::size_t>(std::ranges::find(m_table, key, &FieldRow<Key>::key) -
                                        m_table.begin());
    }

    FieldTable<Key> m_table;
};

} // namespace vandrel
