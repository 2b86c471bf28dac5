/* The parameter records that an entry point is called with. */
#ifndef LUMOGRAPH_RECORDS_H
#define LUMOGRAPH_RECORDS_H

#include "base.h"
#include "suites.h"

LUMOGRAPH_BEGIN

enum { kHostModeGrayscale = 1, kHostModeIndexed = 2, kHostModeRGB = 3 };

/* Bottom and right are exclusive. */
typedef struct HostRect16 {
    int16_t top;
    int16_t left;
    int16_t bottom;
    int16_t right;
} HostRect16;

/* How the user runs the host's recorded actions. */
typedef struct HostPlaybackBlock {
    int16_t reserved;
    int16_t playMode; /* kHostPlaySilent: the module must show no user interface */
} HostPlaybackBlock;

enum { kHostPlaySilent = 2 };

LUMOGRAPH_OFFSET(HostPlaybackBlock, playMode, 2);

#pragma pack(push, 1)

/* The record of a file format. Fields that are not named here belong to the host. */
typedef struct HostFormatRecord {
    uint8_t host00[4];
    uint8_t (*abortCheck)(void); /* non-zero: stop, the user asked for it */
    void (*progressReport)(int32_t current, int32_t total); /* before each row */
    int32_t memoryBudget; /* bytes; a prepare selector says what the module asks the host to leave
                             to it */
    int32_t estimateMin;  /* bytes of the file to be written, at least */
    int32_t estimateMax;  /* and at most */
    uint8_t host20[0x20];
    int16_t colorMode;    /* kHostMode... */
    int16_t rowCount;     /* height in pixels */
    int16_t columnCount;  /* width in pixels */
    int16_t channelDepth; /* bits of a channel */
    int16_t planeCount;
    uint8_t host4A[2];
    int32_t horizontalResolution; /* pixels an inch, 16.16 fixed point */
    int32_t verticalResolution;
    uint8_t redLut[256]; /* the colour table of an indexed picture */
    uint8_t greenLut[256];
    uint8_t blueLut[256];
    void* rowsAddress;       /* rows that exchangeRows passes on; null when there are none */
    HostRect16 exchangeRect; /* and where in the picture they belong */
    int16_t firstPlane;      /* planes that they hold, first and last */
    int16_t lastPlane;
    int16_t pixelStride; /* bytes from pixel to pixel */
    uint8_t host36A[2];
    int32_t rowStride;     /* bytes from row to row */
    int32_t planeStride;   /* bytes from plane to plane */
    int16_t planeOrder[4]; /* the host's plane that each interleaved position holds */
    uint8_t host37C[0x80];
    const HostBufferSuite* bufferSuite;
    uint8_t host404[0x10];
    uint32_t hostVersionField;
    uint8_t host418[4];
    const HostHandleSuite* handleSuite;
    uint8_t host424[4];
    const void* hostProcsA;
    int16_t (*exchangeRows)(
        void); /* passes exchangeRect between the picture and rowsAddress; 0 is success */
    const HostBasicSuite* basicSuite;
    uint8_t host440[0x10];
    const HostPlaybackBlock* playbackBlock; /* null: an ordinary run */
    uint8_t host458[0x50];
    const void* hostProcsB;
    const void* hostProcsC;
    uint8_t quietOpen; /* non-zero: open the first frame and don't ask */
    uint8_t host4B9[7];
} HostFormatRecord;

/* A rectangle where a side passes 16 bits. Right and bottom are exclusive. */
typedef struct HostRect32 {
    int32_t left;
    int32_t top;
    int32_t right;
    int32_t bottom;
} HostRect32;

/* The rectangles that a filter asks for, in 32 bits: they count in place of those of the record
 * where a side passes 16 bits. */
typedef struct HostWideRects {
    uint8_t host00[0x1C];
    HostRect32 source;
    HostRect32 result;
    HostRect32 mask;
} HostWideRects;

/* What pixels of a block beyond the picture are filled with: 0 to 255 is a sample, as a part of 255
 * of white at every depth, or one of these. */
enum {
    kHostFillEdge = -1, /* the nearest pixel of the picture */
    kHostFillNone = -2  /* nothing in particular: the module doesn't look at them */
};

/* The record of a filter.
 *
 * Before a fetch, and before it returns from start or continue, a filter sets the rectangles and
 * planes of the blocks that it wants; an empty rectangle wants none. What a fetch lent before is
 * given back by the next fetch and by the end of the selector, and a result block is taken over
 * then. Samples of a block are interleaved by pixel: bytes, 16 bits from 0 to 32768 in the
 * machine's order, or floats, as `depth` says. */
