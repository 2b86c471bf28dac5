// A device that draws on a bitmap of ours.
#pragma once

#include "platform/graphics/bitmap.h"

#include <windows.h>

namespace Platform {

class MemoryDevice {
public:
    explicit MemoryDevice(const Bitmap& bitmap)
        : fDevice(CreateCompatibleDC(nullptr)),
          fBefore(SelectObject(fDevice, reinterpret_cast<HBITMAP>(bitmap.Native())))
    {
    }
    ~MemoryDevice()
    {
        SelectObject(fDevice, fBefore);
        DeleteDC(fDevice);
    }
    MemoryDevice(const MemoryDevice&) = delete;
    MemoryDevice& operator=(const MemoryDevice&) = delete;

    HDC Get() const { return fDevice; }

private:
    HDC fDevice;
    HGDIOBJ fBefore;
};

} // namespace Platform
