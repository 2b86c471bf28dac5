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

/* The record of a filter. */
typedef struct HostFilterRecord {
    uint8_t host00[0x188];
    const HostBasicSuite* basicSuite;
} HostFilterRecord;

/* The record of an export. */
typedef struct HostExportRecord {
    uint8_t host00[0x508];
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
LUMOGRAPH_OFFSET(HostFilterRecord, basicSuite, 0x188);
LUMOGRAPH_OFFSET(HostExportRecord, basicSuite, 0x508);
LUMOGRAPH_OFFSET(HostAboutRecord, size, 0x00);
LUMOGRAPH_OFFSET(HostAboutRecord, basicSuite, 0x08);

LUMOGRAPH_END

#endif
