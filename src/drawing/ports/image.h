// CImage, an image port with a pixmap of its own: an off-screen surface.
#pragma once

#include "drawing/ports/image_port.h"
#include "pixels/pixmaps/display_pixmap.h"

#include <cstdint>

namespace Kesto {

class CImage : public CImagePort {
public:
    // In pixels, which are black and transparent at first. Throws CSystemError when there can be no
    // such bitmap.
    CImage(std::int32_t width, std::int32_t height);
    ~CImage() override;

    // The pixels are undefined after a change of size. Throws as the constructor does.
    void Resize(std::int32_t width, std::int32_t height);

    CDisplayPixmap& GetDisplay() { return fDisplay; }
    const CDisplayPixmap& GetDisplay() const { return fDisplay; }

private:
    CDisplayPixmap fDisplay;
};

} // namespace Kesto
