#pragma once

#include <stdint.h>

/* The interface of Vnzip.dll, the library beside the program that makes zip archives.
 *
 * Texts are UTF-8 with a zero behind them. The records have the order of the interface as it always was; where a
 * pointer is 32 bits wide they also have its offsets, elsewhere pointers have the width of the machine. Numbers are 0
 * for off. Paths are the system's own; a doubled slash in one parts the drive from the path on it. */

#ifdef __cplusplus
extern "C" {
#endif

typedef struct {
  const char* date;
  const char* rootDirectory; /* names of entries begin below it, and the archive is found from there */
  const char* tempDirectory;
  int32_t useTempDirectory, suffixes, encrypt;
  int32_t systemAndHidden; /* files with one of these attributes are taken, too */
  int32_t volumeLabel, excludeExtra;
  int32_t noDirectoryEntries;
  int32_t excludeByDate, includeByDate;
  int32_t messagesFull, messagesSecond;
  int32_t crLfToLf, lfToCrLf;
  int32_t junkNames; /* an entry is called as its file, without folders */
  int32_t grow, forceDosNames, move, deleteEntries;
  int32_t update;  /* an entry is replaced by a newer file alone */
  int32_t freshen; /* and none is added */
  int32_t junkPrefix, latestTime, comment, offsets, privilege, encryption;
  int32_t recurse; /* 2: folders with all that is below them */
  int32_t repair;
  char level;
} VnOptions;

typedef struct {
  int32_t (*print)(char* text, uint32_t length); /* what is left out and why, a line each */
  int32_t (*comment)(char* text);                /* 4097 bytes */
  int32_t (*password)(char* text, int32_t length);
  int32_t (*service)(char* text, uint32_t length); /* the entry in hand, once for each part of it; 1 stops */
} VnUserFunctions;

enum { VnSuccess = 0, VnFailed = 2, VnNotSupported = 3, VnStopped = 9, VnBadRequest = 16 };

/* The largest number of file specs of one call. */
enum { VnSlots = 1024 };
/* Bytes of a part of an entry; the last one has less. */
enum { VnPartLength = 1 << 20 };

int32_t ZpInit(const VnUserFunctions* functions);
int32_t ZpSetOptions(const VnOptions* options);
int32_t ZpGetOptions(VnOptions* options);
/* Adds what the first `count` file specs name to the archive: a file, or FOLDER slash "*.*". Nothing of it is in
 * the archive unless all is. Calls for one archive go on with each other until one with no file spec,
 * which writes nothing. */
int32_t ZpArchive(int32_t count, const char* archive, const char* const* fileSpecs);

#ifdef __cplusplus
}
#endif
