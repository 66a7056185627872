#include "foundation/forms/frmAbout.h"

#include "foundation/forms/form_parts.h"
#include "platform/machine_info.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace vandrel {

frmAbout::frmAbout(Workstation& station, QWidget* opener) : WorkForm(station, opener) {
    setObjectName(u"frmAbout"_s);
    setWindowTitle(u"Névjegy"_s);

    auto* name = new QLabel(programTitle);
    QFont large = name->font();
    large.setPointSizeF(large.pointSizeF() * 1.6);
    large.setBold(true);
    name->setFont(large);
    auto* version = new ValueLabel(u"verzio"_s, u"Verzió"_s);
    version->setText(programVersion());
    auto* purpose = new QLabel(u"Járóbeteg-ellátás adatlapjai és havi jelentései"_s);

    m_machine = named(new QPlainTextEdit, u"rendszerinformacio"_s, u"Rendszerinformáció"_s);
    m_machine->setReadOnly(true);
    m_machine->setTabChangesFocus(true);
    m_machine->setMinimumSize(560, 230);
    m_machine->hide();

    auto* info = makeButton(u"cmdSysInfo"_s, u"&Rendszerinformáció"_s, 180);
    auto* good = makeButton(u"cmdOK"_s, u"Rendben"_s);
    connect(info, &QPushButton::clicked, this, &frmAbout::showMachine);
    connect(good, &QPushButton::clicked, this, &frmAbout::close);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(24, 20, 24, 16);
    column->setSpacing(10);
    column->addWidget(name);
    column->addWidget(version);
    column->addWidget(purpose);
    column->addWidget(m_machine);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(info);
    buttons->addStretch();
    buttons->addWidget(good);
    column->addSpacing(8);
    column->addLayout(buttons);
    setMinimumWidth(460);
    good->setFocus();
}

void frmAbout::showMachine() {
    QStringList lines;
    for (const auto& [name, value] : machineInfo(station().folder))
        lines << name + u": "_s + value;
    m_machine->setPlainText(lines.join('\n'_L1));
    m_machine->show();
    layout()->activate();
    resize(sizeHint()); // adjustSize() would stop at two thirds of a small screen
}

} // namespace vandrel
