// What every form does with the rows of its field table.
#include "foundation/forms/field_set.h"

#include "foundation/checks.h"
#include "foundation/code_lists.h"
#include "foundation/field_checks.h"
#include "foundation/forms/elided_label.h"
#include "foundation/forms/masked_field.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <optional>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

std::optional<MaskedField::Mask> maskOf(FieldShape shape) {
    switch (shape) {
    case FieldShape::date:
        return MaskedField::Mask::date;
    case FieldShape::time:
        return MaskedField::Mask::time;
    case FieldShape::period:
        return MaskedField::Mask::period;
    case FieldShape::account:
        return MaskedField::Mask::account;
    case FieldShape::taxNumber:
        return MaskedField::Mask::taxNumber;
    case FieldShape::text:
    case FieldShape::password:
        break;
    }
    return std::nullopt;
}

QLineEdit* newInput(const FieldDescription& field) {
    if (const auto mask = maskOf(field.shape)) return new MaskedField(*mask);
    auto* edit = new QLineEdit;
    edit->setMaxLength(field.limit);
    if (field.shape == FieldShape::password) edit->setEchoMode(QLineEdit::Password);
    return edit;
}

void setShownWidth(QLineEdit* edit, int characters) {
    const int frame = edit->sizeHint().width() - edit->fontMetrics().horizontalAdvance(u'x') * 17;
    edit->setFixedWidth(edit->fontMetrics().horizontalAdvance(u'0') * characters + std::max(frame, 14));
}

std::optional<CheckFailure> complaint(DateCheck check, const QString& value) {
    switch (check) {
    case DateCheck::birth:
        return checkDateField(DateField::birth, value);
    case DateCheck::referral:
        return checkDateField(DateField::referral, value);
    case DateCheck::care:
        return checkDateField(DateField::care, value);
    case DateCheck::exemptionExpiry:
        return checkDateField(DateField::exemptionExpiry, value);
    case DateCheck::none:
        break;
    }
    return {};
}

} // namespace

FieldSetBase::FieldSetBase(Workstation& workstation, QWidget* form)
    : QObject(form), station(workstation), chain(this) {}

void FieldSetBase::makeInput(const FieldDescription& field, QWidget* form) {
    const std::size_t place = m_fields.size();
    m_fields.push_back({&field, nullptr, {}, field.limit});
    if (field.place == FieldPlace::none) return;
    QLineEdit* edit = newInput(field);
    edit->setParent(form);
    edit->setObjectName(QString::fromLatin1(field.name));
    edit->setAccessibleName(field.accessibleName().toString());
    if (field.shown > 0) setShownWidth(edit, field.shown);
    m_fields.back().input = edit;
    connect(edit, &QLineEdit::textChanged, this, [this, place] { textChanged(place); });
}

QString FieldSetBase::textOf(const QLineEdit* input) {
    return input->inputMask().isEmpty() ? input->text() : input->displayText();
}

void FieldSetBase::setTextAt(std::size_t place, const QString& value) {
    const Field& field = m_fields[place];
    if (auto* masked = qobject_cast<MaskedField*>(field.input)) {
        masked->setValue(value);
        return;
    }
    // Wide while the text changes: a limit below the old text would cut it first, which is a change too.
    field.input->setMaxLength(noLimit);
    field.input->setText(value);
    field.input->setMaxLength(std::max(field.limit, static_cast<int>(field.input->text().size())));
    field.input->setCursorPosition(0);
}

void FieldSetBase::setTextOf(const QLineEdit* input, const QString& value) {
    for (std::size_t place = 0; place < m_fields.size(); ++place)
        if (m_fields[place].input == input) setTextAt(place, value);
}

void FieldSetBase::setLimitAt(std::size_t place, int limit) {
    m_fields[place].limit = limit;
    setTextAt(place, textOf(inputAt(place)));
}

void FieldSetBase::linkAt(std::size_t place, QLineEdit* previous, QLineEdit* next) {
    rulesAt(place).key = [previous, next](int key) {
        if (key == Qt::Key_Return || key == Qt::Key_Down) {
            SelectAll(next);
            return true;
        }
        if (key == Qt::Key_Up) {
            SelectAll(previous);
            return true;
        }
        return false;
    };
}

