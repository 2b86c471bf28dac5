/* The entry points of a module: one function for each project, all of one shape. */
#ifndef LUMOGRAPH_ENTRY_H
#define LUMOGRAPH_ENTRY_H

#include "base.h"

LUMOGRAPH_BEGIN

/* `selector` says what is wanted (selectors.h); `record` is the parameter record for the module's
 * kind (records.h), valid during the call; `data` is a word that the host keeps for the module from
 * call to call, 0 at first; `*result` receives the result code (results.h), 0 for success. A module
 * is entered by one thread at a time and never lets an exception out. */
typedef void (*HostEntry)(int16_t selector, void* record, intptr_t* data, int16_t* result);

/* Linux only, where a library has no resource section: a module exports, under the name
 * "ModuleResource", a function of this type. It returns the bytes of the resource of that type and
 * name and stores how many there are, or returns null. The property list is the resource
 * kHostPropertyListName of type kHostPropertyListType. */
typedef const void* (*HostModuleResource)(const char* type, const char* name, size_t* size);

#define kHostPropertyListType "JSON"
#define kHostPropertyListName "JSON_TAGL"

/* A module that was made with Sidecar's kit has this resource: the kit's version as a text,
 * "26.0.0". A host of another major version may refuse the module. */
#define kHostKitVersionType "TEXT"
#define kHostKitVersionName "KIT_VERSION"

LUMOGRAPH_END

#endif
