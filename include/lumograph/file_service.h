/* The host's file service: six functions that a format reads and writes its file through.
 *
 * They come from the host's library, PLUGIN.dll on Windows and libPLUGIN.so on Linux, and buffer on
 * their own, so that many small calls are cheap. A host may bring a library of its own under that
 * name. */
#ifndef LUMOGRAPH_FILE_SERVICE_H
#define LUMOGRAPH_FILE_SERVICE_H

#include "records.h"

LUMOGRAPH_BEGIN

typedef struct HostFileBlock* HostFile;

enum { kHostOpenToRead = 0, kHostOpenToWrite = 1 };
enum { kHostSeekFromStart = 0, kHostSeekFromCurrent = 1 };

/* Opens the file that the host's operation on `record` is about. Null on failure. Every file is
 * closed by FastClose. */
HostFile FastOpen(HostFormatRecord* record, int16_t mode);

/* Reads up to `*count` bytes from the current position into `buffer` and leaves in `*count` how
 * many it delivered. 0 is success; fewer bytes than wanted count as a failure to the caller,
 * whatever the result says. */
int16_t FastRead(HostFile file, int64_t* count, void* buffer);

/* Writes `count` bytes at the current position. 0 is success: all of them are taken. */
int16_t FastWrite(HostFile file, int64_t count, const void* buffer);

/* The current position in bytes from the file's start. */
int64_t FastGetPosition(HostFile file);

/* Moves the current position to `offset` bytes from where kHostSeekFrom... says. 0 is success. */
int16_t FastSetPosition(HostFile file, int16_t mode, int64_t offset);

/* Ends the file; what was written is on the disk then, unless the result is not 0. */
int16_t FastClose(HostFile file);

LUMOGRAPH_END

#endif
