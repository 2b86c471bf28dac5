/* What a host may ask of a module's windows in its turns, besides handing in input: so that a
 * script can use a dialog that nobody sees.
 *
 * A request is a HostInputEvent whose `message` is one of the numbers below, above all those of the
 * system. `window` names the window, null the frontmost one. `second` is the address of the
 * request's record, which stays as it is until the host's next turn; by then the request has been
 * carried out. A number that a module doesn't know, and a window that has gone, change nothing.
 *
 * Of the system's own messages a module takes as input: presses and releases of the mouse's
 * buttons, its moves and wheels (points are pixels of the window's content, for the wheels too),
 * keys that go down and up, characters, of which `first` is the code point, and the wish to close.
 */
#ifndef LUMOGRAPH_WINDOW_REQUESTS_H
#define LUMOGRAPH_WINDOW_REQUESTS_H

#include "base.h"

LUMOGRAPH_BEGIN

enum {
    kHostRequestWindows = 0x10000, /* HostWindowList: tells which windows are open */
    kHostRequestPhotograph,        /* HostPhotograph: hands over what the window shows */
    kHostRequestMessages,          /* HostMessageLog, which lives until another is set; 0 ends it */
    kHostRequestFocus,    /* const char*: the view of this id gets the focus as by the Tab key */
    kHostRequestType,     /* const char*: a key event for each of its characters */
    kHostRequestPaste,    /* const char*: this text goes to the clipboard and is pasted */
    kHostRequestSize,     /* HostUnits: the size of the content */
    kHostRequestScale,    /* HostUnits: `x` is pixels of a unit, for all windows from now on */
    kHostRequestTheme,    /* `first` is the theme, 0 to 3, for all windows from now on */
    kHostRequestWait,     /* `first` is milliseconds of the windows' clock until the next turn */
    kHostRequestOwnTime,  /* without a display, waits take no time from now on */
    kHostRequestDismiss,  /* the window ends as if cancelled: nobody in it is asked */
    kHostRequestPlace,    /* HostUnits: the corner of the content, but in pixels of the desktop */
    kHostRequestMonitors, /* HostMonitors: which monitors the desktop is to have */
    kHostRequestCursor    /* HostCursor: tells what the mouse looks like where it is */
};

typedef struct HostUnits {
    double x;
    double y;
} HostUnits;

typedef struct HostWindow {
    void* window;      /* the system's handle; null for a tool tip, which comes after all windows */
    const char* title; /* UTF-8; a tool tip's text */
    double scale;      /* pixels of a unit */
} HostWindow;

/* `Add` is called for each window in sight, front to back. What it gets is gone afterwards. */
typedef struct HostWindowList {
    void* context;
    void (*Add)(void* context, const HostWindow* window);
} HostWindowList;

/* `Take` is called once, with blue, green, red and an unused byte of each pixel, rows from the top,
 * unless there is no picture. The pixels are gone afterwards. */
typedef struct HostPhotograph {
    void* context;
    void (*Take)(void* context, int32_t width, int32_t height, const uint8_t* pixels,
                 int64_t rowBytes);
} HostPhotograph;

typedef struct HostMonitor { /* pixels of the desktop */
    int32_t left;
    int32_t top;
    int32_t right;
    int32_t bottom;
} HostMonitor;

/* Without a display there are those of `monitors` from now on; a display keeps its own. `Add` is
 * called for each that there is then. The primary one comes first. */
typedef struct HostMonitors {
    void* context;
    void (*Add)(void* context, const HostMonitor* monitor);
    const HostMonitor* monitors;
    int64_t count;
} HostMonitors;

/* `Take` is called with one of arrow, text, cross, hand, wait, arrow-wait, not-allowed, help,
 * size-left-right, size-up-down, size-falling, size-rising, size-all and hidden; with "" for a
 * picture, and outside of the module's windows. */
typedef struct HostCursor {
    void* context;
    void (*Take)(void* context, const char* shape);
} HostCursor;

/* Which fields of a HostMessage are there. */
enum {
    kHostMessageHasPhase = 1,
    kHostMessageHasValue = 2, /* and `old` */
    kHostMessageHasStart = 4,
    kHostMessageHasNames = 8 /* value and old are the texts of identifiers */
};

/* A message that has climbed to a window; see HostMessageLog. Texts are UTF-8, "" for none. */
typedef struct HostMessage {
    const char* kind;   /* "command", "value", "key", "menu" or "other" */
    const char* id;     /* what it means */
    const char* source; /* the id of the view that sent it */
    uint32_t fields;
    int32_t phase;
    double value;
    double old;
    double start;
    const char* valueName;
    const char* oldName;
} HostMessage;

/* `Add` is called for each message that a window is asked to handle, before it does. What it gets
 * is gone afterwards. */
typedef struct HostMessageLog {
    void* context;
    void (*Add)(void* context, const HostMessage* message);
} HostMessageLog;

LUMOGRAPH_ASSERT(sizeof(HostUnits) == 0x10, "HostUnits has 0x10 bytes");
LUMOGRAPH_OFFSET(HostWindow, title, 0x08);
LUMOGRAPH_OFFSET(HostWindow, scale, 0x10);
LUMOGRAPH_ASSERT(sizeof(HostWindow) == 0x18, "HostWindow has 0x18 bytes");
LUMOGRAPH_ASSERT(sizeof(HostWindowList) == 0x10, "HostWindowList has 0x10 bytes");
LUMOGRAPH_ASSERT(sizeof(HostPhotograph) == 0x10, "HostPhotograph has 0x10 bytes");
LUMOGRAPH_ASSERT(sizeof(HostMonitor) == 0x10, "HostMonitor has 0x10 bytes");
LUMOGRAPH_ASSERT(sizeof(HostMonitors) == 0x20, "HostMonitors has 0x20 bytes");
LUMOGRAPH_ASSERT(sizeof(HostCursor) == 0x10, "HostCursor has 0x10 bytes");
LUMOGRAPH_OFFSET(HostMessage, fields, 0x18);
LUMOGRAPH_OFFSET(HostMessage, phase, 0x1C);
LUMOGRAPH_OFFSET(HostMessage, value, 0x20);
LUMOGRAPH_OFFSET(HostMessage, old, 0x28);
LUMOGRAPH_OFFSET(HostMessage, start, 0x30);
LUMOGRAPH_OFFSET(HostMessage, valueName, 0x38);
LUMOGRAPH_OFFSET(HostMessage, oldName, 0x40);
LUMOGRAPH_ASSERT(sizeof(HostMessage) == 0x48, "HostMessage has 0x48 bytes");
LUMOGRAPH_ASSERT(sizeof(HostMessageLog) == 0x10, "HostMessageLog has 0x10 bytes");

LUMOGRAPH_END

#endif
