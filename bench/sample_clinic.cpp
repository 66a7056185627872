#include "sample_clinic.h"

#include "foundation/data_files.h"
#include "foundation/look_ups.h"

#include <QDir>
#include <QFile>

#include <array>
#include <cstdarg>
#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

using namespace Qt::StringLiterals;

namespace vandrel::bench {

namespace {

constexpr int units = 40;
constexpr int doctors = 60;
constexpr int referrers = 300;
constexpr int procedures = 5'000;
constexpr int diagnoses = 14'000;
constexpr int towns = 3'000;

// The same numbers everywhere: the library's distributions differ between machines.
class Numbers {
  public:
    explicit Numbers(std::uint64_t seed) : m_state(seed) {}
    // 0 to limit - 1
    int below(int limit) {
        m_state = m_state * 6364136223846793005ULL + 1442695040888963407ULL;
        return static_cast<int>((m_state >> 33) % static_cast<std::uint64_t>(limit));
    }
    bool chance(int percent) { return below(100) < percent; }

  private:
    std::uint64_t m_state;
};

[[gnu::format(printf, 1, 2)]] std::string print(const char* format, ...) {
    char text[200];
    std::va_list values;
    va_start(values, format);
    std::vsnprintf(text, sizeof text, format, values);
    va_end(values);
    return text;
}

constexpr std::array surnames = {"Kovács",  "Szabó",   "Tóth",   "Nagy",   "Horváth", "Varga",
                                 "Kiss",    "Molnár",  "Németh", "Farkas", "Őri",     "Űrmösi",
                                 "Székely", "Lakatos", "Balogh", "Papp",   "Takács",  "Juhász"};
constexpr std::array givenNames = {"Anna",  "Éva",    "Ilona", "Katalin", "Mária",  "Zsófia",
                                   "Ágnes", "Béla",   "Gábor", "István",  "János",  "László",
                                   "Péter", "Sándor", "Ödön",  "Zoltán",  "Kázmér", "Őszike"};
constexpr std::array organs = {"szív", "tüdő", "máj",  "vese",  "gyomor", "bőr",
                               "szem", "fül",  "térd", "csípő", "gerinc", "kéz"};
constexpr std::array conditions = {
    "gyulladása",          "idült betegsége", "heveny fertőzése",         "zúzódása",
    "jóindulatú daganata", "működési zavara", "fejlődési rendellenessége"};
constexpr std::array treatments = {"ultrahang vizsgálata", "röntgenfelvétele",
                                   "kontrollvizsgálata",   "kezelése",
                                   "műtéti ellátása",      "laborvizsgálata"};

template<std::size_t size>
const char* one(const std::array<const char*, size>& from, Numbers& numbers) {
    return from[static_cast<std::size_t>(numbers.below(static_cast<int>(size)))];
}

std::string unitCode(int unit) {
    return print("%06d%03d", 120'000 + unit * 37, 100 + unit);
}
std::string doctorCode(int doctor) {
    return print("%05d", 40'001 + doctor * 117);
}
std::string referrerCode(int referrer) {
    return print("%09d", 990'000'000 + referrer * 811);
}
std::string procedureCode(int procedure) {
    return print("%05d", 11'000 + procedure * 17);
}
std::string diagnosisCode(int diagnosis) {
    return print("%c%04d", 'A' + diagnosis / 700, diagnosis % 700 * 14);
}
// A valid TAJ for each number below ten million; neighbours lie far apart.
std::string taj(int number) {
    const int shuffled =
        static_cast<int>((static_cast<std::int64_t>(number) * 7'654'321 + 1'234'567) % 99'999'989);
    const std::string digits = print("%08d", shuffled);
    int sum = 0;
    for (int i = 0; i < 8; ++i)
        sum += (digits[static_cast<std::size_t>(i)] - '0') * (i % 2 == 0 ? 3 : 7);
    return digits + static_cast<char>('0' + sum % 10);
}

// Bulk writing: nothing that is broken off here is worth keeping.
void hurry(Database& database) {
    database.executeScript("pragma synchronous=off; pragma journal_mode=off; pragma cache_size=-200000;");
}

void fillDictionaries(DataFiles& files) {
    Numbers numbers(1);
    {
        Database& database = files[DataFile::tetmod];
        hurry(database);
        Transaction transaction(database);
        for (int i = 0; i < units; ++i)
            database.execute("insert into SZAKREND (REND_KOD, REND_NEV, SZORZO) values (?1, ?2, 1.0)",
                             unitCode(i), print("%d. számú %s szakrendelés", i + 1, one(organs, numbers)));
        for (int i = 0; i < doctors; ++i)
            database.execute("insert into ORVOSOK (ORVKOD, NEV) values (?1, ?2)", doctorCode(i),
                             print("Dr. %s %s", one(surnames, numbers), one(givenNames, numbers)));
        for (int i = 0; i < referrers; ++i)
            database.execute("insert into BEKULDO (KOD, NEV) values (?1, ?2)", referrerCode(i),
                             print("%d. számú körzet", i + 1));
        for (int i = 0; i < towns; ++i)
            database.execute("insert into IRSZ (IRSZ, NEV) values (?1, ?2)", print("%04d", 1000 + i * 2),
                             print("Mintafalu %d", i + 1));
        database.execute("insert into ALLAMPOL (ORSZAG, ROV, EUKOD) values ('Magyarország', 'HUN', 'HU')");
        for (int i = 0; i < 8; ++i)
            database.execute("insert into FUNKCIO (FUNKCIO, BEAVKOD) values (?1, ?2)",
                             print("F%d - %d", i + 2, i), procedureCode(i));
        transaction.commit();
    }
    {
        Database& database = files[DataFile::beav];
        hurry(database);
        Transaction transaction(database);
        for (int i = 0; i < procedures; ++i)
            database.execute("insert into BEAV (BEAV_KOD, BEAV_NEV, NEMET_PONT, SPACE19, SPACE20, TIPUS) "
                             "values (?1, ?2, ?3, ' ', ' ', ' ')",
                             procedureCode(i),
                             print("%s %s %d", one(organs, numbers), one(treatments, numbers), i),
                             50 + numbers.below(4'000));
        transaction.commit();
    }
    Database& database = files[DataFile::diagnos];
    hurry(database);
    Transaction transaction(database);
    for (int i = 0; i < diagnoses; ++i)
        database.execute("insert into DIAGNOS (D_KOD, D_NEV, D_NEM, D_ALSO, D_FELSO, FLAG, D_JEL) "
                         "values (?1, ?2, ' ', '000', '999', ' ', ' ')",
                         diagnosisCode(i),
                         print("A %s %s, %d. alak", one(organs, numbers), one(conditions, numbers), i));
    transaction.commit();
}

void fillPatients(Database& database, int patients) {
    Numbers numbers(2);
    Query row =
        database.query("insert into Paciensek values (?1,?2,?3,?4,?5,?6,?7,?8,?9,?10,?11,?12,?13,?14)");
    for (int i = 1; i <= patients; ++i) {
        row.bind(1, i).bind(2, taj(i)).bind(3, "1").bind(4, numbers.chance(50) ? "1" : "2");
        row.bind(5, print("%04d.%02d.%02d.", 1920 + numbers.below(88), 1 + numbers.below(12),
                          1 + numbers.below(28)));
        row.bind(6, print("%s %s", one(surnames, numbers), one(givenNames, numbers)));
        const int town = numbers.below(towns);
        row.bind(7, print("%04d", 1000 + town * 2)).bind(8, print("Mintafalu %d", town + 1));
        row.bind(9, print("Fő utca %d.", 1 + numbers.below(200)));
        row.bind(10, print("%s %s", one(surnames, numbers), one(givenNames, numbers)));
        if (numbers.chance(30))
            row.bind(11, print("%s %s", one(surnames, numbers), one(givenNames, numbers)));
        else
            row.bind(11, numbers.chance(50) ? " " : "");
        row.bind(12, "HUN");
        if (numbers.chance(10))
            row.bind(13, print("%09d", numbers.below(999'999'999))).bind(14, "2009.12.31.");
        else if (numbers.chance(50))
            row.bind(13, "").bind(14, "    .  .  .");
        else
            row.bind(13, nullptr).bind(14, nullptr);
        row.run();
    }
    database.execute("update Utolsok set UTPaciens=?1", patients);
}

struct Visit {
    int year, month;
    bool correction;
};

// The visits in stored order: month after month, each hundredth followed by a correction, and of every month
// one visit in thirty entered among those of the next one.
std::vector<Visit> visits(int sheets) {
    std::vector<Visit> result;
    const int earlier = sheets - smallMonthSheets - largeMonthSheets;
    const int months = 61; // January 2003 to January 2008
    const auto month = [&](int year, int number, int count) {
        for (int i = 0; i < count; ++i) {
            result.push_back({year, number, false});
            if (i % 100 == 99) result.push_back({year, number, true});
        }
    };
    for (int i = 0; i < months; ++i)
        month(2003 + i / 12, 1 + i % 12, earlier / months + (i < earlier % months ? 1 : 0));
    month(2008, 2, smallMonthSheets);
    month(2008, 3, largeMonthSheets);
    for (std::size_t i = 0; i + 700 < result.size(); i += 30)
        std::swap(result[i], result[i + 500]);
    return result;
}

int lineCount(Numbers& numbers) {
    const int kind = numbers.below(100);
    if (kind < 8) return 0;
    if (kind < 74) return 1 + numbers.below(3);
    if (kind < 92) return 4 + numbers.below(3);
    return 7 + numbers.below(7);
}

void fillSheets(Database& database, int sheets, int patients) {
    Numbers numbers(3);
    Query row = database.query("insert into BETEG (SZEM_SZAM, PaciensId, SZAKREND, IGENYLO, ORVKOD, NAPLO, "
                               "TERITES, DIAG1, DIAG2, DIAG3, "
                               "DIAG4, DIAG5, F_DATUM, F_IDO, AZONOSITO, FLOPPY, ELL_TIP, BALESET1, "
                               "BALESET2, TOVA, LABOR, RTG, CTMR, "
                               "FIZIO, K_KEP, UTKLTG, RECEPT, GYOGYSEG, GYOGYFURD, JAV, ER_AZON, ENAPLO, "
                               "FLOPPY2, NOTE, EU_LAP, BeutOrvos, "
                               "BeutIndok, BeutaloKelte, TerReszlDij, ElszNyil, Termen, VizitDij, "
                               "VizitdijFizMod, VizDijOsszeg) values "
                               "(?1,?2,?3,?4,?5,?6,?7,?8,?9,?10,?11,?12,?13,?14,?15,0,'1',?16,'0',?17,?18,?"
                               "19,'0',?20,?21,?22,?23,?24,'0',"
                               "?25,' ',?26,0,?27,'0',?28,?29,?30,?31,?32,'0',?33,?34,?35)");
    Query line = database.query("insert into EUSZOLG values (?1,?2,?3,?4)");
    std::array<int, units> journals{};
    std::array<int, units> lastDoctor{};
    std::string key;
    int number = 0;
    for (const Visit& visit : visits(sheets)) {
        key = print("G01%07d", ++number);
        const int patient = 1 + numbers.below(patients);
        // Some patients were never entered into the register.
        const bool registered = !numbers.chance(1);
        const int unit = numbers.below(units);
        const int doctor = numbers.below(doctors);
        journals[static_cast<std::size_t>(unit)]++;
        lastDoctor[static_cast<std::size_t>(unit)] = doctor;
        const bool referred = numbers.chance(40);
        row.bind(1, taj(patient)).bind(2, registered ? patient : 0).bind(3, unitCode(unit));
        row.bind(4, referred ? referrerCode(numbers.below(referrers)) : std::string(" "));
        row.bind(5, numbers.chance(98) ? doctorCode(doctor) : std::string(" "));
        row.bind(6, print("%d", journals[static_cast<std::size_t>(unit)]));
        const bool partFee = numbers.chance(2);
        row.bind(7, partFee ? "0R" : "01");
        for (int i = 0; i < 5; ++i) {
            if (i == 0 || numbers.chance(60 / (i + 1)))
                row.bind(8 + i, diagnosisCode(numbers.below(diagnoses)));
            else if (numbers.chance(3))
                row.bind(8 + i, nullptr); // as sheets of earlier versions have it
            else
                row.bind(8 + i, " ");
        }
        row.bind(13, print("%04d.%02d.%02d.", visit.year, visit.month, 1 + numbers.below(28)));
        row.bind(14, print("%02d:%02d:00", 7 + numbers.below(12), numbers.below(60))).bind(15, key);
        row.bind(16, numbers.chance(3) ? "1" : "0").bind(17, numbers.chance(10) ? "2" : "0");
        row.bind(18, numbers.chance(20) ? "1" : "0").bind(19, numbers.chance(15) ? "1" : "0");
        row.bind(20, numbers.chance(5) ? "1" : "0").bind(21, numbers.chance(5) ? "1" : "0");
        row.bind(22, numbers.chance(2) ? "1" : "0").bind(23, print("%d", numbers.below(5)));
        row.bind(24, numbers.chance(5) ? "1" : "0").bind(25, visit.correction ? "1" : "0");
        row.bind(26, visit.correction ? "1" : "0");
        row.bind(27, numbers.chance(10) ? "Kontroll két hét múlva, leletekkel." : " ");
        if (referred)
            row.bind(28, doctorCode(numbers.below(doctors))).bind(29, numbers.chance(50) ? "1" : "");
        else
            row.bind(28, "").bind(29, numbers.chance(5) ? " " : "");
        if (referred)
            row.bind(30, print("%04d.%02d.%02d.", visit.year, visit.month, 1 + numbers.below(28)));
        else
            row.bind(30, nullptr);
        row.bind(31, partFee ? 100.5 + numbers.below(900) : 0.0).bind(32, numbers.chance(95) ? "10" : " ");
        const bool fee = numbers.chance(60);
        row.bind(33, fee ? "01" : " ");
        if (numbers.chance(1))
            row.bind(34, nullptr);
        else
            row.bind(34, fee ? "1" : " ");
        row.bind(35, fee ? 300 : 0);
        row.run();
        const int lines = lineCount(numbers);
        for (int i = 0; i < lines; ++i) {
            line.bind(1, key).bind(2, procedureCode(numbers.below(procedures)));
            line.bind(3, numbers.chance(90) ? 1 : 1 + numbers.below(40));
            if (numbers.chance(1))
                line.bind(4, nullptr);
            else
                line.bind(4, numbers.chance(90) ? "A" : "V");
            line.run();
        }
    }
    database.execute("update AZONOSIT set END_AZON=?1", key);
    for (int i = 0; i < units; ++i)
        database.execute("insert into [DEFAULT] (SZAKREND, ORVKOD, NAPLO, TN) values (?1, ?2, ?3, 0)",
                         unitCode(i), doctorCode(lastDoctor[static_cast<std::size_t>(i)]),
                         journals[static_cast<std::size_t>(i)]);
}

} // namespace

void makeSampleClinic(const QString& folder, int sheets) {
    const QString whole = QDir(folder).filePath(u"whole"_s);
    if (QFile::exists(whole)) return;
    QDir(folder).removeRecursively();
    createProgramFolder(folder);
    {
        DataFiles files(folder);
        fillDictionaries(files);
        Database& database = files[DataFile::tetdata];
        hurry(database);
        Transaction transaction(database);
        const int patients = sheets / 4;
        fillPatients(database, patients);
        fillSheets(database, sheets, patients);
        database.execute("update Gepazonosito set Gepazon='G01'");
        database.execute(
            "insert into intezet values ('Mintavárosi Rendelőintézet', '0123', '45678', '120000100', "
            "'Mintaváros', '11111111-22222222-33333333', '12345678-1-42', '9012', '1000', 'Fő tér 1.')");
        transaction.commit();
    }
    QFile(whole).open(QIODevice::WriteOnly);
}

void releaseMonth(const QString& folder, const QString& month) {
    DataFiles files(folder);
    files[DataFile::tetdata].execute(
        "update BETEG set FLOPPY=0 where F_DATUM>=?1 and F_DATUM<?2 and FLOPPY<>0", month, month + u'\x7f');
    files[DataFile::tetseged].execute("delete from Leval_er");
}

} // namespace vandrel::bench
