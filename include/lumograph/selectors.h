/* Selectors: what the host asks of an entry point. */
#ifndef LUMOGRAPH_SELECTORS_H
#define LUMOGRAPH_SELECTORS_H

#include "base.h"

/* Entries of file formats. One host operation is prepare, start, continue (repeated while the host
 * wishes), finish. */
enum {
    kFormatAbout = 0, /* the record is a HostAboutRecord */
    kFormatReadPrepare = 1,
    kFormatReadStart = 2,
    kFormatReadContinue = 3,
    kFormatReadFinish = 4,
    kFormatOptionsPrepare = 5,
    kFormatOptionsStart = 6,
    kFormatOptionsContinue = 7,
    kFormatOptionsFinish = 8,
    kFormatEstimatePrepare = 9,
    kFormatEstimateStart = 10,
    kFormatEstimateContinue = 11,
    kFormatEstimateFinish = 12,
    kFormatWritePrepare = 13,
    kFormatWriteStart = 14,
    kFormatWriteContinue = 15,
    kFormatWriteFinish = 16,
    kFormatFilterFile = 17,
    kFormatExtension20 = 20,
    kFormatExtension21 = 21,
    kFormatExtension22 = 22,
    kFormatExtension23 = 23,
    kFormatLoad = 24,   /* once, when the property list says "LoadUnload": the module stays resident
                           from here */
    kFormatUnload = 25, /* the end of that */
    kFormatExtension26 = 26,
    kFormatForwardedFirst = 27,
    kFormatForwardedLast = 33,
    kFormatExtension34 = 34,
    kFormatExtraReadStart = 35,
    kFormatExtraReadContinue = 36,
    kFormatExtraReadFinish = 37,
    kFormatExtraWriteStart = 38,
    kFormatExtraWriteContinue = 39,
    kFormatExtraWriteFinish = 40,
    kFormatSelectorCount = 41
};

/* Entries of filters. */
enum {
    kFilterAbout = 0,
    kFilterParameters = 1,
    kFilterPrepare = 2,
    kFilterStart = 3,
    kFilterContinue = 4,
    kFilterFinish = 5
};

/* Entries of exports. */
enum {
    kExportAbout = 0,
    kExportPrepare = 1,
    kExportStart = 2,
    kExportFinish = 3,
    kExportParameters = 4
};

#endif
