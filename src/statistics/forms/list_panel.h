// What the three input panels of the statistics screen have in common: their field chain, the parts they are
// built from, and how the screen in front of them reads them. Knows no list.
#pragma once

#include "foundation/forms/field_chain.h"
#include "foundation/forms/masked_field.h"
#include "foundation/menu_map.h"
#include "foundation/workstation.h"
#include "statistics/list_selection.h"

#include <QWidget>

#include <utility>
#include <vector>

class QCheckBox;
class QGridLayout;
class QLabel;
class QLineEdit;
class QPushButton;

namespace vandrel {

using namespace Qt::StringLiterals;

class ListPanel : public QWidget {
    Q_OBJECT

  public:
    explicit ListPanel(Workstation& station);

    // The texts of the fields.
    virtual ListRequest request() const = 0;
    // Has the focus when the screen opens.
    virtual QWidget* firstField() const = 0;

    // What the focus leaves is checked; false when it stays where it is.
    bool checkFocused() { return m_chain->checkFocused(); }
    // From now on nothing is checked: the screen closes.
    void leave() { m_chain->stopChecks(); }
    QPushButton* processButton() const { return m_process; }
    // Shows a box and gives the focus to its field.
    void complain(const CheckFailure& failure);

  Q_SIGNALS:
    void processWanted(); // "Feldolgozás"

  protected:
    // What a code field holds: it decides the name that is shown beside it.
    enum class CodeKind { unit, referrer, category, patient };

    // From and to of a period, with "- tól" and "- ig" after the fields; added to the grid from this row on.
    void addPeriod(QGridLayout* grid, int row, MaskedField::Mask mask, MaskedField*& from, MaskedField*& to,
                   const FieldBehaviour& toBehaviour = {});
    struct CodeField {
        CodeKind kind;
        QString name;
        QString accessible; // its tool tip, too
        QString before;     // the label before the field
        QString suffix = {};
    };
    // A code field with the name of its code beside it.
    QLineEdit* addCode(QGridLayout* grid, int row, const CodeField& code);
    void addHeading(QGridLayout* grid, int row, const QString& text);
    // From and to of a range of codes.
    void addCodeRange(QGridLayout* grid, int row, const QString& label, CodeKind kind, QLineEdit*& from,
                      QLineEdit*& to);
    QPushButton* makeButton(const QString& name, const QString& text);
    // "Feldolgozás", the last of the chain.
    QPushButton* makeProcessButton();
    // "[    Időszak    ]" and its like.
    static QLabel* heading(const QString& text);

    // The fields' order in the chain is that of these calls.
    void chain(QWidget* field, const FieldBehaviour& behaviour = {}) { m_due.emplace_back(field, behaviour); }
    // A field beside the chain, from which Enter goes to the button.
    void adopt(QWidget* field);
    // Once, when all fields are in the panel.
    void linkChain();

  private:
    QString nameOf(CodeKind kind, const QString& code) const;

    Workstation& m_station;
    FieldChain* m_chain;
    std::vector<std::pair<QWidget*, FieldBehaviour>> m_due; // not linked yet
    QPushButton* m_process = nullptr;
};

namespace list_texts {
inline const QString period = u"[    Időszak    ]"_s;
inline const QString from = u"- tól"_s;
inline const QString to = u"- ig"_s;
inline const QString units = u"[    Mely munkahelyekre kér listát?    ]"_s;
inline const QString code = u"Kód:"_s;
} // namespace list_texts

// A text of the menu for this opening, or the panel's own.
inline QString textOr(std::string_view menus, const QString& own) {
    return menus.empty() ? own : menuText(menus);
}

} // namespace vandrel
