// The system's handle of a cursor.
#pragma once

#include "platform/graphics/cursors.h"

#include <windows.h>

namespace Platform {

class Cursor::Record {
public:
    // Takes over a cursor that was made of pixels; null for one of the system's, which is shared.
    Record(HCURSOR handle, bool isOurs) : fHandle(handle), fIsOurs(isOurs) {}
    ~Record()
    {
        if (fIsOurs)
            DestroyCursor(fHandle);
    }
    Record(const Record&) = delete;
    Record& operator=(const Record&) = delete;

    HCURSOR Handle() const { return fHandle; } // null hides the mouse

private:
    HCURSOR fHandle;
    bool fIsOurs;
};

} // namespace Platform
