/* Counts how often the storage engine makes the disk confirm, by standing between the engine and the disk. */
#pragma once

#ifdef __cplusplus
extern "C" {
#endif

/* Puts itself in front of the machine's file layer for every file opened from now on; 0 when it worked. */
int syncCounterInstall(void);
/* Confirmed writes of data files (one for each synced transaction) and of anything (journals too). */
long syncCounterDataFiles(void);
long syncCounterAll(void);

#ifdef __cplusplus
}
#endif
