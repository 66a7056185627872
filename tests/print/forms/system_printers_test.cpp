#include "platform/fault.h"
#include "print/font_meter.h"
#include "print/forms/system_printers.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace vandrel::test {

// This machine may have printers; the PDF file stands behind them in any case.
TEST(SystemPrinters, ThePdfFileIsTheLastPrinter) {
    const QTemporaryDir directory;
    QStringList asked;
    QString answer;
    SystemPrinters printers([&](const QString& suggestion) {
        asked << suggestion;
        return answer;
    });
    const std::vector<PrinterEntry> all = printers.printers();
    ASSERT_FALSE(all.empty());
    EXPECT_EQ(all.back().deviceName, u"PDF fájl"_s);
    EXPECT_EQ(all.back().port, u"fájl:"_s);
    EXPECT_LT(printers.defaultPrinter(), static_cast<int>(all.size()));

    PrintJobSetup setup;
    setup.printer = static_cast<int>(all.size()) - 1;
    setup.title = u"Forgalmi napló"_s;
    const PrinterPaper paper = printers.paper(setup.printer);
    EXPECT_EQ(paper.code, 9);
    EXPECT_EQ(paper.width, 11906);
    EXPECT_EQ(paper.height, 16838);
    setup.width = paper.width;
    setup.height = paper.height;
    EXPECT_EQ(printers.begin(setup), nullptr); // given up
    EXPECT_EQ(asked, QStringList{u"Forgalmi napló.pdf"_s});

    answer = directory.filePath(asked.front());
    auto job = printers.begin(setup);
    ASSERT_NE(job, nullptr);
    job->page().rule(0, 1000, 1000, 20, 0);
    EXPECT_FALSE(QFile::exists(answer));
    job->endDoc();
    QFile file(answer);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.read(5), "%PDF-");

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
