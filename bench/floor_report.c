/* The floor under the monthly report: what a lean C program needs for the same bytes, on the storage engine's
   own functions and the same indexes. Built twice: as it stands it only queries and writes; with
   FLOOR_SCRATCH it also fills the scratch table and sets the marks, each in one transaction. No message, no
   check, no window.

   floor FOLDER MONTH TODAY   writes tet<code>.amb and kuldo.txt into the working folder, prints
   "seconds records peak-kilobytes processor-seconds"; the seconds are those of the work behind the opening of
   the files. */
#include <sqlite3.h>

#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <time.h>

enum { maxUnits = 1000, slots = 6 };

static sqlite3* data;
static sqlite3* scratch;

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

static void run(sqlite3* database, const char* sql) {
    if (sqlite3_exec(database, sql, NULL, NULL, NULL) != SQLITE_OK) die(sql, database);
}

static sqlite3_stmt* prepare(sqlite3* database, const char* sql) {
    sqlite3_stmt* statement = NULL;
    if (sqlite3_prepare_v2(database, sql, -1, &statement, NULL) != SQLITE_OK) die(sql, database);
    return statement;
}

static const char* text(sqlite3_stmt* statement, int column) {
    return (const char*)sqlite3_column_text(statement, column);
}

/* A value in its column: text NULL is blanks, else length bytes right-justified behind the filling. */
struct Value {
    const char* text;
    int length;
};

static struct Value column(sqlite3_stmt* statement, int number) {
    struct Value value;
    value.text = text(statement, number);
    value.length = sqlite3_column_bytes(statement, number);
    return value;
}

static struct Value part(const char* bytes, int length) {
    struct Value value = {bytes, length};
    return value;
}

/* The statement's bytes go with its next step: a copy that stays. Null becomes an empty text. */
static struct Value keep(struct Value value, char* into, int width) {
    if (value.length > width) die("a value is longer than its column", NULL);
    if (value.length > 0) memcpy(into, value.text, (size_t)value.length);
    return part(into, value.length);
}

static char* place(char* at, struct Value value, int width, char filling) {
    if (value.text == NULL) {
        memset(at, ' ', (size_t)width);
        return at + width;
    }
    if (value.length > width) die("a value is longer than its column", NULL);
    memset(at, filling, (size_t)(width - value.length));
    memcpy(at + width - value.length, value.text, (size_t)value.length);
    return at + width;
}

static struct Value blankIsNull(struct Value value) {
    int i;
    for (i = 0; i < value.length; ++i)
        if (value.text[i] != ' ') return value;
    return part(NULL, 0);
}

/* éééé.hh.nn. as eight digits. */
static struct Value eightDigits(sqlite3_stmt* statement, int number, char* into) {
    const char* date = text(statement, number);
    if (date == NULL) return part(NULL, 0);
    memcpy(into, date, 4);
    memcpy(into + 4, date + 5, 2);
    memcpy(into + 6, date + 8, 2);
    return part(into, 8);
}

/* The procedures' points by code, open addressing. */
struct Points {
    char code[8];
    double points;
};
static struct Points* procedureTable;
static unsigned procedureMask;

static unsigned hash(const char* code, int length) {
    unsigned value = 2166136261u;
    int i;
    for (i = 0; i < length; ++i)
        value = (value ^ (unsigned char)code[i]) * 16777619u;
    return value;
}

static void loadProcedures(sqlite3* database) {
    sqlite3_stmt* rows = prepare(database, "select BEAV_KOD, NEMET_PONT from BEAV order by rowid");
    procedureMask = 65536 - 1;
    procedureTable = calloc(procedureMask + 1, sizeof *procedureTable);
    while (sqlite3_step(rows) == SQLITE_ROW) {
        const char* code = text(rows, 0);
        const int length = sqlite3_column_bytes(rows, 0);
        unsigned at = hash(code, length) & procedureMask;
        while (procedureTable[at].code[0] != 0)
            at = (at + 1) & procedureMask;
        memcpy(procedureTable[at].code, code, (size_t)(length < 7 ? length : 7));
        procedureTable[at].points = sqlite3_column_double(rows, 1);
    }
    sqlite3_finalize(rows);
}

