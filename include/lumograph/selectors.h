/* Selectors: what the host asks of an entry point, and in which order.
 *
 * All calls come on one thread, the host's. The data word is 0 at a module's first call and is the
 * module's own from then on. The record is valid during the call and may lie elsewhere the next
 * time. A call that answers 0 has succeeded; a prepare or start that fails ends its group, and the
 * module expects no finish for it; after a start that succeeded the finish always comes.
 *
 * A format. "In" are the fields of HostFormatRecord that hold on entry, besides the callbacks and
 * suites; "out" those that hold on exit.
 *
 *   load              once, before all else, if the property list says "LoadUnload"
 *   unload            once, after all else, if load was sent
 *   about             on its own; the record is a HostAboutRecord
 *   filter file       before a read, for a file that may be of the format; 0 says that it is
 *
 *   read prepare      for each file that is opened. out: memoryBudget
 *   read start        in: quietOpen, playbackBlock. out: colorMode, rowCount, columnCount,
 *                     channelDepth, planeCount, the colour table, the resolution
 *   read continue     until all rows came, and as long as each call brings some. Within it the
 *                     module calls exchangeRows with exchangeRect, the planes, the strides and
 *                     rowsAddress set; out: rowsAddress null
 *   read finish       ends the read, however it went
 *
 *   options prepare   for each document that is saved. out: memoryBudget
 *   options start     the module asks the user how to save, if it has options
 *   options continue, options finish
 *
 *   estimate prepare  after the options. out: memoryBudget
 *   estimate start    in: what read start gives, of the document. out: estimateMin, estimateMax
 *   estimate continue, estimate finish
 *
 *   write prepare     after the estimate. out: memoryBudget
 *   write start       in: what read start gives, of the document; out: what exchangeRows will pass
 *   write continue    within it the module calls exchangeRows for each row and gets its pixels
 *   write finish      ends the write, however it went
 *
 *   extra read start, continue, finish, and the same of write: a second pass over an open file,
 *                     between the continue and the finish of the first
 *
 * A filter, by the fields of HostFilterRecord. The record's basicSuite counts in every call.
 *
 *   about             on its own; the record is a HostAboutRecord
 *   parameters        asks the user; left out for a silent run, which takes the settings of the
 *                     last one. In: the document, depth and planes, fetchBlocks for a preview
 *   prepare           in: spaceBudget; out: spaceBudget, bufferShare
 *   start             in: as parameters; out: the block rectangles and planes that are wanted first
 *   continue          until all of the rectangles are empty. in: the blocks that were asked for;
 *                     out: the next ones
 *   finish            ends the run
 *
 * An export, by the fields of HostExportRecord.
 *
 *   about             on its own; the record is a HostAboutRecord
 *   parameters        the check, in which the module may ask the user; left out for a silent run,
 *                     which takes the settings of the last one. in: the document and memoryBudget;
 *                     out: memoryBudget
 *   prepare           in: the document and outputPath
 *   start             the export itself; the module asks for blocks with fetchBlock
 *   finish            ends the run */
#ifndef LUMOGRAPH_SELECTORS_H
#define LUMOGRAPH_SELECTORS_H

#include "base.h"

/* Entries of file formats. */
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
