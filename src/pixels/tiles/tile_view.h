// A view of pixels within one tile, which stay in memory for as long as it lives.
#pragma once

#include "pixels/pixmaps/pixmap.h"
#include "pixels/pixmaps/pixview.h"

#include <vector>

namespace Kesto {

class CVirtualPixmap;

class CTileView {
public:
    // `rect`, in global coordinates, lies in one tile of the pixmap. Pixels of a paged pixmap are
    // kept only if `writes` is set. Throws what locking a tile throws.
    CTileView(CPixmap& pixmap, const PixelRect& rect, std::int32_t firstPlane,
              std::int32_t planeCount, bool writes);
    CTileView(CTileView&& other) noexcept = default;
    CTileView& operator=(CTileView&&) = delete;

    const CPixView& View() const { return fView; }

private:
    // A locked tile.
    class CLock {
    public:
        CLock(CVirtualPixmap& pixmap, std::int32_t column, std::int32_t row, std::int32_t plane,
              bool writes);
        CLock(CLock&& other) noexcept;
        CLock& operator=(CLock&&) = delete;
        ~CLock();

        std::uint8_t* Bytes() const { return static_cast<std::uint8_t*>(fBytes); }

    private:
        CVirtualPixmap& fPixmap;
        std::int32_t fColumn;
        std::int32_t fRow;
        std::int32_t fPlane;
        bool fWrites;
        void* fBytes = nullptr;
    };

    void LockTiles(CVirtualPixmap& pixmap, const PixelRect& rect, std::int32_t firstPlane,
                   std::int32_t planeCount, bool writes);

    CPixView fView;
    std::vector<CLock> fLocks; // one for each plane
};

} // namespace Kesto
