/* The floors under the clerk's single steps: the same answers and rows in lean C on the storage engine. */
#pragma once

#ifdef __cplusplus
extern "C" {
#endif

struct FloorEntry;

/* Opens the clinic's data file in a folder with every statement prepared; ends the process on failure. */
struct FloorEntry* floorOpen(const char* folder);
void floorClose(struct FloorEntry* floor);

/* ID of the first patient in stored order whose TAJ begins so, its texts fetched; -1 for none. */
long long floorPatient(struct FloorEntry* floor, const char* beginning);
/* What a new sheet starts with: last unit and doctor, journal number, last key, label, institution. Gives the
   next running number. */
long floorNewSheet(struct FloorEntry* floor);
/* A sheet with the values of one that is there already, and both counters, in one transaction. */
void floorStore(struct FloorEntry* floor, const char* key);

/* First of the folded names that has the folded text inside; -1 for none. */
int floorWalk(const char* const* names, int count, const char* text);

#ifdef __cplusplus
}
#endif