static double pointsOf(const char* code, int length) {
    unsigned at = hash(code, length) & procedureMask;
    while (procedureTable[at].code[0] != 0) {
        if (strncmp(procedureTable[at].code, code, (size_t)length) == 0 &&
            procedureTable[at].code[length] == 0)
            return procedureTable[at].points;
        at = (at + 1) & procedureMask;
    }
    return 0;
}

struct Unit {
    char code[10];
    int records;
    double points;
    double runningTotal;
};
static struct Unit unitTable[maxUnits];
static int unitCount;

static struct Unit* unitOf(const char* code) {
    int i;
    for (i = 0; i < unitCount; ++i)
        if (strcmp(unitTable[i].code, code) == 0) return &unitTable[i];
    if (unitCount == maxUnits) die("too many units", NULL);
    snprintf(unitTable[unitCount].code, sizeof unitTable[unitCount].code, "%s", code);
    return &unitTable[unitCount++];
}

static int byCode(const void* left, const void* right) {
    return strcmp(((const struct Unit*)left)->code, ((const struct Unit*)right)->code);
}

static int byNumber(const void* left, const void* right) {
    const sqlite3_int64 a = *(const sqlite3_int64*)left;
    const sqlite3_int64 b = *(const sqlite3_int64*)right;
    return (a > b) - (a < b);
}

/* A whole number with its thousands grouped by the code page's no-break space. */
static void grouped(double value, char* into) {
    char digits[40];
    int length = snprintf(digits, sizeof digits, "%.0f", value);
    int i;
    for (i = 0; i < length; ++i) {
        *into++ = digits[i];
        if (i + 1 < length && (length - i - 1) % 3 == 0) *into++ = (char)0xA0;
    }
    *into = 0;
}

/* The Hungarian letters of UTF-8 texts in the code page windows-1250. */
static void codePage(const char* utf8, char* into) {
    static const char* const letters[] = {"á", "é", "í", "ó", "ö", "ő", "ú", "ü", "ű", "Á",
                                          "É", "Í", "Ó", "Ö", "Ő", "Ú", "Ü", "Ű", "ô"};
    static const char bytes[] =
        "\xE1\xE9\xED\xF3\xF6\xF5\xFA\xFC\xFB\xC1\xC9\xCD\xD3\xD6\xD5\xDA\xDC\xDB\xF4";
    while (*utf8 != 0) {
        size_t i;
        if ((unsigned char)*utf8 < 128) {
            *into++ = *utf8++;
            continue;
        }
        for (i = 0; i < sizeof letters / sizeof *letters && strncmp(utf8, letters[i], 2) != 0; ++i) {
        }
        *into++ = i < sizeof letters / sizeof *letters ? bytes[i] : '?';
        utf8 += 2;
    }
    *into = 0;
}

static void noteLine(FILE* file, const char* utf8) {
    char bytes[1000];
    codePage(utf8, bytes);
    fputs(bytes, file);
    fputs("\r\n", file);
}

#ifdef FLOOR_SCRATCH
static sqlite3_stmt* addRow;
static void bindValue(int parameter, struct Value value) {
    if (value.text == NULL)
        sqlite3_bind_null(addRow, parameter);
    else
        sqlite3_bind_text(addRow, parameter, value.text, value.length, SQLITE_STATIC);
}
#endif

static double now(void) {
    struct timespec time;
    clock_gettime(CLOCK_MONOTONIC, &time);
    return (double)time.tv_sec + (double)time.tv_nsec / 1e9;
}

static long peakKilobytes(void) {
    char word[200];
    long peak = 0;
    FILE* status = fopen("/proc/self/status", "r");
    if (status == NULL) return 0;
    while (fgets(word, sizeof word, status) != NULL)
        if (sscanf(word, "VmHWM: %ld", &peak) == 1) break;
    fclose(status);
    return peak;
}

