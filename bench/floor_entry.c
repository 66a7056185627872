#include "floor_entry.h"

#include <sqlite3.h>

#include <stdio.h>
#include <stdlib.h>
#include <string.h>

enum { beginnings = 4 }; /* first characters that have an index of their own */

struct FloorEntry {
    sqlite3* data;
    sqlite3_stmt *patient[beginnings], *longPatient;
    sqlite3_stmt *lastSheet, *unit, *lastKey, *label, *institution;
    sqlite3_stmt *begin, *commit, *sheet, *key, *counter;
};

static sqlite3_stmt* prepare(sqlite3* database, const char* sql) {
    sqlite3_stmt* statement = NULL;
    if (sqlite3_prepare_v3(database, sql, -1, SQLITE_PREPARE_PERSISTENT, &statement, NULL) != SQLITE_OK) {
        fprintf(stderr, "%s: %s\n", sql, sqlite3_errmsg(database));
        exit(1);
    }
    return statement;
}

static void runOnce(sqlite3_stmt* statement) {
    if (sqlite3_step(statement) != SQLITE_DONE) {
        fprintf(stderr, "%s\n", sqlite3_sql(statement));
        exit(1);
    }
    sqlite3_reset(statement);
}

#define PATIENT                                                                                              \
    "select ID, TAJ, Neve, Irszam, Cim, Allampol_rov, Anyja_neve, Leanykori_neve, KgySzam, KgyLe, "          \
    "Azon_Tipus, Nem, Szul_Dat from Paciensek where "

struct FloorEntry* floorOpen(const char* folder) {
    struct FloorEntry* floor = calloc(1, sizeof *floor);
    char path[4096];
    int i;
    snprintf(path, sizeof path, "%s/tetdata.mdb", folder);
    if (sqlite3_open_v2(path, &floor->data, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, NULL) != SQLITE_OK)
        exit(1);
    sqlite3_exec(floor->data, "pragma journal_mode=delete; pragma synchronous=full", NULL, NULL, NULL);
    for (i = 0; i < beginnings; ++i) {
        char sql[400];
        snprintf(sql, sizeof sql, PATIENT "substr(TAJ,1,%d)=?1 collate nocase order by rowid limit 1", i + 1);
        floor->patient[i] = prepare(floor->data, sql);
    }
    floor->longPatient =
        prepare(floor->data, PATIENT "rowid=(select min(rowid) from Paciensek where TAJ>=?1 and TAJ<?2)");
    floor->lastSheet =
        prepare(floor->data, "select SZAKREND, ORVKOD from BETEG order by AZONOSITO desc limit 1");
    floor->unit =
        prepare(floor->data, "select ORVKOD, NAPLO from [DEFAULT] where SZAKREND=?1 order by rowid limit 1");
    floor->lastKey = prepare(floor->data, "select END_AZON from AZONOSIT order by rowid limit 1");
    floor->label = prepare(floor->data, "select Gepazon from Gepazonosito order by rowid limit 1");
    floor->institution =
        prepare(floor->data, "select Int_nev, irsz, City, cim from intezet order by rowid limit 1");
    floor->begin = prepare(floor->data, "begin immediate");
    floor->commit = prepare(floor->data, "commit");
    floor->sheet = prepare(
        floor->data,
        "insert into BETEG (AZONOSITO, PaciensId, SZAKREND, IGENYLO, BeutaloKelte, ORVKOD, NAPLO, SZEM_SZAM, "
        "F_DATUM, "
        "F_IDO, TERITES, BALESET1, BALESET2, ELL_TIP, TOVA, LABOR, RTG, CTMR, K_KEP, FIZIO, UTKLTG, RECEPT, "
        "GYOGYSEG, "
        "GYOGYFURD, DIAG1, DIAG2, DIAG3, DIAG4, DIAG5, JAV, ER_AZON, ENAPLO, FLOPPY, FLOPPY2, NOTE, EU_LAP, "
        "BeutOrvos, BeutIndok, TerReszlDij, ElszNyil, Termen, VizitDij, VizitdijFizMod, VizDijOsszeg) values "
        "(?1, 7, "
        "'120000100', ' ', null, '40001', '12', '123456788', '2009.01.05.', '10:10:00', '01', '0', '0', '1', "
        "'0', "
        "'0', '0', '0', '0', '0', '0', '0', '0', '0', 'A0000', ' ', ' ', ' ', ' ', '0', ' ', '0', 0, 0, ' ', "
        "'0', '', "
        "'', 0, '10', '0', ' ', ' ', 0)");
    floor->key = prepare(floor->data, "update AZONOSIT set END_AZON=?1");
    floor->counter =
        prepare(floor->data, "update [DEFAULT] set ORVKOD='40001', NAPLO=12 where SZAKREND='120000100'");
    return floor;
}

