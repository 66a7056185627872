#include "settings/forms/gepazonform.h"

#include "foundation/forms/field_chain.h"
#include "foundation/look_ups.h"
#include "settings/institution.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace vandrel {

gepazonform::gepazonform(Workstation& station, QWidget* opener)
    : WorkForm(station, opener), m_label(new QLineEdit) {
    setObjectName(QStringLiteral("gepazonform"));
    setWindowTitle(QStringLiteral("Gépazonosító"));

    m_label->setObjectName(QStringLiteral("Gepazon"));
    m_label->setAccessibleName(QStringLiteral("Gépazonosító"));
    m_label->setMaxLength(3);
    m_label->setFixedWidth(m_label->fontMetrics().averageCharWidth() * 10);
    m_label->setText(workstationLabel(station));
    auto* caption = new QLabel(QStringLiteral("Gépazonosító"));
    caption->setBuddy(m_label);

    auto* keep = new QPushButton(QStringLiteral("&Tárol"));
    keep->setObjectName(QStringLiteral("Tarol"));
    keep->setAccessibleName(QStringLiteral("Tárol"));
    connect(keep, &QPushButton::clicked, this, &gepazonform::store);
    auto* leave = new QPushButton(QStringLiteral("&Mégse"));
    leave->setObjectName(QStringLiteral("Megse"));
    leave->setAccessibleName(QStringLiteral("Mégse"));
    connect(leave, &QPushButton::clicked, this, &gepazonform::close);

    auto* row = new QHBoxLayout;
    row->addWidget(caption);
    row->addWidget(m_label);
    row->addStretch();
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(keep);
    buttons->addWidget(leave);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(20, 18, 20, 14);
    column->setSpacing(18);
    column->addLayout(row);
    column->addLayout(buttons);
    setMinimumWidth(340);
    auto* chain = new FieldChain(this);
    chain->add(m_label);
    chain->add(keep, pressOnEnter(keep));
    chain->adopt(leave, pressOnEnter(leave));
    setTabOrder(keep, leave);
    SelectAll(m_label);
}

void gepazonform::store() {
    if (!storeWorkstationLabel(station(), m_label->text())) {
        SelectAll(m_label);
        return;
    }
    close();
}

void gepazonform::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        close();
    else
        WorkForm::keyPressEvent(event);
}

} // namespace vandrel
