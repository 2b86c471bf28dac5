// What each selector of a format asks for, one row a selector.
#pragma once

#include "plugin/format/lumograph_format.h"
#include "plugin/frame/handlers.h"

namespace Kesto {

struct FormatSelector {
    enum class Object : uint8_t {
        None,            // the selector means nothing here
        Acquire,         // get it or make it
        AcquireForAbout, // the same, but the record is of another kind
        AcquireResident, // the same, and it stays until the host unloads the module
        Find             // without an object there is nothing to do
    };
    enum class Release : uint8_t { Never, OnFailure, Always, Unloading };

    Object object;
    Handler<CLumographFormat> handler; // null for Object::None
    Release release;
};

// The row of a selector. Numbers that the protocol doesn't have, those below 0 among them, have
// Object::None.
const FormatSelector& FindFormatSelector(int16_t selector);

} // namespace Kesto
