// The workbook: read back through the parts of its package, as a spreadsheet program does.
#include "print/workbook_file.h"

#include "platform/fault.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace vandrel::test {

namespace {

QString part(const QString& workbook, const QString& name) {
    QProcess unzip;
    unzip.start(u"unzip"_s, {u"-p"_s, workbook, name});
    unzip.waitForFinished();
    return QString::fromUtf8(unzip.readAllStandardOutput());
}

} // namespace

TEST(WorkbookFile, TextsStayTextsAndNumbersNumbers) {
    DocumentTable table;
    table.setCaption(u"Forgalmi <napló>"_s, u"Időszak: 2008.03 - 2008.03"_s);
    table.addHeads({u"Név"_s, u"TAJ"_s, u"Összeg"_s}, 1);
    table.addRow({u"Őri & \"Ű\"\x01"_s, u"012345678"_s, u"-12,5"_s});
    table.addRow({u"=1+1"_s, {}, u"nincs"_s});
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"őszi.xlsx"_s);
    saveWorkbook(table, path);
    const QString sheet = part(path, u"xl/worksheets/sheet1.xml"_s);
    const auto text = [](const QString& place, const QString& content) {
        return u"<c r=\"%1\""_s.arg(place) + u"[^>]*t=\"inlineStr\"><is><t[^>]*>"_s +
               QRegularExpression::escape(content) + u"</t></is></c>"_s;
    };
    for (const QString& cell :
         {text(u"A1"_s, u"Forgalmi &lt;napló&gt;"_s), text(u"A2"_s, u"Időszak: 2008.03 - 2008.03"_s),
          text(u"C4"_s, u"Összeg"_s), text(u"A5"_s, u"Őri &amp; \"Ű\" "_s), text(u"B5"_s, u"012345678"_s),
          text(u"A6"_s, u"=1+1"_s), text(u"C6"_s, u"nincs"_s), u"<c r=\"C5\"><v>-12.5</v></c>"_s})
        EXPECT_TRUE(sheet.contains(QRegularExpression(cell))) << cell.toStdString() << sheet.toStdString();
    EXPECT_FALSE(sheet.contains(u"<f>"_s));
    EXPECT_TRUE(sheet.contains(u"ySplit=\"4\""_s)); // the heads stay in sight
}

TEST(WorkbookFile, IsWholeOrNotThere) {
    DocumentTable table;
    table.addHeads({u"a"_s}, 0);
    table.addRow({QString(40'000, u'x')});
    const QTemporaryDir folder;
    for (const QString& path : {folder.path(), folder.filePath(u"nincs/a.xlsx"_s), u"/dev/full"_s})
        EXPECT_THROW(saveWorkbook(table, path), Fault) << path.toStdString();
    const QString path = folder.filePath(u"a.xlsx"_s);
    saveWorkbook(table, path);
    EXPECT_TRUE(part(path, u"xl/worksheets/sheet1.xml"_s).contains(u"xxx…</t>"_s));
}

} // namespace vandrel::test