int main(int argc, char** argv) {
    sqlite3 *procedures, *dictionaries;
    sqlite3_stmt *institution, *keys, *sheet, *patient, *lines, *unitName;
    sqlite3_int64* rowids;
    size_t count = 0, capacity = 1 << 16, i;
    char name[100], behind[20], line[300];
    const char *folder, *month;
    FILE* file;
    long countPlace;
    int records = 0, positions = 0, u;
    double start, total = 0;
    clock_t processor;

    if (argc != 4) {
        fprintf(stderr, "floor FOLDER MONTH TODAY\n");
        return 2;
    }
    sqlite3_config(SQLITE_CONFIG_MEMSTATUS, 0);
    folder = argv[1];
    month = argv[2];
    data = openFile(folder, "tetdata.mdb");
    scratch = openFile(folder, "tetseged.mdb");
    procedures = openFile(folder, "beav.mdb");
    dictionaries = openFile(folder, "tetmod.mdb");
    run(data, "pragma journal_mode=delete; pragma synchronous=full");
    run(scratch, "pragma journal_mode=off; pragma synchronous=off");

    start = now();
    processor = clock();
    institution = prepare(data, "select Szakrend_kod, NBK_KOD, Adoig_szam, Bankszamla, Int_nev, Gyogyi_kod "
                                "from intezet order by rowid limit 1");
    if (sqlite3_step(institution) != SQLITE_ROW) die("intezet", data);
    loadProcedures(procedures);

#ifdef FLOOR_SCRATCH
    run(scratch, "begin; delete from Leval_er; delete from Leval_jav");
    run(data, "begin immediate");
    addRow = prepare(
        scratch,
        "insert into Leval_er (R_azon, Bek, Borv_azon, Orv_azon, Naplo, Taj, Az_tip, Nem, Szul, Datum, "
        "Ora, Irszam, Allampol, Ell_tip, Baleset, Tova, Terkat, Termod, Termen, Rterdij, Elsznyil, Badat, "
        "Bdatum, Labor, Rtg, Ctmr, Fizioter, K_kep, Utkltg, Recept, Gyogyseg, Gyogyfurd, Bno_1, Bno_2, "
        "Bno_3, Bno_4, Bno_5, Who_1, Menny_1, Jell_1, Who_2, Menny_2, Jell_2, Who_3, Menny_3, Jell_3, "
        "Who_4, Menny_4, Jell_4, Who_5, Menny_5, Jell_5, Who_6, Menny_6, Jell_6) values "
        "(?1,?2,?3,?4,?5,?6,?7,?8,?9,?10,?11,?12,?13,?14,?15,?16,?17,?18,?19,?20,?21,?22,?23,?24,?25,?26,"
        "?27,?28,?29,?30,?31,?32,?33,?34,?35,?36,?37,?38,?39,?40,?41,?42,?43,?44,?45,?46,?47,?48,?49,?50,"
        "?51,?52,?53,?54,?55)");
#endif

    snprintf(name, sizeof name, "tet%s.amb", text(institution, 1));
    file = fopen(name, "wb");
    if (file == NULL) die(name, NULL);
    setvbuf(file, NULL, _IOFBF, 1 << 16);
    fprintf(file, "%.4s00000%s \r\n", text(institution, 0), text(institution, 1));
    fprintf(file, "%.8s%.1s\r\n", text(institution, 2), text(institution, 2) + 9);
    fprintf(file, "%.2s %.4s%.2s\r\n", text(institution, 2) + 11, month, month + 5);
    countPlace = ftell(file);
    fprintf(file, "%07d\r\n", 0);
    for (u = 0; u < 3; ++u)
        fprintf(file, "%.8s \r\n", text(institution, 3) + 9 * u);
    fputs("\r\n", file);

    /* The index gives the rows of the month by date: they are wanted in stored order. */
    rowids = malloc(capacity * sizeof *rowids);
    snprintf(behind, sizeof behind, "%s\x7f", month);
    keys = prepare(data, "select rowid from BETEG where F_DATUM>=?1 and F_DATUM<?2");
    sqlite3_bind_text(keys, 1, month, -1, SQLITE_STATIC);
    sqlite3_bind_text(keys, 2, behind, -1, SQLITE_STATIC);
    while (sqlite3_step(keys) == SQLITE_ROW) {
        if (count == capacity) rowids = realloc(rowids, (capacity *= 2) * sizeof *rowids);
        rowids[count++] = sqlite3_column_int64(keys, 0);
    }
    sqlite3_finalize(keys);
    qsort(rowids, count, sizeof *rowids, byNumber);

    sheet = prepare(
        data,
        "select SZAKREND, ORVKOD, IGENYLO, BeutOrvos, BeutIndok, BeutaloKelte, NAPLO, F_DATUM, F_IDO, "
        "TERITES, TerReszlDij, ELL_TIP, DIAG1, DIAG2, DIAG3, DIAG4, DIAG5, TOVA, LABOR, RTG, CTMR, "
        "FIZIO, K_KEP, UTKLTG, BALESET1, BALESET2, RECEPT, GYOGYSEG, GYOGYFURD, ElszNyil, VizitDij, "
        "VizitdijFizMod, PaciensId, trim(AZONOSITO) from BETEG where rowid=?1 and FLOPPY=0 and JAV='0'");
    patient = prepare(
        data, "select Allampol_rov, TAJ, Azon_Tipus, Nem, Szul_Dat, Irszam from Paciensek where ID=?1");
    lines = prepare(data, "select BEAV, MENNY, BeavJelleg from EUSZOLG where Azonosito=?1 order by rowid");
#ifdef FLOOR_SCRATCH
    {
        sqlite3_stmt* mark = prepare(data, "update BETEG set FLOPPY=1 where rowid=?1");
#endif
        for (i = 0; i < count; ++i) {
            struct Value head[37]; /* in the order of the scratch table's columns from R_azon to Bno_5 */
            char referral[8], visit[8], birth[8], hour[4], accident[4], fee[32];
            int found, more, first = 1, k, size;
            double points;
            struct Unit* unit;

            sqlite3_bind_int64(sheet, 1, rowids[i]);
            if (sqlite3_step(sheet) != SQLITE_ROW) {
                sqlite3_reset(sheet);
                continue;
            }
            sqlite3_bind_int64(patient, 1, sqlite3_column_int64(sheet, 32));
            found = sqlite3_step(patient) == SQLITE_ROW;

            head[0] = column(sheet, 0);
            head[1] = column(sheet, 2);
            head[2] = column(sheet, 3);
            head[3] = column(sheet, 1);
            head[4] = column(sheet, 6);
            for (k = 5; k <= 12; ++k)
                head[k] = part(NULL, 0);
            if (found) {
                head[5] = column(patient, 1);
                head[6] = column(patient, 2);
                if (head[6].length > 1) head[6].length = 1;
                head[7] = column(patient, 3);
                if (head[7].length > 1) head[7].length = 1;
                head[8] = eightDigits(patient, 4, birth);
                head[11] = column(patient, 5);
                head[12] = column(patient, 0);
            }
            head[9] = eightDigits(sheet, 7, visit);
            memcpy(hour, text(sheet, 8), 2);
            memcpy(hour + 2, text(sheet, 8) + 3, 2);
            head[10] = part(hour, 4);
            head[13] = column(sheet, 11);
            accident[0] = text(sheet, 24)[0];
            accident[1] = text(sheet, 25)[0];
            head[14] = part(accident, 2);
            head[15] = column(sheet, 17);
            head[16] = column(sheet, 9);
            head[17] = column(sheet, 31);
            head[18] = column(sheet, 30);
            size = snprintf(fee, sizeof fee, "%.15g", sqlite3_column_double(sheet, 10));
            for (k = 0; k < size; ++k)
                if (fee[k] == '.') fee[k] = ',';
            head[19] = part(fee, size);
            head[20] = column(sheet, 29);
            head[21] = column(sheet, 4);
            head[22] = eightDigits(sheet, 5, referral);
            for (k = 0; k < 6; ++k)
                head[23 + k] = column(sheet, 18 + k);
            for (k = 0; k < 3; ++k)
                head[29 + k] = column(sheet, 26 + k);
            for (k = 0; k < 5; ++k)
                head[32 + k] = column(sheet, 12 + k);

            sqlite3_bind_text(lines, 1, text(sheet, 33), sqlite3_column_bytes(sheet, 33), SQLITE_STATIC);
            more = sqlite3_step(lines) == SQLITE_ROW;
            unit = more ? unitOf(head[0].text) : NULL;
            while (more) {
                struct Value procedure[slots * 3];
                char codes[slots][5], quantities[slots][2], characters[slots][1];
                char* at = line;
                points = 0;
                for (k = 0; k < slots; ++k) {
                    struct Value* slot = procedure + 3 * k;
                    slot[0] = slot[1] = slot[2] = part("", 0);
                    if (!more) continue;
                    slot[0] = column(lines, 0);
                    slot[0] = keep(column(lines, 0), codes[k], 5);
                    slot[1] = keep(column(lines, 1), quantities[k], 2);
                    slot[2] = keep(column(lines, 2), characters[k], 1);
                    points += pointsOf(codes[k], slot[0].length) * sqlite3_column_int(lines, 1);
                    ++positions;
                    more = sqlite3_step(lines) == SQLITE_ROW;
                }
                at = place(at, head[0], 9, ' ');
                if (first) {
                    at = place(at, head[3], 5, ' ');
                    at = place(at, head[1], 9, ' ');
                    at = place(at, head[2], 5, ' ');
                    at = place(at, head[21], 9, '0');
                    at = place(at, head[22], 8, ' ');
                } else {
                    memset(at, ' ', 36);
                    at += 36;
                }
                at = place(at, head[4], 8, '0');
                if (first) {
                    at = place(at, head[9], 8, ' ');
                    at = place(at, head[10], 4, ' ');
                    at = place(at, head[12], 3, ' ');
                    at = place(at, head[5], 9, ' ');
                    at = place(at, head[6], 1, ' ');
                    at = place(at, head[7], 1, ' ');
                    at = place(at, head[8], 8, ' ');
                    at = place(at, head[11], 4, ' ');
                    at = place(at, head[16], 2, ' ');
                    at = place(at, head[19], 6, ' ');
                    at = place(at, head[13], 1, ' ');
                    for (k = 0; k < 5; ++k)
                        at = place(at, blankIsNull(head[32 + k]), 5, ' ');
                } else {
                    memset(at, ' ', 72);
                    at += 72;
                }
                for (k = 0; k < slots; ++k) {
                    at = place(at, procedure[3 * k], 5, ' ');
                    at = place(at, procedure[3 * k + 1], 2, ' ');
                    at = place(at, procedure[3 * k + 2], 1, ' ');
                }
                if (first) {
                    at = place(at, head[15], 1, ' ');
                    for (k = 23; k <= 28; ++k)
                        at = place(at, head[k], 1, ' ');
                    at = place(at, head[14], 2, ' ');
                    for (k = 29; k <= 31; ++k)
                        at = place(at, head[k], 2, '0');
                    at = place(at, head[20], 2, ' ');
                    at = place(at, head[18], 2, ' ');
                    at = place(at, head[17], 2, ' ');
                } else {
                    memset(at, ' ', 21);
                    at += 21;
                }
                *at++ = '\r';
                *at++ = '\n';
                fwrite(line, 1, (size_t)(at - line), file);
#ifdef FLOOR_SCRATCH
                if (first)
                    for (k = 0; k < 37; ++k)
                        bindValue(k + 1, head[k]);
                else {
                    /* Bindings stay until they are bound anew. */
                    sqlite3_clear_bindings(addRow);
                    bindValue(1, head[0]);
                    bindValue(5, head[4]);
                }
                for (k = 0; k < slots * 3; ++k)
                    bindValue(38 + k, procedure[k]);
                if (sqlite3_step(addRow) != SQLITE_DONE) die("Leval_er", scratch);
                sqlite3_reset(addRow);
#endif
                ++records;
                first = 0;
                unit->records++;
                unit->points += points;
                unit->runningTotal += unit->points;
            }
            sqlite3_reset(lines);
            sqlite3_reset(patient);
            sqlite3_reset(sheet);
#ifdef FLOOR_SCRATCH
            sqlite3_bind_int64(mark, 1, rowids[i]);
            if (sqlite3_step(mark) != SQLITE_DONE) die("FLOPPY", data);
            sqlite3_reset(mark);
#endif
        }
#ifdef FLOOR_SCRATCH
        sqlite3_finalize(mark);
    }
    run(scratch, "commit");
    run(data, "commit");
#endif
    fseek(file, countPlace, SEEK_SET);
    fprintf(file, "%07d", records);
    if (fclose(file) != 0) die(name, NULL);

    qsort(unitTable, (size_t)unitCount, sizeof *unitTable, byCode);
    file = fopen("kuldo.txt", "wb");
    if (file == NULL) die("kuldo.txt", NULL);
    snprintf(line, sizeof line, "Készült: %s%40sLapszám: 1/1", argv[3], "");
    noteLine(file, line);
    noteLine(file, "Kísérőjegyzék");
    noteLine(file, "az egységes járóbeteg adatszolgáltatáshoz");
    snprintf(line, sizeof line, "Az intézet neve: %s", text(institution, 4));
    noteLine(file, line);
    snprintf(line, sizeof line, "   azonosító kódja: %s", text(institution, 5));
    noteLine(file, line);
    snprintf(line, sizeof line, "   finanszírozási NBK kódja: %s", text(institution, 1));
    noteLine(file, line);
    snprintf(line, sizeof line, "   adóigazgatási azonosító száma: %s", text(institution, 2));
    noteLine(file, line);
    snprintf(line, sizeof line, "   pénzforgalmi jelzőszáma: %s", text(institution, 3));
    noteLine(file, line);
    snprintf(line, sizeof line, "Elszámolási időszak: %s", month);
    noteLine(file, line);
    noteLine(file, " ");
    snprintf(line, sizeof line, "Munkahely%30sBeküldött rekordok száma     Pontszám", "");
    noteLine(file, line);
    memset(line, '_', 80);
    line[80] = 0;
    noteLine(file, line);
    unitName =
        prepare(dictionaries, "select REND_NEV from SZAKREND where REND_KOD=?1 order by rowid limit 1");
    for (u = 0; u < unitCount; ++u) {
        char points[60], page[200];
        const char* unit = "";
        int padding;
        sqlite3_bind_text(unitName, 1, unitTable[u].code, -1, SQLITE_STATIC);
        if (sqlite3_step(unitName) == SQLITE_ROW) unit = text(unitName, 0);
        codePage(unit, page);
        padding = 30 - (int)strlen(page);
        grouped(unitTable[u].points, points);
        fprintf(file, "%s %s%*s%d%15s%s\r\n", unitTable[u].code, page, padding > 0 ? padding : 0, "",
                unitTable[u].records, "", points);
        total += unitTable[u].runningTotal;
        sqlite3_reset(unitName);
    }
    {
        char points[60];
        grouped(total, points);
        fprintf(file,
                "\r\n\r\n%29s\xD6"
                "sszesen: %15s%s\r\n",
                "", "", points);
    }
    fputs("\r\n\r\n", file);
    snprintf(line, sizeof line, "A jelentett beavatkozások száma: %d", positions);
    noteLine(file, line);
    fputs("\r\n\r\n", file);
    noteLine(file, "Beküldött mágneslemezek száma: ........");
    fputs("\r\n\r\n", file);
    noteLine(file, "A javítás visszavonást ....          plusz kifizetést .... eredményez.");
    fputs("\r\n\r\n", file);
    noteLine(file, "      ......................             ......................");
    noteLine(file, "  az adatszolgáltatásért felelôs              intézetvezetô");
    if (fclose(file) != 0) die("kuldo.txt", NULL);
    printf("%.6f %d %ld %.6f\n", now() - start, records, peakKilobytes(),
           (double)(clock() - processor) / CLOCKS_PER_SEC);
    return 0;
}
