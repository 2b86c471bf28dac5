#include "pixels/tiles/tile_view.h"

#include "pixels/pixmaps/basic_pixmap.h"
#include "pixels/tiles/virtual_pixmap.h"

#include <stdexcept>
#include <utility>

namespace Kesto {

CTileView::CLock::CLock(CVirtualPixmap& pixmap, std::uint32_t index, bool writes)
    : fPixmap(pixmap), fIndex(index), fWrites(writes)
{
    fPixmap.Tiles().Lock(fIndex, fBytes, true);
}

CTileView::CLock::CLock(CLock&& other) noexcept
    : fPixmap(other.fPixmap), fIndex(other.fIndex), fWrites(other.fWrites),
      fBytes(std::exchange(other.fBytes, nullptr))
{
}

// Unlocking without an address does nothing.
CTileView::CLock::~CLock()
{
    try {
        fPixmap.Tiles().Unlock(fIndex, fBytes, fWrites, false);
    } catch (const std::logic_error&) {
        // The pixmap was made smaller or lost its heap meanwhile, and its locks with its tiles.
    }
}

CTileView::CTileView(CPixmap& pixmap, const PixelRect& rect, std::int32_t firstPlane,
                     std::int32_t planeCount, bool writes)
{
    if (const auto* basic = dynamic_cast<const CBasicPixmap*>(&pixmap)) {
        if (const auto* display = dynamic_cast<const CDisplayPixmap*>(basic))
            fAccess.emplace(display->GetBitmap(), writes);
        basic->GetView(fView, rect, firstPlane, planeCount);
    } else if (auto* paged = dynamic_cast<CVirtualPixmap*>(&pixmap)) {
        LockTiles(*paged, rect, firstPlane, planeCount, writes);
    } else {
        throw std::logic_error("Warning! (pixmap is contiguous or paged)");
    }
}

// Planes are chosen as a contiguous pixmap does.
void CTileView::LockTiles(CVirtualPixmap& pixmap, const PixelRect& rect, std::int32_t firstPlane,
                          std::int32_t planeCount, bool writes)
{
    const std::int32_t planes = pixmap.GetPlaneCount();
    const std::int32_t first = std::clamp(firstPlane, 0, std::max(planes - 1, 0));
    const std::int32_t count =
        planeCount < 0 ? planes - first : std::min(planeCount, planes - first);
    if (count <= 0)
        return;
    const std::int32_t x = pixmap.GetOffsetInTileX(rect.left);
    const std::int32_t y = pixmap.GetOffsetInTileY(rect.top);
    fView.SetPlanes(first, count);
    fLocks.reserve(static_cast<std::size_t>(count));
    for (std::int32_t i = 0; i < count; ++i) {
        const std::uint32_t index = pixmap.GetTileIndex(pixmap.GetTileColumn(rect.left),
                                                        pixmap.GetTileRow(rect.top), first + i);
        fLocks.emplace_back(pixmap, index, writes);
        fView.planePointers[static_cast<std::size_t>(i)] =
            fLocks.back().Bytes() + pixmap.GetByteOffset(x, y);
    }
    fView.bitOffset = pixmap.GetBitOffset(x, y) & 7;
    fView.x = rect.left;
    fView.y = rect.top;
    fView.width = rect.right - rect.left;
    fView.height = rect.bottom - rect.top;
    fView.SetRowBytes(pixmap.GetRowBytes());
    fView.SetPixelBits(pixmap.GetPixelBits());
}

} // namespace Kesto
