/* The floor under the traffic log: what a lean C program needs to read the same rows, on the storage engine's
   own functions and the same indexes, and to write the same texts into memory. No document, no table, no
   message, no turn of any event loop.

   floor FOLDER FROM TO TODAY   prints "seconds texts checksum peak-kilobytes"; the seconds are the
   processor's, of the work behind the opening of the files. */
#include <sqlite3.h>

#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <time.h>

enum Column {
    AZONOSITO,
    PaciensId,
    SZAKREND,
    TERITES,
    NAPLO,
    ELL_TIP,
    F_DATUM,
    F_IDO,
    SZEM_SZAM,
    IGENYLO,
    DIAG1,
    DIAG2,
    TOVA,
    BALESET1,
    BALESET2,
    ORVKOD,
    LABOR,
    RTG,
    CTMR,
    FIZIO,
    K_KEP,
    UTKLTG,
    RECEPT,
    GYOGYSEG,
    GYOGYFURD
};

static char* texts;
static size_t length, room;
static long count;

static void die(const char* where, sqlite3* database) {
    fprintf(stderr, "%s: %s\n", where, database != NULL ? sqlite3_errmsg(database) : "");
    exit(1);
}

static sqlite3* openFile(const char* folder, const char* name) {
    char path[4096];
    sqlite3* database = NULL;
    snprintf(path, sizeof path, "%s/%s", folder, name);
    if (sqlite3_open_v2(path, &database, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, NULL) != SQLITE_OK)
        die(path, database);
    return database;
}

static sqlite3_stmt* prepare(sqlite3* database, const char* sql) {
    sqlite3_stmt* statement = NULL;
    if (sqlite3_prepare_v2(database, sql, -1, &statement, NULL) != SQLITE_OK) die(sql, database);
    return statement;
}

static void put(const char* text, size_t size) {
    if (length + size + 1 > room) {
        room = room * 2 + size + 4096;
        texts = realloc(texts, room);
        if (texts == NULL) die("memory", NULL);
    }
    if (size > 0) memcpy(texts + length, text, size);
    length += size;
}
static void word(const char* text) {
    put(text, strlen(text));
}
static void column(sqlite3_stmt* row, int number) {
    put((const char*)sqlite3_column_text(row, number), (size_t)sqlite3_column_bytes(row, number));
}
static void headed(const char* head, sqlite3_stmt* row, int number, const char* end) {
    word(head);
    column(row, number);
    word(end);
}
static void end(void) {
    put("\n", 1);
    ++count;
}
static void line(const char* text) {
    word(text);
    end();
}

static void categoryLine(sqlite3_stmt* sheet) {
    headed("<b>Kategória: <LINDENT=30>", sheet, TERITES, "</LINDENT></b>");
    end();
}

static void titleBlock(sqlite3_stmt* sheet, sqlite3_stmt* unitName, int first) {
    headed("<b>Munkahely: <LINDENT=30>", sheet, SZAKREND, " ");
    sqlite3_bind_value(unitName, 1, sqlite3_column_value(sheet, SZAKREND));
    if (sqlite3_step(unitName) == SQLITE_ROW) column(unitName, 0);
    sqlite3_reset(unitName);
    line("</LINDENT></b>");
    categoryLine(sheet);
    word(first ? "Ssz.<LINDENT=13>Neve</LINDENT>" : "Ssz.<LINDENT=10>Neve</LINDENT>");
    word("<LINDENT=40>Tip.</LINDENT><LINDENT=50>Ellát. idő</LINDENT><LINDENT=83>TAJ/Tip</LINDENT>");
    word(first ? "<LINDENT=105>NEM/Szül. idő</LINDENT>" : "<LINDENT=100>NEM/Születési idő</LINDENT>");
    line("<LINDENT=130>Beküldő</LINDENT><LINDENT=150>BNO</LINDENT>");
    line("_________________________________________________________________________________");
}

/* Whether the column holds what was there before; keeps it. */
static int same(char* before, size_t size, sqlite3_stmt* sheet, int number) {
    const char* now = (const char*)sqlite3_column_text(sheet, number);
    const int equal = now != NULL && strcmp(before, now) == 0;
    snprintf(before, size, "%s", now != NULL ? now : "");
    return equal;
}

/* The processor's, so that other work on the machine does not enter into it. */
static double now(void) {
    return (double)clock() / CLOCKS_PER_SEC;
}

static long peakKilobytes(void) {
    char text[200];
    long peak = 0;
    FILE* status = fopen("/proc/self/status", "r");
    if (status == NULL) return 0;
    while (fgets(text, sizeof text, status) != NULL)
        if (sscanf(text, "VmHWM: %ld", &peak) == 1) break;
    fclose(status);
    return peak;
}

