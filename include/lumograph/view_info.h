/* How a host looks into a plug-in's window: the suites through which the module describes its
 * views, and the turns that the host gets while such a window is up.
 *
 * The module registers one callback for each of its objects when a window opens. The host calls it
 * in a turn, with the key of "getViewInfo", and gets a descriptor that holds the window and all of
 * its views. The descriptor is the host's to free, also after a false answer.
 *
 * Each table begins with its own version and the count of its functions. Results are int32, 0 for
 * success; keys are 32-bit numbers, which HostStringIdSuite makes of names; texts are UTF-8. What
 * is put into a descriptor or appended to a list belongs to it from then on. */
#ifndef LUMOGRAPH_VIEW_INFO_H
#define LUMOGRAPH_VIEW_INFO_H

#include "base.h"

LUMOGRAPH_BEGIN

typedef struct HostDescriptorBlock* HostDescriptor;
typedef struct HostListBlock* HostList;

#define kHostDescriptorSuiteName "df135115-c769-11d0-8079-00c04fd7ec47"
enum { kHostDescriptorSuiteVersion = 5, kHostDescriptorTableVersion = 1 };

typedef struct HostDescriptorSuite {
    int16_t version; /* kHostDescriptorTableVersion */
    int16_t count;   /* 8 */
    uint8_t reserved[4];
    int32_t (*Make)(HostDescriptor* descriptor);
    int32_t (*Free)(HostDescriptor descriptor); /* with all that it holds; null is good */
    int32_t (*PutInteger)(HostDescriptor descriptor, uint32_t key, int32_t value);
    int32_t (*PutFloat)(HostDescriptor descriptor, uint32_t key, double value);
    int32_t (*PutBoolean)(HostDescriptor descriptor, uint32_t key, uint8_t value);
    int32_t (*PutString)(HostDescriptor descriptor, uint32_t key, const char* text);
    int32_t (*PutObject)(HostDescriptor descriptor, uint32_t key, uint32_t type,
                         HostDescriptor object);
    int32_t (*PutList)(HostDescriptor descriptor, uint32_t key, HostList list);
} HostDescriptorSuite;

#define kHostListSuiteName "df135116-c769-11d0-8079-00c04fd7ec47"
enum { kHostListSuiteVersion = 3, kHostListTableVersion = 1 };

typedef struct HostListSuite {
    int16_t version; /* kHostListTableVersion */
    int16_t count;   /* 3 */
    uint8_t reserved[4];
    int32_t (*Make)(HostList* list);
    int32_t (*Free)(HostList list); /* with all that it holds; null is good */
    int32_t (*Append)(HostList list, uint32_t type, HostDescriptor object);
} HostListSuite;

#define kHostStringIdSuiteName "3eb7c480-8797-11d1-8da7-00c04fd5f7ee"
enum { kHostStringIdSuiteVersion = 3, kHostStringIdTableVersion = 1 };

typedef struct HostStringIdSuite {
    int16_t version; /* kHostStringIdTableVersion */
    int16_t count;   /* 1 */
    uint8_t reserved[4];
    /* The key of a name, the same for as long as the host runs, never that of another name. */
    int32_t (*KeyOf)(const char* name, uint32_t* key);
} HostStringIdSuite;

/* Describes a window of the module. `window` is the system's handle, null for the module's
 * frontmost one; `projectIndex` is what was registered; `eventKey` is the key of "getViewInfo".
 * Non-zero: `*descriptorOut` describes the window. */
typedef uint8_t (*HostViewInfoCallback)(void* window, int32_t projectIndex,
                                        HostDescriptor* descriptorOut, uint32_t eventKey);

/* An input event that the host hands to a window of the module. */
typedef struct HostInputEvent {
    void* window;     /* the system's handle, null for the module's frontmost window */
    uint32_t message; /* a message number of Windows, on every system */
    uint32_t reserved;
    uint64_t first; /* the message's two numbers, as Windows packs them */
    int64_t second;
} HostInputEvent;

#define kHostUIHooksSuiteName "Lumograph UIHooks Suite for Plug-ins"
enum { kHostUIHooksSuiteVersion4 = 4, kHostUIHooksTableVersion = 1 };
enum { kHostViewInfoHook = 1, kHostViewInfoHookVersion = 4 };

