// CPixmapPort, what a display pixmap needs of the graphics port that it is compatible with.
#pragma once

#include <cstdint>

namespace Kesto {

class CDisplayPixmap;

class CPixmapPort {
public:
    virtual ~CPixmapPort() = default;

    // Bits for each pixel of the port's screen.
    virtual std::int32_t GetScreenDepth() const = 0;

    // Announces the pixmap that belongs to the port from now on, or none with null. The pixmap is
    // ready to be drawn on, and is told apart from its copies by its address.
    virtual void PixmapChanged(CDisplayPixmap* pixmap) = 0;
};

} // namespace Kesto
