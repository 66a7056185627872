// The inputs of the sheet's screen and what they have in common.
#include "sheet/forms/sheet_desk.h"

#include "foundation/code_lists.h"
#include "foundation/field_checks.h"
#include "foundation/forms/elided_label.h"
#include "foundation/forms/masked_field.h"

#include <QLabel>
#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

QLineEdit* makeInput(const SheetField& field) {
    switch (field.shape) {
    case FieldShape::date:
        return new MaskedField(MaskedField::Mask::date);
    case FieldShape::time:
        return new MaskedField(MaskedField::Mask::time);
    case FieldShape::text:
        break;
    }
    auto* edit = new QLineEdit;
    edit->setMaxLength(field.limit);
    return edit;
}

QString labelOf(const SheetField& field) {
    return field.label.toString();
}

} // namespace

SheetDesk::SheetDesk(Workstation& workstation, QWidget* form)
    : QObject(form), station(workstation), chain(this) {
    for (const SheetField& field : sheetFieldTable()) {
        const QString name = QString::fromLatin1(field.name);
        QLineEdit* edit = makeInput(field);
        edit->setParent(form);
        edit->setObjectName(name);
        edit->setAccessibleName(labelOf(field));
        if (field.shown > 0) {
            const int frame = edit->sizeHint().width() - edit->fontMetrics().horizontalAdvance(u'x') * 17;
            edit->setFixedWidth(edit->fontMetrics().horizontalAdvance(u'0') * field.shown +
                                std::max(frame, 14));
        }
        m_inputs.insert(name, edit);
        m_limits.insert(name, field.limit);
        connect(edit, &QLineEdit::textChanged, this, [this, name] { textChanged(name); });
    }
}

QLineEdit* SheetDesk::input(const QString& name) const {
    return m_inputs.value(name);
}

QString SheetDesk::text(const QString& name) const {
    const QLineEdit* edit = input(name);
    return edit->inputMask().isEmpty() ? edit->text() : edit->displayText();
}

void SheetDesk::setText(const QString& name, const QString& value) {
    QLineEdit* edit = input(name);
    if (auto* masked = qobject_cast<MaskedField*>(edit)) {
        masked->setValue(value);
        return;
    }
    edit->setMaxLength(std::max(m_limits.value(name), static_cast<int>(value.size())));
    edit->setText(value);
    edit->setCursorPosition(0);
}

void SheetDesk::setLimit(const QString& name, int limit) {
    m_limits.insert(name, limit);
    setText(name, text(name));
}

void SheetDesk::textChanged(const QString& name) {
    const FieldRules rules = m_rules.value(name);
    if (rules.changed && !m_writing) quietlyGuarded(rules.changed);
    for (const auto& show : rules.shown)
        quietlyGuarded(show);
}

void SheetDesk::link(const QString& name, const QString& previous, const QString& next) {
    rules(name).key = [this, previous, next](int key) {
        if (key == Qt::Key_Return || key == Qt::Key_Down) {
            SelectAll(input(next));
            return true;
        }
        if (key == Qt::Key_Up) {
            SelectAll(input(previous));
            return true;
        }
        return false;
    };
}

void SheetDesk::read(SheetFields& fields) const {
    for (const SheetFieldName& field : sheetFieldNames())
        if (const QString name = QString::fromLatin1(field.name); m_inputs.contains(name))
            field.of(fields) = text(name);
}

void SheetDesk::write(const SheetFields& fields) {
    m_writing = true;
    SheetFields copy = fields;
    for (const SheetFieldName& field : sheetFieldNames())
        if (const QString name = QString::fromLatin1(field.name); m_inputs.contains(name))
            setText(name, field.of(copy));
    m_writing = false;
}

bool SheetDesk::guarded(const std::function<void()>& work) {
    try {
        work();
        return true;
    } catch (const Fault& fault) {
        station.dialogue.tell(fault.text(), u"Hiba"_s);
        return false;
    }
}

void SheetDesk::quietlyGuarded(const std::function<void()>& work) {
    try {
        work();
    } catch (const Fault& fault) {
        if (m_told.contains(fault.text())) return;
        m_told.insert(fault.text());
        station.dialogue.tell(fault.text(), u"Hiba"_s);
    }
}

bool SheetDesk::leaveField(const SheetField& field) {
    const QString name = QString::fromLatin1(field.name);
    bool good = true;
    guarded([&] {
        static constexpr std::pair<FieldDate, DateField> checkedDates[] = {
            {FieldDate::birth, DateField::birth},
            {FieldDate::referral, DateField::referral},
            {FieldDate::care, DateField::care},
            {FieldDate::exemptionExpiry, DateField::exemptionExpiry}};
        for (const auto& [kind, check] : checkedDates) {
            if (field.date != kind) continue;
            if (const std::optional<CheckFailure> failure = checkDateField(check, text(name))) {
                tell(station.dialogue, *failure);
                good = false;
                return;
            }
        }
        if (field.zeroWhenEmpty && text(name).trimmed().isEmpty()) setText(name, u"0"_s);
        const FieldVerdict verdict = checkField(station, name, text(name), altEng, !correction);
        if (verdict.value != text(name)) setText(name, verdict.value);
        if (verdict.failure) {
            tell(station.dialogue, *verdict.failure);
            good = false;
            return;
        }
        const FieldRules rules = m_rules.value(name);
        if (rules.leave) good = rules.leave();
    });
    return good;
}

void SheetDesk::buildChain(const std::function<void(PickMarker, QLineEdit*)>& openList) {
    for (const SheetField& field : sheetFieldTable()) {
        const QString name = QString::fromLatin1(field.name);
        QLineEdit* edit = input(name);
        const FieldRules rules = m_rules.value(name);
        FieldBehaviour behaviour;
        behaviour.numeric = field.numeric;
        behaviour.key = rules.key;
        behaviour.leave = [this, &field] { return leaveField(field); };
        if (rules.help) {
            behaviour.help = rules.help;
        } else if (field.list != PickMarker::none) {
            const PickMarker list = field.list;
            behaviour.help = [openList, list, edit] { openList(list, edit); };
        }
        if (field.place == FieldPlace::aside)
            chain.adopt(edit, behaviour);
        else
            chain.add(edit, behaviour);
    }
}

QLabel* SheetDesk::makeDataLabel(const QString& objectName, QWidget* parent) {
    auto* label = new ElidedLabel(parent);
    label->setObjectName(objectName);
    return label;
}

QLabel* SheetDesk::makeMeaning(const QString& field) {
    QLabel* label = makeDataLabel(field + u"_nev"_s);
    const PickMarker marker = sheetField(field)->list;
    rules(field).shown.push_back([this, field, marker, label] {
        const QString code = text(field).trimmed();
        const CodeList& list = codeList(marker);
        QString meaning;
        for (const QString& entry : list.entries)
            if (!code.isEmpty() && code.compare(entry.left(list.width), Qt::CaseInsensitive) == 0)
                meaning = entry.mid(list.width + 1).trimmed();
        label->setText(meaning);
    });
    return label;
}

} // namespace vandrel
