#include "foundation/forms/frmAbout.h"

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

    auto* name = new QLabel(u"Vandrel Járóbeteg program"_s);
    QFont large = name->font();
    large.setPointSizeF(large.pointSizeF() * 1.6);
    large.setBold(true);
    name->setFont(large);
    auto* version = new QLabel(u"v2.25"_s);
    version->setObjectName(u"verzio"_s);
    auto* purpose = new QLabel(u"Járóbeteg-ellátás adatlapjai és havi jelentései"_s);

    m_machine = new QPlainTextEdit;
    m_machine->setObjectName(u"rendszerinformacio"_s);
    m_machine->setAccessibleName(u"Rendszerinformáció"_s);
    m_machine->setReadOnly(true);
    m_machine->setTabChangesFocus(true);
    m_machine->setMinimumSize(560, 230);
    m_machine->hide();

    auto* info = new QPushButton(u"&Rendszerinformáció"_s);
    info->setObjectName(u"cmdSysInfo"_s);
    info->setAccessibleName(u"Rendszerinformáció"_s);
    info->setMinimumWidth(180);
    auto* good = new QPushButton(u"Rendben"_s);
    good->setObjectName(u"cmdOK"_s);
    good->setAccessibleName(good->text());
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

void frmAbout::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        close();
    else if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) &&
             qobject_cast<QPushButton*>(focusWidget()) != nullptr)
        static_cast<QPushButton*>(focusWidget())->click();
    else
        WorkForm::keyPressEvent(event);
}

} // namespace vandrel
