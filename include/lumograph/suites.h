/* Function tables that the host hands to a module. A null pointer to a suite or to a function of it
 * means: not there. */
#ifndef LUMOGRAPH_SUITES_H
#define LUMOGRAPH_SUITES_H

#include "base.h"

LUMOGRAPH_BEGIN

/* A piece of memory that the host gave out; the address is to be had by locking it. */
typedef struct HostBufferBlock* HostBuffer;

/* Working memory for pixels. A module gives back each buffer that it was given, in the phase that
 * asked for it. */
typedef struct HostBufferSuite {
    int16_t version; /* kHostBufferSuiteVersion */
    int16_t count;   /* functions in the table, at least kHostBufferSuiteCount */
    uint8_t reserved[4];
    /* Asks for `size` bytes, of any content. On 0 the buffer stands in `*buffer`; any other result
     * leaves it alone. */
    int16_t (*Allocate)(int32_t size, HostBuffer* buffer);
    /* Returns the address of the bytes, valid until Unlock, or null. */
    void* (*Lock)(HostBuffer buffer, uint8_t moveHigh);
    void (*Unlock)(HostBuffer buffer);
    /* Ends the buffer, locked or not. */
    void (*Free)(HostBuffer buffer);
    /* The bytes that the host would have a module use now. */
    int32_t (*Space)(void);
    void (*further[3])(void); /* not used by this protocol */
} HostBufferSuite;

enum { kHostBufferSuiteVersion = 2, kHostBufferSuiteCount = 8 };

/* The same table by name. The version of the name is not the version within the table. */
#define kHostBufferSuiteName "Lumograph Buffer Suite for Plug-ins"
enum { kHostBufferSuiteNameVersion = 1 };

LUMOGRAPH_OFFSET(HostBufferSuite, version, 0x00);
LUMOGRAPH_OFFSET(HostBufferSuite, count, 0x02);
LUMOGRAPH_OFFSET(HostBufferSuite, Allocate, 0x08);
LUMOGRAPH_OFFSET(HostBufferSuite, Lock, 0x10);
LUMOGRAPH_OFFSET(HostBufferSuite, Unlock, 0x18);
LUMOGRAPH_OFFSET(HostBufferSuite, Free, 0x20);
LUMOGRAPH_OFFSET(HostBufferSuite, Space, 0x28);

/* A movable block that can live as long as the module's data word. */
typedef struct HostHandleBlock* HostHandle;

typedef struct HostHandleSuite {
    int16_t version; /* kHostHandleSuiteVersion */
    int16_t count;   /* functions in the table, at least kHostHandleSuiteCount */
    uint8_t reserved[4];
    HostHandle (*New)(int32_t size); /* null when there is no memory */
    void (*Dispose)(HostHandle handle);
    void* (*Lock)(HostHandle handle,
                  uint8_t moveHigh); /* the address, valid until Unlock, or null */
    void (*Unlock)(HostHandle handle);
    int32_t (*Size)(HostHandle handle);
} HostHandleSuite;

enum { kHostHandleSuiteVersion = 1, kHostHandleSuiteCount = 5 };

LUMOGRAPH_OFFSET(HostHandleSuite, version, 0x00);
LUMOGRAPH_OFFSET(HostHandleSuite, count, 0x02);
LUMOGRAPH_OFFSET(HostHandleSuite, New, 0x08);
LUMOGRAPH_OFFSET(HostHandleSuite, Dispose, 0x10);
LUMOGRAPH_OFFSET(HostHandleSuite, Lock, 0x18);
LUMOGRAPH_OFFSET(HostHandleSuite, Unlock, 0x20);
LUMOGRAPH_OFFSET(HostHandleSuite, Size, 0x28);

/* Where named suites come from. */
typedef struct HostSuiteTable {
    /* On 0 the suite's table stands in `*suite` until it is released as often as it was acquired.
     */
    int32_t (*AcquireSuite)(const char* name, int32_t version, const void** suite);
    int32_t (*ReleaseSuite)(const char* name, int32_t version);
} HostSuiteTable;

typedef struct HostBasicSuite {
    const void* reserved;
    const HostSuiteTable* suites; /* null: no named suites */
} HostBasicSuite;

