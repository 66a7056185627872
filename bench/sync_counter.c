#include "sync_counter.h"

#include <sqlite3.h>

#include <stdlib.h>
#include <string.h>

static sqlite3_vfs* machine;
static sqlite3_vfs counter;
static long dataFiles, all;

/* The engine's file, with the machine's own file behind it in the same block of memory. */
struct File {
    sqlite3_file base;
    int isDataFile;
    sqlite3_file* inner;
};

static sqlite3_file* inner(sqlite3_file* file) {
    return ((struct File*)file)->inner;
}

#define PASS0(name)                                                                                          \
    static int name(sqlite3_file* file) {                                                                    \
        return inner(file)->pMethods->name(inner(file));                                                     \
    }
PASS0(xSectorSize)
PASS0(xDeviceCharacteristics)
static int xClose(sqlite3_file* file) {
    return inner(file)->pMethods->xClose(inner(file));
}
static int xRead(sqlite3_file* file, void* into, int size, sqlite3_int64 at) {
    return inner(file)->pMethods->xRead(inner(file), into, size, at);
}
static int xWrite(sqlite3_file* file, const void* from, int size, sqlite3_int64 at) {
    return inner(file)->pMethods->xWrite(inner(file), from, size, at);
}
static int xTruncate(sqlite3_file* file, sqlite3_int64 size) {
    return inner(file)->pMethods->xTruncate(inner(file), size);
}
static int xSync(sqlite3_file* file, int flags) {
    ++all;
    if (((struct File*)file)->isDataFile) ++dataFiles;
    return inner(file)->pMethods->xSync(inner(file), flags);
}
static int xFileSize(sqlite3_file* file, sqlite3_int64* size) {
    return inner(file)->pMethods->xFileSize(inner(file), size);
}
static int xLock(sqlite3_file* file, int level) {
    return inner(file)->pMethods->xLock(inner(file), level);
}
static int xUnlock(sqlite3_file* file, int level) {
    return inner(file)->pMethods->xUnlock(inner(file), level);
}
static int xCheckReservedLock(sqlite3_file* file, int* result) {
    return inner(file)->pMethods->xCheckReservedLock(inner(file), result);
}
static int xFileControl(sqlite3_file* file, int operation, void* argument) {
    return inner(file)->pMethods->xFileControl(inner(file), operation, argument);
}

static const sqlite3_io_methods methods = {1,
                                           xClose,
                                           xRead,
                                           xWrite,
                                           xTruncate,
                                           xSync,
                                           xFileSize,
                                           xLock,
                                           xUnlock,
                                           xCheckReservedLock,
                                           xFileControl,
                                           xSectorSize,
                                           xDeviceCharacteristics,
                                           0,
                                           0,
                                           0,
                                           0,
                                           0,
                                           0};

static int xOpen(sqlite3_vfs* vfs, sqlite3_filename name, sqlite3_file* file, int flags, int* outFlags) {
    struct File* own = (struct File*)file;
    int result;
    (void)vfs;
    own->inner = (sqlite3_file*)(own + 1);
    own->isDataFile = (flags & SQLITE_OPEN_MAIN_DB) != 0;
    memset(own->inner, 0, (size_t)machine->szOsFile);
    result = machine->xOpen(machine, name, own->inner, flags, outFlags);
    own->base.pMethods = own->inner->pMethods != NULL ? &methods : NULL;
    return result;
}

int syncCounterInstall(void) {
    machine = sqlite3_vfs_find(NULL);
    if (machine == NULL) return 1;
    counter = *machine;
    counter.zName = "sync-counter";
    counter.szOsFile = (int)sizeof(struct File) + machine->szOsFile;
    counter.xOpen = xOpen;
    return sqlite3_vfs_register(&counter, 1);
}

long syncCounterDataFiles(void) {
    return dataFiles;
}

long syncCounterAll(void) {
    return all;
}
