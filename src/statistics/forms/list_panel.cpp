#include "statistics/forms/list_panel.h"

#include "foundation/look_ups.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

constexpr int nameWidth = 300; // a longer name ends in three dots

// Label, field, "- tól" or "- ig", name.
enum GridColumn { before, input, suffix, name, columns };

void setFieldWidth(QLineEdit* edit) {
    edit->setFixedWidth(edit->fontMetrics().horizontalAdvance(u"0000.00.00."_s) + 26);
}

QLabel* labelOf(const QString& text, QWidget* field) {
    auto* label = new QLabel(text);
    label->setBuddy(field);
    return label;
}

} // namespace

ListPanel::ListPanel(Workstation& station) : m_station(station), m_chain(new FieldChain(this)) {}

void ListPanel::linkChain() {
    for (const auto& [field, behaviour] : m_due)
        m_chain->add(field, behaviour);
    m_due.clear();
}

void ListPanel::adopt(QWidget* field) {
    FieldBehaviour behaviour;
    behaviour.key = [this](int key) {
        if (key != Qt::Key_Return && key != Qt::Key_Down) return false;
        m_process->setFocus();
        return true;
    };
    m_chain->adopt(field, behaviour);
}

void ListPanel::complain(const CheckFailure& failure) {
    tell(m_station.dialogue, failure);
    if (auto* field = findChild<QWidget*>(failure.field)) SelectAll(field);
}

void ListPanel::addHeading(QGridLayout* grid, int row, const QString& text) {
    grid->addWidget(heading(text), row, before, 1, columns);
}

QLabel* ListPanel::heading(const QString& text) {
    auto* label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    QFont font = label->font();
    font.setBold(true);
    label->setFont(font);
    label->setMargin(2);
    return label;
}

void ListPanel::addPeriod(QGridLayout* grid, int row, MaskedField::Mask mask, MaskedField*& from,
                          MaskedField*& to, const FieldBehaviour& toBehaviour) {
    addHeading(grid, row, list_texts::period);
    const auto add = [&](int line, const char* name, const QString& text, FieldBehaviour behaviour) {
        auto* edit = new MaskedField(mask);
        edit->setObjectName(QLatin1StringView(name));
        edit->setAccessibleName(u"Időszak "_s + text);
        setFieldWidth(edit);
        grid->addWidget(edit, line, input);
        grid->addWidget(labelOf(text, edit), line, suffix);
        behaviour.numeric = true;
        chain(edit, behaviour);
        return edit;
    };
    from = add(row + 1, list_field::from, list_texts::from, {});
    to = add(row + 2, list_field::to, list_texts::to, toBehaviour);
}

QString ListPanel::nameOf(CodeKind kind, const QString& code) const {
    if (code.trimmed().isEmpty()) return {};
    switch (kind) {
    case CodeKind::unit:
        return Visszaad_szakrend(m_station, code).trimmed();
    case CodeKind::referrer:
        return Visszaad_bekuldo(m_station, code).trimmed();
    case CodeKind::category:
        for (const FeeCategoryBox& box : feeCategoryBoxes())
            if (box.value.compare(code.trimmed(), Qt::CaseInsensitive) == 0) return box.caption;
        return {};
    case CodeKind::patient:
        break;
    }
    return {};
}

QLineEdit* ListPanel::addCode(QGridLayout* grid, int row, const CodeField& code) {
    auto* edit = new QLineEdit;
    edit->setObjectName(code.name);
    edit->setAccessibleName(code.accessible);
    edit->setToolTip(code.accessible);
    setFieldWidth(edit);
    auto* shown = new QLabel;
    shown->setObjectName(code.name + u"Nev"_s);
    shown->setAccessibleName(code.accessible + u": megnevezés"_s);
    shown->setTextFormat(Qt::PlainText);
    shown->setFixedWidth(nameWidth);
    if (!code.before.isEmpty()) grid->addWidget(labelOf(code.before, edit), row, GridColumn::before);
    grid->addWidget(edit, row, input);
    if (!code.suffix.isEmpty()) grid->addWidget(labelOf(code.suffix, edit), row, GridColumn::suffix);
    grid->addWidget(shown, row, GridColumn::name);
    FieldBehaviour behaviour;
    behaviour.leave = [this, kind = code.kind, edit, shown] {
        shown->setText(
            shown->fontMetrics().elidedText(nameOf(kind, edit->text()), Qt::ElideRight, nameWidth));
        return true;
    };
    connect(edit, &QLineEdit::textChanged, shown, &QLabel::clear);
    chain(edit, behaviour);
    return edit;
}

void ListPanel::addCodeRange(QGridLayout* grid, int row, const QString& label, CodeKind kind,
                             QLineEdit*& from, QLineEdit*& to) {
    const QString holds = kind == CodeKind::referrer ? u"Beküldő kódja "_s : u"Munkahely kódja "_s;
    from = addCode(grid, row, {kind, u"KodTol"_s, holds + list_texts::from, label, list_texts::from});
    to = addCode(grid, row + 1, {kind, u"KodIg"_s, holds + list_texts::to, label, list_texts::to});
}

QPushButton* ListPanel::makeButton(const QString& name, const QString& text) {
    auto* result = new QPushButton(text);
    result->setObjectName(name);
    result->setAccessibleName(text);
    result->setAutoDefault(true);
    result->setMinimumWidth(150);
    chain(result, pressOnEnter(result));
    return result;
}

QPushButton* ListPanel::makeProcessButton() {
    m_process = makeButton(u"Feldolgozas"_s, u"Feldolgozás"_s);
    connect(m_process, &QPushButton::clicked, this, &ListPanel::processWanted);
    return m_process;
}

} // namespace vandrel