typedef struct HostFilterRecord {
    uint8_t host00[4];
    uint8_t (*abortCheck)(void); /* non-zero: stop, the user asked for it */
    void (*progressReport)(int32_t current, int32_t total);
    uint8_t host14[8];
    int16_t documentHeight;
    int16_t documentWidth;
    uint8_t host20[2];
    HostRect16 targetRect; /* what the filter is to change */
    uint8_t host2A[0xE];
    int32_t spaceBudget;        /* bytes that the host can give; prepare says how many are wanted */
    int32_t bufferShare;        /* the part of it for the module's own buffers */
    HostRect16 sourceBlockRect; /* the source's block that is wanted */
    int16_t sourceFirstPlane;
    int16_t sourceLastPlane;
    HostRect16 resultBlockRect; /* the result's */
    int16_t resultFirstPlane;
    int16_t resultLastPlane;
    uint8_t host58[0xC];
    const void* sourceBlock; /* its bytes */
    int32_t sourceStride;    /* bytes from row to row */
    uint8_t floatingFlag;    /* non-zero: the pixels float above a layer */
    uint8_t maskPresent;     /* non-zero: only a selected part changes */
    uint8_t maskAutomatic;   /* non-zero: the host applies the mask itself */
    uint8_t host73;
    HostRect16 maskBlockRect; /* the mask's block that is wanted */
    const void* maskBlock;    /* a byte for each pixel at every depth, 255 where all is selected */
    int32_t maskStride;
    void* resultBlock; /* what the filter writes to */
    int32_t resultStride;
    uint8_t host94[8];
    int16_t filterPlanes; /* planes of a pixel */
    uint8_t host9E[0x7A];
    int16_t (*fetchBlocks)(void); /* lends the blocks that are wanted; 0 is success */
    uint8_t host120[0xE];
    int16_t sourceFill; /* 0 to 255 or kHostFill... */
    int16_t resultFill;
    int16_t maskFill;
    uint8_t host134[4];
    int32_t inputRate; /* source pixels for each of the block, 16.16 fixed point; 1.0 */
    int32_t outputRate;
    uint8_t host140[8];
    int16_t inputColorPlanes; /* planes of the source by what they hold */
    int16_t inputTransparency;
    int16_t inputLayerMask;
    int16_t inputInvert;
    uint8_t host150[2];
    int16_t outputColorPlanes; /* and of the result */
    int16_t outputTransparency;
    int16_t outputLayerMask;
    int16_t outputInvert;
    uint8_t host15A[0x2E];
    const HostBasicSuite* basicSuite;
    uint8_t host190[0x50];
    int32_t depth; /* bits of a sample: 8, 16 or 32 */
    uint8_t host1E4[0x14];
    HostWideRects* wideRects; /* null: 16 bits are enough */
} HostFilterRecord;

/* The record of an export. */
typedef struct HostExportRecord {
    uint8_t host00[4];
    uint8_t (*abortCheck)(void); /* non-zero: stop, the user asked for it */
    void (*progressReport)(int32_t current, int32_t total);
    uint8_t host14[4];
    int32_t memoryBudget; /* bytes; the check says what the module asks the host to leave to it */
    uint8_t host1C[4];
    HostRect16 blockRect; /* the block of the document that is wanted */
    int16_t firstPlane;
    int16_t lastPlane;
    uint8_t host2C[4];
    const void* block;           /* its bytes, interleaved by pixel, until the next fetch */
    int16_t (*fetchBlock)(void); /* lends the block that is wanted; 0 is success */
    int32_t blockStride;         /* bytes from row to row */
    int32_t documentWidth;
    int32_t documentHeight;
    int32_t depth;     /* bits of a sample: 8, 16 or 32 */
    int16_t colorMode; /* kHostMode... */
    int16_t planeCount;
    int32_t horizontalResolution; /* pixels an inch, 16.16 fixed point */
    int32_t verticalResolution;
    uint8_t host5C[4];
    const char* outputPath; /* UTF-8 */
    uint8_t host68[0x4A0];
    const HostBasicSuite* basicSuite;
} HostExportRecord;

#pragma pack(pop)

/* The record of the about selectors. */
typedef struct HostAboutRecord {
    uint32_t size; /* of this record, in bytes */
    const HostBasicSuite* basicSuite;
} HostAboutRecord;

