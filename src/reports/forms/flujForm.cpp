#include "reports/forms/flujForm.h"

#include "foundation/forms/field_chain.h"
#include "foundation/forms/masked_field.h"
#include "reports/write_back.h"

#include <QCloseEvent>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace vandrel {

namespace {

constexpr int barSteps = 1000;

QRadioButton* option(const QString& text) {
    auto* result = new QRadioButton(text);
    result->setObjectName(QString(text).replace(u"í"_s, u"i"_s).replace(u"ő"_s, u"o"_s));
    result->setAccessibleName(text);
    return result;
}

} // namespace

flujForm::flujForm(Workstation& station, QWidget* opener) : WorkForm(station, opener) {
    setObjectName(u"flujForm"_s);
    setWindowTitle(u"Floppy mezők visszaírása"_s);

    const QString period = u"Időszak (éééé.hh): "_s;
    const auto field = [&](const QString& name, const QString& end) {
        auto* result = new MaskedField(MaskedField::Mask::period);
        result->setObjectName(name);
        result->setAccessibleName(period + end);
        result->setFixedWidth(result->fontMetrics().horizontalAdvance(u"0000.00"_s) + 26);
        return result;
    };
    m_from = field(u"IdoszakTol"_s, u"-tól"_s);
    m_to = field(u"IdoszakIg"_s, u"-ig"_s);
    auto* label = new QLabel(period);
    label->setBuddy(m_from);
    auto* periodRow = new QHBoxLayout;
    periodRow->addWidget(label);
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

    m_start = new QPushButton(u"Visszaállítás"_s);
    m_start->setObjectName(u"Visszaallitas"_s);
    m_start->setAccessibleName(m_start->text());
    m_start->setMinimumWidth(m_start->fontMetrics().horizontalAdvance(m_start->text()) + 40);
    m_bar = new QProgressBar;
    m_bar->setObjectName(u"Folyamat"_s);
    m_bar->setAccessibleName(u"A visszaírás állása"_s);
    m_bar->setRange(0, barSteps);
    m_bar->setValue(0);
    m_bar->setTextVisible(false);
    m_count = new QLabel;
    m_count->setObjectName(u"Darab"_s);
    m_count->setAccessibleName(u"Visszaírt adatlapok"_s);
    m_count->setMinimumWidth(m_count->fontMetrics().horizontalAdvance(u"0000000 / 0000000"_s));
    auto* barRow = new QHBoxLayout;
    barRow->addWidget(m_bar, 1);
    barRow->addWidget(m_count);
    auto* buttonRow = new QHBoxLayout;
    buttonRow->addStretch();
    buttonRow->addWidget(m_start);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(18, 16, 18, 14);
    column->setSpacing(12);
    column->addLayout(periodRow);
    column->addWidget(options);
    column->addLayout(barRow);
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
    if (m_running) return;
    m_running = true;
    m_start->setEnabled(false);
    m_bar->setValue(0);
    m_count->clear();
    const WriteBack option = m_original->isChecked()    ? WriteBack::original
                             : m_corrected->isChecked() ? WriteBack::corrected
                                                        : WriteBack::both;
    const WriteBackOutcome outcome = writeBackMarks(
        station(), m_from->value(), m_to->value(), option, [this](qint64 position, qint64 total) {
            m_bar->setValue(static_cast<int>(position * barSteps / total));
            m_count->setText(u"%1 / %2"_s.arg(position).arg(total));
        });
    m_running = false;
    m_start->setEnabled(true);
    if (outcome.field == "from"_L1)
        SelectAll(m_from);
    else if (outcome.field == "to"_L1)
        SelectAll(m_to);
    else
        m_start->setFocus();
}

void flujForm::closeEvent(QCloseEvent* event) {
    if (m_running || !isEnabled()) {
        event->ignore();
        return;
    }
    WorkForm::closeEvent(event);
}

void flujForm::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        close();
    else
        WorkForm::keyPressEvent(event);
}

} // namespace vandrel
