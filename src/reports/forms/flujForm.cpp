#include "reports/forms/flujForm.h"

#include "foundation/forms/field_chain.h"
#include "foundation/forms/form_parts.h"
#include "foundation/forms/masked_field.h"
#include "foundation/forms/progress_line.h"
#include "reports/write_back.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

QRadioButton* option(const QString& text) {
    return named(new QRadioButton(text), QString(text).replace(u"í"_s, u"i"_s).replace(u"ő"_s, u"o"_s), text);
}

} // namespace

flujForm::flujForm(Workstation& station, QWidget* opener) : WorkForm(station, opener) {
    setObjectName(u"flujForm"_s);
    setWindowTitle(u"Floppy mezők visszaírása"_s);

    const QString period = u"Időszak (éééé.hh): "_s;
    const auto field = [&](const QString& name, const QString& end) {
        auto* result = named(new MaskedField(MaskedField::Mask::period), name, period + end);
        result->setFixedWidth(result->fontMetrics().horizontalAdvance(u"0000.00"_s) + 26);
        return result;
    };
    m_from = field(u"IdoszakTol"_s, u"-tól"_s);
    m_to = field(u"IdoszakIg"_s, u"-ig"_s);
    auto* periodRow = new QHBoxLayout;
    periodRow->addWidget(makeLabel(period, m_from));
    periodRow->addWidget(m_from);
    periodRow->addWidget(new QLabel(u"-"_s));
    periodRow->addWidget(m_to);
    periodRow->addStretch();

    auto* options = new QGroupBox;
    auto* optionRow = new QHBoxLayout(options);
    m_original = option(u"Eredeti"_s);
    m_corrected = option(u"Javított"_s);
    m_both = option(u"Mindkettő"_s);
    m_original->setChecked(true);
    for (QRadioButton* choice : {m_original, m_corrected, m_both})
        optionRow->addWidget(choice);

    const QString start = u"Visszaállítás"_s;
    m_start = makeButton(u"Visszaallitas"_s, start, fontMetrics().horizontalAdvance(start) + 40);
    m_line = new ProgressLine(*this, ProgressLine::Figure::count, u"Darab"_s, u"Visszaírt adatlapok"_s);
    auto* buttonRow = new QHBoxLayout;
    buttonRow->addStretch();
    buttonRow->addWidget(m_start);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(18, 16, 18, 14);
    column->setSpacing(12);
    column->addLayout(periodRow);
    column->addWidget(options);
    column->addWidget(m_line);
    column->addLayout(buttonRow);
    setMinimumWidth(460);

    auto* chain = new FieldChain(this);
    FieldBehaviour numeric;
    numeric.numeric = true;
    chain->add(m_from, numeric);
    chain->add(m_to, numeric);
    // Enter goes on from an option too; the arrows choose among them.
    FieldBehaviour onward;
    onward.key = [this](int key) {
        if (key != Qt::Key_Return) return false;
        SelectAll(m_start);
        return true;
    };
    for (QRadioButton* choice : {m_original, m_corrected, m_both})
        chain->adopt(choice, onward);
    chain->add(m_start, pressOnEnter(m_start));
    QWidget* previous = m_from;
    for (QWidget* next : std::initializer_list<QWidget*>{m_to, m_original, m_corrected, m_both, m_start}) {
        setTabOrder(previous, next);
        previous = next;
    }
    connect(m_start, &QPushButton::clicked, this, &flujForm::writeBack);
    SelectAll(m_from);
}

void flujForm::writeBack() {
    const WriteBack option = m_original->isChecked()    ? WriteBack::original
                             : m_corrected->isChecked() ? WriteBack::corrected
                                                        : WriteBack::both;
    WriteBackOutcome outcome;
    {
        const Run guard(*this);
        if (!guard) return;
        m_start->setEnabled(false);
        m_line->clear();
        outcome = writeBackMarks(station(), m_from->value(), m_to->value(), option,
                                 [this](qint64 position, qint64 total) { m_line->moved(position, total); });
        m_start->setEnabled(true);
    }
    if (outcome.field == "from"_L1)
        SelectAll(m_from);
    else if (outcome.field == "to"_L1)
        SelectAll(m_to);
    else
        m_start->setFocus();
}

} // namespace vandrel
