// Records of fixed columns: alignments, cuts and blank tests, and the table beside its document.
#include "reports/record_table.h"

#include "platform/fault.h"
#include "support/test_workstation.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

using namespace vandrel;
using namespace vandrel::test;

TEST(RecordTable, AlignmentsAndBlankTests) {
    static constexpr RecordColumn columns[] = {
        {"a", 4, Align::right, BlankTest::null},      {"b", 4, Align::zeros, BlankTest::never},
        {"c", 4, Align::left, BlankTest::blanks},     {"d", 4, Align::leftCut, BlankTest::never},
        {"e", 2, Align::right, BlankTest::null, "a"},
    };
    const RecordFormatter formatter(columns);
    const std::optional<std::string_view> null;
    const struct {
        std::vector<RecordFormatter::Value> values;
        const char* line; // in the code page
    } cases[] = {
        {{"x", "7", "x", "x", "y"}, "   x0007x   x    y"},
        {{"", " ", " ", "", "y"},
         "    000"
         "          y"},
        {{null, null, null, null, "y"}, "    0000          "},
        {{"\u0151z", "1234", "\u0151", "abcdef", ""}, "  \xF5z1234\xF5   abcd  "},
        {{"x", "0", "x", "\u00E1bc\u0171\u0171", "y"},
         "   x0000x   \xE1"
         "bc\xFB y"},
    };
    for (const auto& expected : cases) {
        std::string line = "before ";
        formatter.append(line, expected.values);
        EXPECT_EQ(line, "before " + std::string(expected.line));
    }
    // Only the last kind is cut: elsewhere a longer value ends the line in front of its column.
    for (std::size_t i = 0; i < 3; ++i) {
        std::vector<RecordFormatter::Value> values(5, "x");
        values[i] = "12345";
        std::string line;
        EXPECT_EQ(faultNumberOf([&] { formatter.append(line, values); }), fault::invalidCall);
        EXPECT_EQ(line.size(), 4 * i);
    }
}

// docs/formats.md says of every column where it begins, how wide it is and what pads it.
TEST(RecordTable, TheDocumentSaysTheSame) {
    const QString text = QString::fromUtf8(fileBytes(QStringLiteral(VANDREL_SOURCE_DIR "/docs/formats.md")));
    std::size_t place = 1;
    for (const RecordColumn& column : originalRecord) {
        const QString name = QString::fromLatin1(column.column.data(), qsizetype(column.column.size()));
        const QString padding = column.align == Align::zeros ? u"zeros"_s : u"blanks"_s;
        QString start = QString::number(place), width = QString::number(column.width), documented = name;
        if (name.contains('_'_L1) && name.back().isDigit()) {
            const int number = name.back().digitValue();
            documented = name.chopped(1) + 'k'_L1;
            if (name.startsWith("Bno"_L1)) {
                documented = u"Bno_1"_s;
                start = u"[0-9, ]*\\b%1\\b[0-9, ]*"_s.arg(place);
                width += u" each"_s;
            } else {
                start = QString::number(place - 8 * std::size_t(number - 1)) + u" \\+ 8 \\(k - 1\\)"_s;
            }
        }
        const QRegularExpression row(
            u"\\| %1 \\| %2 \\| `%3`[^|]* \\| %4 \\|"_s.arg(start, width, documented, padding));
        EXPECT_TRUE(row.match(text).hasMatch()) << row.pattern().toStdString();
        place += column.width;
    }
}