LUMOGRAPH_OFFSET(HostFormatRecord, abortCheck, 0x04);
LUMOGRAPH_OFFSET(HostFormatRecord, progressReport, 0x0C);
LUMOGRAPH_OFFSET(HostFormatRecord, memoryBudget, 0x14);
LUMOGRAPH_OFFSET(HostFormatRecord, estimateMin, 0x18);
LUMOGRAPH_OFFSET(HostFormatRecord, estimateMax, 0x1C);
LUMOGRAPH_OFFSET(HostFormatRecord, colorMode, 0x40);
LUMOGRAPH_OFFSET(HostFormatRecord, rowCount, 0x42);
LUMOGRAPH_OFFSET(HostFormatRecord, columnCount, 0x44);
LUMOGRAPH_OFFSET(HostFormatRecord, channelDepth, 0x46);
LUMOGRAPH_OFFSET(HostFormatRecord, planeCount, 0x48);
LUMOGRAPH_OFFSET(HostFormatRecord, horizontalResolution, 0x4C);
LUMOGRAPH_OFFSET(HostFormatRecord, verticalResolution, 0x50);
LUMOGRAPH_OFFSET(HostFormatRecord, redLut, 0x54);
LUMOGRAPH_OFFSET(HostFormatRecord, greenLut, 0x154);
LUMOGRAPH_OFFSET(HostFormatRecord, blueLut, 0x254);
LUMOGRAPH_OFFSET(HostFormatRecord, rowsAddress, 0x354);
LUMOGRAPH_OFFSET(HostFormatRecord, exchangeRect, 0x35C);
LUMOGRAPH_OFFSET(HostFormatRecord, firstPlane, 0x364);
LUMOGRAPH_OFFSET(HostFormatRecord, lastPlane, 0x366);
LUMOGRAPH_OFFSET(HostFormatRecord, pixelStride, 0x368);
LUMOGRAPH_OFFSET(HostFormatRecord, rowStride, 0x36C);
LUMOGRAPH_OFFSET(HostFormatRecord, planeStride, 0x370);
LUMOGRAPH_OFFSET(HostFormatRecord, planeOrder, 0x374);
LUMOGRAPH_OFFSET(HostFormatRecord, bufferSuite, 0x3FC);
LUMOGRAPH_OFFSET(HostFormatRecord, hostVersionField, 0x414);
LUMOGRAPH_OFFSET(HostFormatRecord, handleSuite, 0x41C);
LUMOGRAPH_OFFSET(HostFormatRecord, hostProcsA, 0x428);
LUMOGRAPH_OFFSET(HostFormatRecord, exchangeRows, 0x430);
LUMOGRAPH_OFFSET(HostFormatRecord, basicSuite, 0x438);
LUMOGRAPH_OFFSET(HostFormatRecord, playbackBlock, 0x450);
LUMOGRAPH_OFFSET(HostFormatRecord, hostProcsB, 0x4A8);
LUMOGRAPH_OFFSET(HostFormatRecord, hostProcsC, 0x4B0);
LUMOGRAPH_OFFSET(HostFormatRecord, quietOpen, 0x4B8);
LUMOGRAPH_ASSERT(sizeof(HostFormatRecord) == 0x4C0, "HostFormatRecord has 0x4C0 bytes");
LUMOGRAPH_ASSERT(sizeof(HostRect16) == 8, "HostRect16 has 8 bytes");
LUMOGRAPH_OFFSET(HostFilterRecord, abortCheck, 0x04);
LUMOGRAPH_OFFSET(HostFilterRecord, progressReport, 0x0C);
LUMOGRAPH_OFFSET(HostFilterRecord, documentHeight, 0x1C);
LUMOGRAPH_OFFSET(HostFilterRecord, documentWidth, 0x1E);
LUMOGRAPH_OFFSET(HostFilterRecord, targetRect, 0x22);
LUMOGRAPH_OFFSET(HostFilterRecord, spaceBudget, 0x38);
LUMOGRAPH_OFFSET(HostFilterRecord, bufferShare, 0x3C);
LUMOGRAPH_OFFSET(HostFilterRecord, sourceBlockRect, 0x40);
LUMOGRAPH_OFFSET(HostFilterRecord, sourceFirstPlane, 0x48);
LUMOGRAPH_OFFSET(HostFilterRecord, sourceLastPlane, 0x4A);
LUMOGRAPH_OFFSET(HostFilterRecord, resultBlockRect, 0x4C);
LUMOGRAPH_OFFSET(HostFilterRecord, resultFirstPlane, 0x54);
LUMOGRAPH_OFFSET(HostFilterRecord, resultLastPlane, 0x56);
LUMOGRAPH_OFFSET(HostFilterRecord, sourceBlock, 0x64);
LUMOGRAPH_OFFSET(HostFilterRecord, sourceStride, 0x6C);
LUMOGRAPH_OFFSET(HostFilterRecord, floatingFlag, 0x70);
LUMOGRAPH_OFFSET(HostFilterRecord, maskPresent, 0x71);
LUMOGRAPH_OFFSET(HostFilterRecord, maskAutomatic, 0x72);
LUMOGRAPH_OFFSET(HostFilterRecord, maskBlockRect, 0x74);
LUMOGRAPH_OFFSET(HostFilterRecord, maskBlock, 0x7C);
LUMOGRAPH_OFFSET(HostFilterRecord, maskStride, 0x84);
LUMOGRAPH_OFFSET(HostFilterRecord, resultBlock, 0x88);
LUMOGRAPH_OFFSET(HostFilterRecord, resultStride, 0x90);
LUMOGRAPH_OFFSET(HostFilterRecord, filterPlanes, 0x9C);
LUMOGRAPH_OFFSET(HostFilterRecord, fetchBlocks, 0x118);
LUMOGRAPH_OFFSET(HostFilterRecord, sourceFill, 0x12E);
LUMOGRAPH_OFFSET(HostFilterRecord, resultFill, 0x130);
LUMOGRAPH_OFFSET(HostFilterRecord, maskFill, 0x132);
LUMOGRAPH_OFFSET(HostFilterRecord, inputRate, 0x138);
LUMOGRAPH_OFFSET(HostFilterRecord, outputRate, 0x13C);
LUMOGRAPH_OFFSET(HostFilterRecord, inputColorPlanes, 0x148);
LUMOGRAPH_OFFSET(HostFilterRecord, inputTransparency, 0x14A);
LUMOGRAPH_OFFSET(HostFilterRecord, inputLayerMask, 0x14C);
LUMOGRAPH_OFFSET(HostFilterRecord, inputInvert, 0x14E);
LUMOGRAPH_OFFSET(HostFilterRecord, outputColorPlanes, 0x152);
LUMOGRAPH_OFFSET(HostFilterRecord, outputTransparency, 0x154);
LUMOGRAPH_OFFSET(HostFilterRecord, outputLayerMask, 0x156);
LUMOGRAPH_OFFSET(HostFilterRecord, outputInvert, 0x158);
LUMOGRAPH_OFFSET(HostFilterRecord, basicSuite, 0x188);
LUMOGRAPH_OFFSET(HostFilterRecord, depth, 0x1E0);
LUMOGRAPH_OFFSET(HostFilterRecord, wideRects, 0x1F8);
LUMOGRAPH_ASSERT(sizeof(HostFilterRecord) == 0x200, "HostFilterRecord has 0x200 bytes");
LUMOGRAPH_OFFSET(HostExportRecord, abortCheck, 0x04);
LUMOGRAPH_OFFSET(HostExportRecord, progressReport, 0x0C);
LUMOGRAPH_OFFSET(HostExportRecord, memoryBudget, 0x18);
LUMOGRAPH_OFFSET(HostExportRecord, blockRect, 0x20);
LUMOGRAPH_OFFSET(HostExportRecord, firstPlane, 0x28);
LUMOGRAPH_OFFSET(HostExportRecord, lastPlane, 0x2A);
LUMOGRAPH_OFFSET(HostExportRecord, block, 0x30);
LUMOGRAPH_OFFSET(HostExportRecord, fetchBlock, 0x38);
LUMOGRAPH_OFFSET(HostExportRecord, blockStride, 0x40);
LUMOGRAPH_OFFSET(HostExportRecord, documentWidth, 0x44);
LUMOGRAPH_OFFSET(HostExportRecord, documentHeight, 0x48);
LUMOGRAPH_OFFSET(HostExportRecord, depth, 0x4C);
LUMOGRAPH_OFFSET(HostExportRecord, colorMode, 0x50);
LUMOGRAPH_OFFSET(HostExportRecord, planeCount, 0x52);
LUMOGRAPH_OFFSET(HostExportRecord, horizontalResolution, 0x54);
LUMOGRAPH_OFFSET(HostExportRecord, verticalResolution, 0x58);
LUMOGRAPH_OFFSET(HostExportRecord, outputPath, 0x60);
LUMOGRAPH_OFFSET(HostExportRecord, basicSuite, 0x508);
LUMOGRAPH_ASSERT(sizeof(HostExportRecord) == 0x510, "HostExportRecord has 0x510 bytes");
LUMOGRAPH_OFFSET(HostWideRects, source, 0x1C);
LUMOGRAPH_OFFSET(HostWideRects, result, 0x2C);
LUMOGRAPH_OFFSET(HostWideRects, mask, 0x3C);
LUMOGRAPH_ASSERT(sizeof(HostWideRects) == 0x4C, "HostWideRects has 0x4C bytes");
LUMOGRAPH_OFFSET(HostAboutRecord, size, 0x00);
LUMOGRAPH_OFFSET(HostAboutRecord, basicSuite, 0x08);

LUMOGRAPH_END

#endif
