// What the frames of the sheet's screen share: the input fields made from the field table, the chain they
// stand in, the switches that the rules ask for, and one way to meet a fault. It knows no frame and no
// layout.
#pragma once

#include "foundation/code_lists.h"
#include "foundation/forms/field_chain.h"
#include "foundation/workstation.h"
#include "sheet/forms/sheet_field_table.h"
#include "sheet/sheet_fields.h"

#include <QHash>
#include <QObject>
#include <QSet>

#include <functional>

class QLabel;
class QLineEdit;

namespace vandrel {

// What a field does beyond the table, set by the frame it stands in. Functions may be empty.
struct FieldRules {
    std::function<void()> changed; // on each change of the text by hand, list or rule; not while a sheet is
                                   // being put on the form
    std::vector<std::function<void()>> shown; // what is shown beside the field, on each change whatever its
                                              // cause
    std::function<void()> help;               // F1, where it is no list of the table
    std::function<bool()> leave;              // after the checks of the field; false keeps the focus
    std::function<bool(int key)> key;
};

class SheetDesk : public QObject {
    Q_OBJECT

  public:
    SheetDesk(Workstation& station, QWidget* form);

    Workstation& station;
    FieldChain chain;
    bool altEng = true;      // the general enabling switch: chooses the group of field checks
    bool correction = false; // mode "Javítás"

    QLineEdit* input(const QString& name) const;
    QString text(const QString& name) const;
    // A value longer than the field's limit stays whole: the limit is for typing.
    void setText(const QString& name, const QString& value);
    FieldRules& rules(const QString& name) { return m_rules[name]; }
    // Enter, Down and Up of a field that stands in no chain.
    void link(const QString& name, const QString& previous, const QString& next);
    void setLimit(const QString& name, int limit);

    // After all frames have set their rules: puts the fields into the chain. openList opens the list of a
    // marker for a field.
    void buildChain(const std::function<void(PickMarker, QLineEdit*)>& openList);

    void read(SheetFields& fields) const;
    void write(const SheetFields& fields);

    // Runs something that touches data; a fault is shown in a box and false is given back.
    bool guarded(const std::function<void()>& work);
    // The same for what runs on every key stroke: one fault is told once a sheet.
    void quietlyGuarded(const std::function<void()>& work);
    void forgetToldFaults() { m_told.clear(); }

    // A label that shows data: plain text, may be cut by its neighbours.
    static QLabel* makeDataLabel(const QString& objectName, QWidget* parent = nullptr);
    // A label beside the field that shows what its code means.
    QLabel* makeMeaning(const QString& field);

  private:
    bool leaveField(const SheetField& field);
    void textChanged(const QString& name);

    QHash<QString, QLineEdit*> m_inputs;
    QHash<QString, FieldRules> m_rules;
    QHash<QString, int> m_limits;
    QSet<QString> m_told;
    bool m_writing = false;
};

} // namespace vandrel
