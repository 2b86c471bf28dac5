// A view of pixels within one tile, which stay in memory for as long as it lives.
#pragma once

#include "pixels/pixmap.h"
#include "pixels/pixview.h"

namespace Kesto {

class CTileView {
public:
    // `rect`, in global coordinates, lies in one tile of the pixmap. Pixels of a paged pixmap are kept only if `writes` is
    // set. Throws what reading a tile throws.
    CTileView(CPixmap& pixmap, const Rect& rect, std::int32_t firstPlane, std::int32_t planeCount, bool writes);
    CTileView(CTileView&& other) = default;
    CTileView& operator=(CTileView&&) = delete;

    const CPixView& View() const { return fView; }

private:
    CPixView fView;
};

} // namespace Kesto
