// A view of pixels within one tile, which stay in memory for as long as it lives. The graphics
// system is told of those that it draws on.
#pragma once

#include "pixels/pixmaps/display_view.h"
#include "pixels/pixmaps/pixmap.h"
#include "pixels/pixmaps/pixview.h"

#include <optional>
#include <vector>

namespace Kesto {

class CVirtualPixmap;

class CTileView {
public:
    // `rect`, in global coordinates, lies in one tile of the pixmap, which keeps its size and
    // storage meanwhile. Pixels of a paged pixmap are kept only if `writes` is set. Throws what
    // locking a tile throws, and std::logic_error for a pixmap that is neither contiguous nor
    // paged.
    CTileView(CPixmap& pixmap, const PixelRect& rect, std::int32_t firstPlane,
              std::int32_t planeCount, bool writes);
    CTileView(CTileView&& other) noexcept = default;
    CTileView& operator=(CTileView&&) = delete;

    const CPixView& View() const { return fView; }

private:
    // A locked tile.
    class CLock {
    public:
        CLock(CVirtualPixmap& pixmap, std::uint32_t index, bool writes);
        CLock(CLock&& other) noexcept;
        CLock& operator=(CLock&&) = delete;
        ~CLock();

        std::uint8_t* Bytes() const { return static_cast<std::uint8_t*>(fBytes); }

    private:
        CVirtualPixmap& fPixmap;
        std::uint32_t fIndex; // in the array of tiles
        bool fWrites;
        void* fBytes = nullptr;
    };

    void LockTiles(CVirtualPixmap& pixmap, const PixelRect& rect, std::int32_t firstPlane,
                   std::int32_t planeCount, bool writes);

    CPixView fView;
    std::vector<CLock> fLocks;            // one for each plane
    std::optional<CBitmapAccess> fAccess; // of a display pixmap
};

} // namespace Kesto
