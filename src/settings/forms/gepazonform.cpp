#include "settings/forms/gepazonform.h"

#include "foundation/forms/field_chain.h"
#include "foundation/forms/form_parts.h"
#include "foundation/look_ups.h"
#include "settings/institution.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace vandrel {

gepazonform::gepazonform(Workstation& station, QWidget* opener)
    : WorkForm(station, opener), m_label(new QLineEdit) {
    setObjectName(u"gepazonform"_s);
    setWindowTitle(u"Gépazonosító"_s);

    named(m_label, u"Gepazon"_s, u"Gépazonosító"_s);
    m_label->setMaxLength(3);
    m_label->setFixedWidth(m_label->fontMetrics().averageCharWidth() * 10);
    m_label->setText(workstationLabel(station));

    auto* keep = makeButton(u"Tarol"_s, u"&Tárol"_s);
    connect(keep, &QPushButton::clicked, this, &gepazonform::store);
    auto* leave = makeButton(u"Kilepes"_s, u"&Kilépés"_s);
    connect(leave, &QPushButton::clicked, this, &gepazonform::close);

    auto* row = new QHBoxLayout;
    row->addWidget(makeLabel(u"Gépazonosító"_s, m_label));
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

} // namespace vandrel
