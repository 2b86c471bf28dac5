// CWrapperPort, a port around a bitmap that someone else owns.
#pragma once

#include "drawing/ports/system_port.h"

namespace Kesto {

class CWrapperPort : public CSystemPort {
public:
    // The bitmap has 32 bits and outlives the port; its size is in pixels.
    CWrapperPort(const Platform::Bitmap& bitmap, const PixelPoint& size)
    {
        SetSurface(&bitmap, size);
    }
};

} // namespace Kesto
