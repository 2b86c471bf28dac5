/* How the host tells its file service which file a format record is about.
 *
 * FastOpen knows a record only. The host therefore binds the record to a path before it calls a
 * module and unbinds it afterwards. Writing goes to a temporary file beside the path; only
 * FileServiceCommit gives it the path's name, so that an operation that fails leaves the path as it
 * was. One thread at a time. Results are codes of results.h. */
#ifndef LUMOGRAPH_FILE_SERVICE_CONTROL_H
#define LUMOGRAPH_FILE_SERVICE_CONTROL_H

#include "file_service.h"

LUMOGRAPH_BEGIN

/* Binds `record` to the file at `path` (UTF-8), in place of an earlier binding, which ends as by
 * FileServiceUnbind. */
int16_t FileServiceBind(const HostFormatRecord* record, const char* path);

/* Ends the binding: closes files that were left open, removes what was written and not committed.
 */
void FileServiceUnbind(const HostFormatRecord* record);

/* Gives what was written for `record` the name of its path. A file still open, or any write that
 * failed, is a failure: then nothing changes. */
int16_t FileServiceCommit(const HostFormatRecord* record);

typedef struct FileServiceReport {
    int16_t openResult; /* of the last FastOpen */
    int16_t ioResult;  /* the first failure of a read, write, seek or close since FileServiceBind */
    int32_t openFiles; /* opened and not closed yet */
} FileServiceReport;

/* What happened to the files of `record` since it was bound; zeros when it isn't bound. */
FileServiceReport FileServiceInspect(const HostFormatRecord* record);

/* The buffer of files opened from now on, in bytes; 0 is the default of 256 KiB. */
void FileServiceSetBuffer(size_t bytes);

LUMOGRAPH_END

#endif