void floorClose(struct FloorEntry* floor) {
    sqlite3_stmt* statement;
    while ((statement = sqlite3_next_stmt(floor->data, NULL)) != NULL)
        sqlite3_finalize(statement);
    sqlite3_close(floor->data);
    free(floor);
}

/* Every column as text, as a form needs them. */
static void fetch(sqlite3_stmt* statement) {
    int i;
    for (i = 0; i < sqlite3_column_count(statement); ++i)
        (void)sqlite3_column_text(statement, i);
}

long long floorPatient(struct FloorEntry* floor, const char* beginning) {
    const int length = (int)strlen(beginning);
    sqlite3_stmt* statement = length <= beginnings ? floor->patient[length - 1] : floor->longPatient;
    char behind[32];
    long long id = -1;
    sqlite3_bind_text(statement, 1, beginning, length, SQLITE_STATIC);
    if (length > beginnings) {
        snprintf(behind, sizeof behind, "%s\x7f", beginning);
        sqlite3_bind_text(statement, 2, behind, -1, SQLITE_STATIC);
    }
    if (sqlite3_step(statement) == SQLITE_ROW) {
        fetch(statement);
        id = sqlite3_column_int64(statement, 0);
    }
    sqlite3_reset(statement);
    return id;
}

long floorNewSheet(struct FloorEntry* floor) {
    char unit[20] = "";
    long number = 0;
    if (sqlite3_step(floor->lastSheet) == SQLITE_ROW) {
        fetch(floor->lastSheet);
        snprintf(unit, sizeof unit, "%s", (const char*)sqlite3_column_text(floor->lastSheet, 0));
    }
    sqlite3_reset(floor->lastSheet);
    sqlite3_bind_text(floor->unit, 1, unit, -1, SQLITE_STATIC);
    if (sqlite3_step(floor->unit) == SQLITE_ROW) fetch(floor->unit);
    sqlite3_reset(floor->unit);
    if (sqlite3_step(floor->lastKey) == SQLITE_ROW)
        number = strtol((const char*)sqlite3_column_text(floor->lastKey, 0) + 3, NULL, 10) + 1;
    sqlite3_reset(floor->lastKey);
    if (sqlite3_step(floor->label) == SQLITE_ROW) fetch(floor->label);
    sqlite3_reset(floor->label);
    if (sqlite3_step(floor->institution) == SQLITE_ROW) fetch(floor->institution);
    sqlite3_reset(floor->institution);
    return number;
}

void floorStore(struct FloorEntry* floor, const char* key) {
    runOnce(floor->begin);
    sqlite3_bind_text(floor->sheet, 1, key, -1, SQLITE_STATIC);
    runOnce(floor->sheet);
    sqlite3_bind_text(floor->key, 1, key, -1, SQLITE_STATIC);
    runOnce(floor->key);
    runOnce(floor->counter);
    runOnce(floor->commit);
}

int floorWalk(const char* const* names, int count, const char* text) {
    int i;
    for (i = 0; i < count; ++i)
        if (strstr(names[i], text) != NULL) return i;
    return -1;
}
