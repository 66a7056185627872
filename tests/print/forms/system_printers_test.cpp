#include "platform/fault.h"
#include "print/forms/system_printers.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace vandrel::test {

// This machine may have printers; a number that is none of theirs is no printer.
TEST(SystemPrinters, WhatIsNotThereHasPaperButTakesNoJob) {
    SystemPrinters printers;
    const std::vector<PrinterEntry> all = printers.printers();
    for (const PrinterEntry& printer : all)
        EXPECT_NE(printer.deviceName, u"PDF fájl"_s);
    PrintJobSetup setup;
    for (const int wrong : {-1, static_cast<int>(all.size()), 32767}) {
        EXPECT_GT(printers.paper(wrong).width, 0);
        setup.printer = wrong;
        try {
            printers.begin(setup);
            ADD_FAILURE() << wrong;
        } catch (const Fault& fault) {
            EXPECT_EQ(fault.number(), fault::noPrinter);
        }
    }
}

} // namespace vandrel::test
