// CWindowPort, the port of a window's client area.
//
// It draws on a bitmap of its own, which the window shows on the screen.
#pragma once

#include "drawing/ports/screen_port.h"
#include "platform/graphics/bitmap.h"

namespace Kesto {

class CWindowPort : public CScreenPort {
public:
    CWindowPort() = default;

    // Makes room for a client area of so many device pixels, at least 1 by 1. The clip becomes all
    // of it; pixels that both sizes have are kept, new ones are black. Returns false, with nothing
    // changed, when there can be no such bitmap.
    bool SetClientPixels(const PixelPoint& size);
    PixelPoint GetClientPixels() const { return fClientPixels; }

    // What has been drawn; the window presents it. It may be larger than the client area.
    const Platform::Bitmap& GetBitmap() const { return fBitmap; }

private:
    Platform::Bitmap fBitmap;
    PixelPoint fClientPixels;
};

} // namespace Kesto