LUMOGRAPH_OFFSET(HostSuiteTable, AcquireSuite, 0x00);
LUMOGRAPH_OFFSET(HostSuiteTable, ReleaseSuite, 0x08);
LUMOGRAPH_OFFSET(HostBasicSuite, suites, 0x08);

/* Properties of the host, by signature and key. */
#define kHostPropertySuiteName "Lumograph Property Suite for Plug-ins"
enum { kHostPropertySuiteVersion = 1 };

typedef struct HostPropertySuite {
    /* On 0 a number stands in `*value` or a block in `*handle`, whichever kind the property is;
     * either may be null. */
    int32_t (*GetProperty)(uint32_t signature, uint32_t key, int32_t index, intptr_t* value,
                           void** handle);
} HostPropertySuite;

LUMOGRAPH_OFFSET(HostPropertySuite, GetProperty, 0x00);

/* Keys of the host's own properties, under kLumographSignature. */
#define kPropertyUiBrightness LUMOGRAPH_KEY('U', 'I', 'B', 'R')
#define kPropertyHighContrast LUMOGRAPH_KEY('H', 'L', 'C', 'R')
#define kPropertyLargeTabs LUMOGRAPH_KEY('L', 'G', 'T', 'B')
#define kPropertyUiScale LUMOGRAPH_KEY('S', 'U', 'F', 'Z')
#define kPropertyHighDpi LUMOGRAPH_KEY('H', 'D', 'P', 'I')
/* Not 0: a filter is to take its memory from the host's buffers. */
#define kPropertyUseHostBuffers LUMOGRAPH_KEY('z', 'S', 'c', 'W')
/* Not 0: a module neither reads nor stores what it keeps for the user from one run to the next. */
#define kPropertySettingsOff LUMOGRAPH_KEY('S', 'T', 'O', 'F')

/* Colours between spaces. A preview asks for it and does without. */
#define kHostColorSpaceSuiteName "Lumograph ColorSpace Suite for Plug-ins"
enum { kHostColorSpaceSuiteVersion = 1 };

/* Suites that the protocol names and asks nothing of yet: a table without functions. */
#define kHostHelpSuiteName "Lumograph Help Suite for Plug-ins"
#define kHostUtilitiesSuiteName "Lumograph Utilities Suite for Plug-ins"
#define kHostPaletteSuiteName "Lumograph Palette Suite"
enum {
    kHostHelpSuiteVersion1 = 1,
    kHostHelpSuiteVersion2 = 2,
    kHostUtilitiesSuiteVersion = 1,
    kHostPaletteSuiteVersion = 1
};

typedef struct HostBareSuite {
    int16_t version; /* kHostBareTableVersion */
    int16_t count;   /* 0; functions that are added count here */
    uint8_t reserved[4];
} HostBareSuite;

enum { kHostBareTableVersion = 1 };

LUMOGRAPH_OFFSET(HostBareSuite, count, 0x02);
LUMOGRAPH_ASSERT(sizeof(HostBareSuite) == 0x08, "HostBareSuite has 0x08 bytes");

/* Settings that the user of a host wants for a run without a dialog, as texts by name. A filter or
 * an export reads those that it has at its start. A host refuses the run when it holds a setting
 * that the module never asked for. */
#define kHostSettingsSuiteName "Lumograph Settings Suite for Plug-ins"
enum { kHostSettingsSuiteVersion = 1, kHostSettingsTableVersion = 1 };

typedef struct HostSettingsSuite {
    int16_t version; /* kHostSettingsTableVersion */
    int16_t count;   /* 2 */
    uint8_t reserved[4];
    /* On 0 the setting's text in UTF-8 stands in `*value`, until the selector returns. Any other
     * result: the setting is the module's own matter. */
    int32_t (*Find)(const char* name, const char** value);
    /* Tells that the text of a setting is of no use, and what is: "a number from 1 to 250". The
     * module then ends its selector with kHostBadParameter. */
    int32_t (*Refuse)(const char* name, const char* wanted);
} HostSettingsSuite;

LUMOGRAPH_OFFSET(HostSettingsSuite, version, 0x00);
LUMOGRAPH_OFFSET(HostSettingsSuite, count, 0x02);
LUMOGRAPH_OFFSET(HostSettingsSuite, Find, 0x08);
LUMOGRAPH_OFFSET(HostSettingsSuite, Refuse, 0x10);

LUMOGRAPH_END

#endif