int main(int argc, char** argv) {
    sqlite3 *data, *codes;
    sqlite3_stmt *sheets, *lines, *patient, *unitName;
    double start;
    char unit[64] = "", category[64] = "", number[64];
    long sheetCount = 0;
    uint64_t checksum = 14695981039346656037u;
    size_t i;
    if (argc != 5) die("floor FOLDER FROM TO TODAY", NULL);
    sqlite3_config(SQLITE_CONFIG_MEMSTATUS, 0);
    data = openFile(argv[1], "tetdata.mdb");
    codes = openFile(argv[1], "tetmod.mdb");

    start = now();
    sheets = prepare(
        data, "select AZONOSITO, PaciensId, SZAKREND, TERITES, NAPLO, ELL_TIP, F_DATUM, F_IDO, SZEM_SZAM, "
              "IGENYLO, DIAG1, DIAG2, TOVA, BALESET1, BALESET2, ORVKOD, LABOR, RTG, CTMR, FIZIO, K_KEP, "
              "UTKLTG, RECEPT, GYOGYSEG, GYOGYFURD from BETEG where TERITES in ('01','02','03','04','05',"
              "'06','09','0A','0D','0E','61') and F_DATUM>=?1 and F_DATUM<=?2 "
              "order by SZAKREND, TERITES, F_DATUM, F_IDO, NAPLO, rowid");
    lines = prepare(data, "select BEAV, MENNY from EUSZOLG where Azonosito=?1 order by BEAV, rowid");
    patient = prepare(data, "select Neve, Azon_Tipus, Nem, Szul_Dat from Paciensek where ID=?1");
    unitName = prepare(codes, "select REND_NEV from SZAKREND where REND_KOD=?1");
    sqlite3_bind_text(sheets, 1, argv[2], -1, SQLITE_STATIC);
    sqlite3_bind_text(sheets, 2, argv[3], -1, SQLITE_STATIC);

    line(" ");
    word("Készült: ");
    line(argv[4]);
    line(" ");
    line("Ambuláns betegforgalmi napló");
    line(" ");
    word("Időszak: ");
    word(argv[2]);
    word(" - ");
    line(argv[3]);
    line(" ");
    line(" ");
    while (sqlite3_step(sheets) == SQLITE_ROW) {
        const int sameUnit = same(unit, sizeof unit, sheets, SZAKREND);
        const int sameCategory = same(category, sizeof category, sheets, TERITES);
        int known;
        if (sheetCount == 0) {
            titleBlock(sheets, unitName, 1);
        } else if (!sameUnit) {
            line(" ");
            titleBlock(sheets, unitName, 0);
        } else if (!sameCategory) {
            line(" ");
            categoryLine(sheets);
        }
        ++sheetCount;
        sqlite3_bind_value(patient, 1, sqlite3_column_value(sheets, PaciensId));
        known = sqlite3_step(patient) == SQLITE_ROW;
        column(sheets, NAPLO);
        word("<LINDENT=13>");
        if (known) column(patient, 0);
        headed("</LINDENT><LINDENT=40>", sheets, ELL_TIP, "</LINDENT>");
        headed("<LINDENT=50>", sheets, F_DATUM, " - ");
        headed("", sheets, F_IDO, "</LINDENT>");
        headed("<LINDENT=83>", sheets, SZEM_SZAM, "/");
        if (known) column(patient, 1);
        word("</LINDENT><LINDENT=105>");
        if (known) column(patient, 2);
        word("/");
        if (known) column(patient, 3);
        headed("</LINDENT><LINDENT=130>", sheets, IGENYLO, "</LINDENT>");
        headed("<LINDENT=150>", sheets, DIAG1, ", ");
        headed("", sheets, DIAG2, "</LINDENT>");
        end();
        sqlite3_reset(patient);
        headed("Tov.: ", sheets, TOVA, "<LINDENT=15>Bale.: ");
        column(sheets, BALESET1);
        headed("", sheets, BALESET2, "</LINDENT>");
        headed("<LINDENT=35>Orvos: ", sheets, ORVKOD, "</LINDENT>");
        end();
        headed("Labor: ", sheets, LABOR, "");
        headed("<LINDENT=15>Rtg.: ", sheets, RTG, "</LINDENT>");
        headed("<LINDENT=30>CT-MR: ", sheets, CTMR, "</LINDENT>");
        headed("<LINDENT=50>Fizio.: ", sheets, FIZIO, "</LINDENT>");
        headed("<LINDENT=70>K.képt.: ", sheets, K_KEP, "</LINDENT>");
        headed("<LINDENT=90>Utiktg: ", sheets, UTKLTG, "</LINDENT>");
        headed("<LINDENT=110>Vény: ", sheets, RECEPT, "</LINDENT>");
        headed("<LINDENT=130>Segéde.: ", sheets, GYOGYSEG, "</LINDENT>");
        headed("<LINDENT=150>Gyógyf.: ", sheets, GYOGYFURD, "</LINDENT>");
        end();
        word("Beavatkozások: ");
        sqlite3_bind_value(lines, 1, sqlite3_column_value(sheets, AZONOSITO));
        while (sqlite3_step(lines) == SQLITE_ROW) {
            headed("", lines, 0, " (");
            headed("", lines, 1, "), ");
        }
        sqlite3_reset(lines);
        end();
        line(" ");
    }
    line(" ");
    snprintf(number, sizeof number, "Munkahely összesen:  %ld", sheetCount);
    line(number);
    printf("%.6f %ld ", now() - start, count);
    for (i = 0; i < length; ++i)
        checksum = (checksum ^ (unsigned char)texts[i]) * 1099511628211u;
    printf("%016llx %ld\n", (unsigned long long)checksum, peakKilobytes());
    return 0;
}
