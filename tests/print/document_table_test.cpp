#include "print/document_table.h"

#include "platform/fault.h"

#include <QFile>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace vandrel::test {

namespace {

QByteArray saved(const DocumentTable& table, DocumentTable::Encoding encoding) {
    const QTemporaryDir directory;
    const QString path = directory.filePath(u"tábla.csv"_s);
    table.save(path, encoding);
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("not there");
}

} // namespace

TEST(DocumentTable, Bytes) {
    using enum DocumentTable::Encoding;
    DocumentTable table;
    EXPECT_TRUE(table.isEmpty());
    EXPECT_EQ(saved(table, windows1250), "");
    EXPECT_EQ(saved(table, utf8), "\xEF\xBB\xBF");

    table.addRow({u"Név"_s, u"Érték;Ft"_s, {}});
    table.addRow({u"Őri \"Ű\""_s, u"12,50"_s, u"egy\r\nkettő\n"_s});
    table.addRow({u"漢😀x"_s, u"漢"_s, u"€'<b>"_s});
    table.addRow({});
    EXPECT_EQ(table.rowCount(), 4);
    EXPECT_EQ(table.unencodable(utf8), 0);
    EXPECT_EQ(table.unencodable(windows1250), 3); // a pair is one
    EXPECT_EQ(saved(table, utf8), "\xEF\xBB\xBFNév;\"Érték;Ft\";\r\n"
                                  "\"Őri \"\"Ű\"\"\";12,50;\"egy\r\nkettő\n\"\r\n"
                                  "漢😀x;漢;€'<b>\r\n"
                                  "\r\n");
    EXPECT_EQ(saved(table, windows1250), "N\xE9v;\"\xC9rt\xE9k;Ft\";\r\n"
                                         "\"\xD5ri \"\"\xDB\"\"\";12,50;\"egy\r\nkett\xF5\n\"\r\n"
                                         "??x;?;\x80'<b>\r\n"
                                         "\r\n");
    table.clear();
    EXPECT_TRUE(table.isEmpty());
    EXPECT_EQ(saved(table, windows1250), "");
}

TEST(DocumentTable, WhatASpreadsheetWouldCalculateStaysText) {
    DocumentTable table;
    table.addRow({u"=1+1"_s, u"+36 1"_s, u"-5"_s, u"-5,25"_s, u"-"_s, u"@x"_s, u"+7,"_s, u"a=b"_s});
    table.addRow({u"=\"x\";1"_s, u"-2+3"_s, u"'=1"_s});
    EXPECT_EQ(saved(table, DocumentTable::Encoding::utf8),
              "\xEF\xBB\xBF'=1+1;'+36 1;-5;-5,25;'-;'@x;'+7,;a=b\r\n"
              "\"'=\"\"x\"\";1\";'-2+3;'=1\r\n");
}

// Longer than what is kept as it was written.
TEST(DocumentTable, LongTable) {
    DocumentTable table;
    QByteArray expected;
    for (int row = 0; row < 60'000; ++row) {
        const QString number = QString::number(row);
        table.addRow({number, u"Árvíztűrő"_s});
        expected += number.toUtf8() + ";\xC1rv\xEDzt\xFBr\xF5\r\n";
    }
    EXPECT_EQ(table.rowCount(), 60'000);
    EXPECT_EQ(table.unencodable(DocumentTable::Encoding::windows1250), 0);
    EXPECT_TRUE(saved(table, DocumentTable::Encoding::windows1250) == expected);
    table.clear();
    EXPECT_EQ(saved(table, DocumentTable::Encoding::windows1250), "");
}

TEST(DocumentTable, RefusedTargets) {
    DocumentTable table;
    table.addRow({u"a"_s});
    const QTemporaryDir directory;
    const std::pair<QString, int> targets[] = {{directory.path(), fault::pathAccess},
                                               {directory.filePath(u"nincs/a.csv"_s), fault::pathNotFound},
                                               {u"/dev/full"_s, fault::pathAccess},
                                               {QString(), fault::pathAccess}};
    for (const auto& [path, number] : targets)
        try {
            table.save(path, DocumentTable::Encoding::utf8);
            ADD_FAILURE() << path.toStdString();
        } catch (const Fault& fault) {
            EXPECT_EQ(fault.number(), number) << path.toStdString();
        }
}

} // namespace vandrel::test
