// Data files whose bytes were changed at random: the program names the file before it makes a report from it,
// or the report is the right one. VANDREL_MUTANTS raises their number, VANDREL_MUTANT_SHEETS the size of the
// file (1000 sheets are about 0.5 MB), VANDREL_SEED repeats a run.
#include "foundation/start_checks.h"
#include "reports/report_run.h"
#include "support/report_data.h"

#include <QDir>
#include <QFile>

#include <random>

using namespace Qt::StringLiterals;

namespace vandrel::test {

namespace {

constexpr qsizetype pageSize = 4096;

int setting(const char* name, int usual) {
    return qEnvironmentVariableIsSet(name) ? qEnvironmentVariableIntValue(name) : usual;
}

// One of the ways in which disks, cables and copies damage a file.
QByteArray mutated(QByteArray bytes, std::mt19937& random) {
    const auto below = [&random](qsizetype limit) {
        return static_cast<qsizetype>(random() % static_cast<unsigned>(limit));
    };
    const qsizetype pages = bytes.size() / pageSize;
    const qsizetype page = below(pages) * pageSize;
    switch (below(6)) {
    case 0: // single bits
        for (qsizetype i = 0; i <= below(3); ++i) {
            const qsizetype at = below(bytes.size());
            bytes[at] = static_cast<char>(bytes[at] ^ (1 << below(8)));
        }
        break;
    case 1: // a sector of noise
        for (qsizetype i = 0; i < 512; ++i)
            bytes[page + i] = static_cast<char>(random());
        break;
    case 2: // a page of zeros
        bytes.replace(page, pageSize, QByteArray(pageSize, '\0'));
        break;
    case 3: // a page in another one's place
        bytes.replace(page, pageSize, bytes.mid(below(pages) * pageSize, pageSize));
        break;
    case 4: // an end that is missing
        bytes.truncate(page);
        break;
    default: // the head of a page
        for (qsizetype i = 0; i < 12; ++i)
            if (below(3) == 0) bytes[page + i] = static_cast<char>(random());
    }
    return bytes;
}

// Everything but plain values: which rows there are, and the values that an index holds too.
QString shapeOf(Database& data) {
    QString shape;
    for (const char* sql :
         {"select count(*), group_concat(rowid || AZONOSITO || coalesce(F_DATUM, '')) from BETEG",
          "select count(*), group_concat(rowid || Azonosito) from EUSZOLG",
          "select count(*), group_concat(rowid || ID) from Paciensek"}) {
        Query query = data.query(sql);
        if (query.next()) shape += query.text(0) + query.text(1) + '|'_L1;
    }
    return shape;
}

} // namespace

TEST(Mutants, NoReportFromADamagedFileIsCalledGood) {
    const int mutants = setting("VANDREL_MUTANTS", 40);
    const int sheets = setting("VANDREL_MUTANT_SHEETS", 1000);
    const auto seed = static_cast<unsigned>(setting("VANDREL_SEED", 20080403));
    TestWorkstation test(u"/no/archiver"_s);
    addReportMasterData(test);
    QDir(test.directory.path()).mkdir(u"cel"_s);
    test.workstation.reportTarget = test.path(u"cel/"_s);
    test.data().executeScript(
        "begin; with recursive n(i) as (select 1 union all select i+1 from n where i<" +
        std::to_string(sheets) +
        ") insert into BETEG (AZONOSITO, PaciensId, F_DATUM, F_IDO, FLOPPY, JAV, SZAKREND, NAPLO, ORVKOD, "
        "DIAG1) "
        "select printf('TST%07d', i), 1 + i % 2, printf('2008.%02d.%02d.', 1 + i % 3, 1 + i % 28), "
        "'08:00:00', 0, "
        "'0', '010000001', i, '12345', 'I10H0' from n; insert into EUSZOLG select AZONOSITO, '11041', 1, 'A' "
        "from "
        "BETEG; insert into EUSZOLG select AZONOSITO, '12345', 2, 'A' from BETEG; commit;");
    const QString path = test.path(u"tetdata.mdb"_s);
    test.dialogue.takeAll();
    const auto report = [&] {
        QFile::remove(test.path(u"tetN123.amb"_s));
        ReportProgress quiet;
        const QString march = u"2008.03"_s;
        return runReport(test.workstation, {u"0"_s, march, march, {}}, quiet).complete;
    };
    test.workstation.files.closeAll();
    const QByteArray good = fileBytes(path);
    ASSERT_TRUE(report());
    ASSERT_TRUE(test.dialogue.boxes.empty()) << "a whole file is called damaged";
    const QByteArray goodReport = fileBytes(test.path(u"tetN123.amb"_s));
    test.workstation.files.closeAll();
    makeFile(path, good);
    const QString goodShape = shapeOf(test.data());

    std::mt19937 random(seed);
    int named = 0, right = 0, values = 0;
    for (int mutant = 0; mutant < mutants; ++mutant) {
        test.workstation.files.closeAll();
        QFile::remove(path + u"-journal"_s);
        makeFile(path, mutated(good, random));
        test.dialogue.boxes.clear();
        if (!examineDataFiles(test.workstation)) {
            ++named;
            continue;
        }
        // A box about a damaged file is answered with yes here: that it was shown is what counts.
        const bool complete = report();
        bool told = !complete;
        for (const Message& box : test.dialogue.boxes)
            told = told || box.text.contains(u"sérült"_s);
        if (told)
            ++named;
        else if (fileBytes(test.path(u"tetN123.amb"_s)) == goodReport)
            ++right;
        else if (shapeOf(test.data()) == goodShape)
            ++values;
        else
            ADD_FAILURE() << "mutant " << mutant << " of VANDREL_SEED=" << seed << " was called good";
    }
    std::printf(
        "%d mutants of %lld bytes: %d named, %d with the right report, %d with a changed plain value\n",
        mutants, static_cast<long long>(good.size()), named, right, values);
    EXPECT_GT(named, mutants / 2);
}

} // namespace vandrel::test
