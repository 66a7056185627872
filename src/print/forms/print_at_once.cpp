#include "print/forms/print_at_once.h"

#include "print/forms/printing_watch.h"
#include "print/print_fault.h"

#include <QDialog>
#include <QLabel>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace vandrel {

bool printAtOnce(qcPrinter& document, Dialogue& dialogue, QWidget* parent) {
    const QString title = u"Nyomtatás"_s;
    QDialog window(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint);
    window.setObjectName(u"nyomtatas"_s);
    window.setWindowTitle(title);
    auto* told = new QLabel(u"Nyomtatás..."_s);
    told->setObjectName(u"Allapot"_s);
    told->setAccessibleName(told->text());
    told->setMinimumWidth(told->fontMetrics().horizontalAdvance(u"9999 / 9999 oldal (Esc: megszakítás)"_s));
    told->setMargin(14);
    auto* column = new QVBoxLayout(&window);
    column->addWidget(told);
    try {
        if (document.engine().service.printers().empty())
            throw Fault(fault::noPrinter, u"Nincs telepítve nyomtató!"_s);
        PrintingWatch watch(document.engine(), dialogue, [&](int page, int total) {
            told->setText(u"%1 / %2 oldal (Esc: megszakítás)"_s.arg(page).arg(total));
            told->setAccessibleName(told->text());
            window.show();
            told->repaint();
        });
        return document.PrintDoc(1, document.Pages(), 1, true, document.engine().printer.number());
    } catch (const Fault& fault) {
        window.hide();
        dialogue.tell(printFaultText(fault), title,
                      fault.number() == fault::noPrinter ? Icon::critical : Icon::warning);
        return false;
    }
}

} // namespace vandrel
