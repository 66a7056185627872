#include "print/document_table.h"

#include "platform/fault.h"

#include <QFile>
#include <QTemporaryDir>

namespace vandrel::test {

namespace {

QByteArray saved(const DocumentTable& table, DocumentTable::Encoding encoding) {
    const QTemporaryDir directory;
    const QString path = directory.filePath(QStringLiteral("tábla.csv"));
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

    table.addRow({QStringLiteral("Név"), QStringLiteral("Érték;Ft"), {}});
    table.addRow({QStringLiteral("Őri \"Ű\""), QStringLiteral("12,50"), QStringLiteral("egy\r\nkettő\n")});
    table.addRow({QStringLiteral("漢😀x"), QStringLiteral("漢"), QStringLiteral("€'<b>")});
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

// Longer than what is kept as it was written.
TEST(DocumentTable, LongTable) {
    DocumentTable table;
    QByteArray expected;
    for (int row = 0; row < 60'000; ++row) {
        const QString number = QString::number(row);
        table.addRow({number, QStringLiteral("Árvíztűrő")});
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
    table.addRow({QStringLiteral("a")});
    const QTemporaryDir directory;
    const std::pair<QString, int> targets[] = {
        {directory.path(), fault::pathAccess},
        {directory.filePath(QStringLiteral("nincs/a.csv")), fault::pathNotFound},
        {QStringLiteral("/dev/full"), fault::pathAccess},
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