typedef struct HostUIHooksSuite4 {
    int16_t version; /* kHostUIHooksTableVersion */
    int16_t count;   /* 3 */
    uint8_t reserved[4];
    /* `hook` is kHostViewInfoHook, `hookVersion` kHostViewInfoHookVersion. */
    int32_t (*RegisterViewInfo)(HostViewInfoCallback callback, int32_t hook, int32_t hookVersion,
                                int32_t projectIndex);
    int32_t (*UnregisterViewInfo)(HostViewInfoCallback callback, int32_t hook, int32_t hookVersion,
                                  int32_t projectIndex);
    /* The host's turn. While a window of it is up, a module calls this on its own thread whenever
     * no event waits, at least 20 times a second, and handles the event when the answer is not 0,
     * before it asks again. Within a turn the host may call the view-info callback. Null: the host
     * takes no turns; without a display a module's dialogs then end as cancelled, unseen. */
    uint8_t (*TakeTurn)(HostInputEvent* event);
} HostUIHooksSuite4;

LUMOGRAPH_OFFSET(HostDescriptorSuite, version, 0x00);
LUMOGRAPH_OFFSET(HostDescriptorSuite, count, 0x02);
LUMOGRAPH_OFFSET(HostDescriptorSuite, Make, 0x08);
LUMOGRAPH_OFFSET(HostDescriptorSuite, Free, 0x10);
LUMOGRAPH_OFFSET(HostDescriptorSuite, PutInteger, 0x18);
LUMOGRAPH_OFFSET(HostDescriptorSuite, PutFloat, 0x20);
LUMOGRAPH_OFFSET(HostDescriptorSuite, PutBoolean, 0x28);
LUMOGRAPH_OFFSET(HostDescriptorSuite, PutString, 0x30);
LUMOGRAPH_OFFSET(HostDescriptorSuite, PutObject, 0x38);
LUMOGRAPH_OFFSET(HostDescriptorSuite, PutList, 0x40);
LUMOGRAPH_ASSERT(sizeof(HostDescriptorSuite) == 0x48, "HostDescriptorSuite has 0x48 bytes");
LUMOGRAPH_OFFSET(HostListSuite, version, 0x00);
LUMOGRAPH_OFFSET(HostListSuite, count, 0x02);
LUMOGRAPH_OFFSET(HostListSuite, Make, 0x08);
LUMOGRAPH_OFFSET(HostListSuite, Free, 0x10);
LUMOGRAPH_OFFSET(HostListSuite, Append, 0x18);
LUMOGRAPH_ASSERT(sizeof(HostListSuite) == 0x20, "HostListSuite has 0x20 bytes");
LUMOGRAPH_OFFSET(HostStringIdSuite, version, 0x00);
LUMOGRAPH_OFFSET(HostStringIdSuite, count, 0x02);
LUMOGRAPH_OFFSET(HostStringIdSuite, KeyOf, 0x08);
LUMOGRAPH_ASSERT(sizeof(HostStringIdSuite) == 0x10, "HostStringIdSuite has 0x10 bytes");
LUMOGRAPH_OFFSET(HostUIHooksSuite4, version, 0x00);
LUMOGRAPH_OFFSET(HostUIHooksSuite4, count, 0x02);
LUMOGRAPH_OFFSET(HostUIHooksSuite4, RegisterViewInfo, 0x08);
LUMOGRAPH_OFFSET(HostUIHooksSuite4, UnregisterViewInfo, 0x10);
LUMOGRAPH_OFFSET(HostUIHooksSuite4, TakeTurn, 0x18);
LUMOGRAPH_ASSERT(sizeof(HostUIHooksSuite4) == 0x20, "HostUIHooksSuite4 has 0x20 bytes");
LUMOGRAPH_OFFSET(HostInputEvent, window, 0x00);
LUMOGRAPH_OFFSET(HostInputEvent, message, 0x08);
LUMOGRAPH_OFFSET(HostInputEvent, first, 0x10);
LUMOGRAPH_OFFSET(HostInputEvent, second, 0x18);
LUMOGRAPH_ASSERT(sizeof(HostInputEvent) == 0x20, "HostInputEvent has 0x20 bytes");

LUMOGRAPH_END

#endif