void FieldSetBase::textChanged(std::size_t place) {
    // Copied: a rule may set rules.
    const FieldRules rules = m_fields[place].rules;
    if (rules.changed && !filling) quietlyGuarded(rules.changed);
    for (const auto& show : rules.shown)
        quietlyGuarded(show);
}

bool FieldSetBase::guarded(const std::function<void()>& work) {
    try {
        work();
        return true;
    } catch (const Fault& fault) {
        station.dialogue.tell(fault.text(), u"Hiba"_s);
        return false;
    }
}

void FieldSetBase::quietlyGuarded(const std::function<void()>& work) {
    try {
        work();
    } catch (const Fault& fault) {
        if (m_told.contains(fault.text())) return;
        m_told.insert(fault.text());
        station.dialogue.tell(fault.text(), u"Hiba"_s);
    }
}

bool FieldSetBase::leaveField(std::size_t place) {
    const FieldDescription& field = *m_fields[place].description;
    QLineEdit* input = inputAt(place);
    bool good = true;
    guarded([&] {
        if (const auto failure = complaint(field.dateCheck, textOf(input))) {
            tell(station.dialogue, *failure);
            good = false;
            return;
        }
        if (field.zeroWhenEmpty && input->text().trimmed().isEmpty()) setTextAt(place, u"0"_s);
        good = !check || check(field, input);
        const FieldRules rules = m_fields[place].rules;
        if (good && rules.leave) good = rules.leave();
    });
    return good;
}

void FieldSetBase::buildChain() {
    for (std::size_t place = 0; place < m_fields.size(); ++place) {
        const Field& field = m_fields[place];
        QLineEdit* input = field.input;
        if (input == nullptr) continue;
        const FieldDescription& description = *field.description;
        FieldBehaviour behaviour;
        behaviour.numeric = description.numeric;
        behaviour.key = field.rules.key;
        behaviour.leave = [this, place] { return leaveField(place); };
        if (field.rules.help)
            behaviour.help = field.rules.help;
        else if (description.list != PickMarker::none && m_aids.openList)
            behaviour.help = [this, list = description.list, input] { m_aids.openList(list, input); };
        else if (description.shape == FieldShape::date && m_aids.openCalendar)
            behaviour.help = [this, input] { m_aids.openCalendar(input); };
        if (description.place == FieldPlace::aside)
            chain.adopt(input, behaviour);
        else
            chain.add(input, behaviour);
    }
}

QLabel* FieldSetBase::makeLabel(const FieldDescription& field) {
    auto* label = new QLabel(field.label.toString());
    label->setTextFormat(Qt::PlainText);
    return label;
}

QLabel* FieldSetBase::makeDataLabel(const QString& objectName, QWidget* parent) {
    auto* label = new ElidedLabel(parent);
    label->setObjectName(objectName);
    return label;
}

QPushButton* FieldSetBase::makeCalendarButtonAt(std::size_t place) {
    QLineEdit* input = inputAt(place);
    auto* button = new QPushButton(u"▾"_s);
    button->setObjectName(input->objectName() + u"_naptar"_s);
    button->setAccessibleName(u"Naptár: "_s + input->accessibleName());
    button->setToolTip(u"Naptár (F1 a mezőben)"_s);
    button->setFixedWidth(26);
    button->setFocusPolicy(Qt::NoFocus); // the keyboard opens it with F1
    connect(button, &QPushButton::clicked, this, [this, input] {
        if (m_aids.openCalendar) m_aids.openCalendar(input);
    });
    return button;
}

QLabel* FieldSetBase::makeMeaningAt(std::size_t place) {
    QLineEdit* input = inputAt(place);
    QLabel* label = makeDataLabel(input->objectName() + u"_nev"_s);
    rulesAt(place).shown.push_back([input, label, marker = m_fields[place].description->list] {
        const QString code = textOf(input).trimmed();
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
