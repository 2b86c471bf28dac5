/* Result codes of the host's protocol: what a result word or a host call can hold. */
#ifndef LUMOGRAPH_RESULTS_H
#define LUMOGRAPH_RESULTS_H

#include "base.h"

enum {
    kHostNoError = 0,
    kHostFailed = 1,          /* anything that has no code of its own */
    kHostPixelLength = 2,     /* a pixel of a length that the format can't hold */
    kHostReadError = -19,     /* the data could not be read */
    kHostWriteError = -20,    /* the data could not be written */
    kHostOpenError = -23,     /* the permission asked for is not allowed */
    kHostDiskFull = -34,      /* the disk is full */
    kHostIoError = -36,       /* a file system error */
    kHostEndOfFile = -39,     /* the data ended too early */
    kHostFileNotFound = -43,  /* no such file or directory */
    kHostFileLocked = -45,    /* the file is locked */
    kHostVolumeLocked = -46,  /* the volume is locked */
    kHostBadParameter = -50,  /* an error in the parameters */
    kHostMemoryFull = -108,   /* not enough memory */
    kHostNilHandle = -109,    /* a null handle was used */
    kHostMemoryFreed = -111,  /* a free block was used */
    kHostUserCanceled = -128, /* the user stopped the operation */
    kHostBadMode =
        -30500, /* the format can't serve the selector, the colour mode or the frame number */
    kHostCannotRead = -30501,  /* the file can't be opened or read, or isn't in the format */
    kHostFilterFileA = -30504, /* answers to "filter file" that reach the host as they are */
    kHostFilterFileB = -30505,
    kHostMissingSuite = -30900 /* a suite that the module needs is missing or too old */
};

#endif
