// Rows of labels and fields.
#include "foundation/forms/form_group.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>

namespace vandrel {

FormGroup::FormGroup(const QString& title, int labelWidth, QWidget* parent) : QGroupBox(title, parent) {
    m_grid = new QGridLayout(this);
    m_grid->setContentsMargins(10, 5, 10, 7);
    m_grid->setHorizontalSpacing(8);
    m_grid->setVerticalSpacing(5);
    m_grid->setColumnMinimumWidth(0, labelWidth);
    m_grid->setColumnStretch(1, 1);
}

void FormGroup::spread() {
    m_grid->setVerticalSpacing(9);
    m_grid->setContentsMargins(10, 8, 10, 10);
}

QLabel* FormGroup::plainLabel(const QString& text) {
    auto* label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    return label;
}

QHBoxLayout* FormGroup::addRow(const QString& label) {
    m_lastLabel = plainLabel(label);
    m_grid->addWidget(m_lastLabel, m_rows, 0);
    auto* row = new QHBoxLayout;
    row->setSpacing(6);
    m_grid->addLayout(row, m_rows, 1);
    ++m_rows;
    return row;
}

QHBoxLayout* FormGroup::addWideRow() {
    auto* row = new QHBoxLayout;
    row->setSpacing(6);
    m_grid->addLayout(row, m_rows, 0, 1, 2);
    ++m_rows;
    return row;
}

} // namespace vandrel
