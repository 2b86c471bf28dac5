#include "pixels/tiles/tile_view.h"

#include "pixels/pixmaps/basic_pixmap.h"
#include "pixels/tiles/virtual_pixmap.h"

#include <utility>

namespace Kesto {

CTileView::CLock::CLock(CVirtualPixmap& pixmap, std::int32_t column, std::int32_t row,
                        std::int32_t plane, bool writes)
    : fPixmap(pixmap), fColumn(column), fRow(row), fPlane(plane), fWrites(writes)
{
    fPixmap.LockTile(fColumn, fRow, fPlane, fBytes, true);
}

CTileView::CLock::CLock(CLock&& other) noexcept
    : fPixmap(other.fPixmap), fColumn(other.fColumn), fRow(other.fRow), fPlane(other.fPlane),
      fWrites(other.fWrites), fBytes(std::exchange(other.fBytes, nullptr))
{
}

// Unlocking without an address does nothing.
CTileView::CLock::~CLock()
{
    fPixmap.UnlockTile(fColumn, fRow, fPlane, fBytes, fWrites, false);
}

CTileView::CTileView(CPixmap& pixmap, const PixelRect& rect, std::int32_t firstPlane,
                     std::int32_t planeCount, bool writes)
{
    if (const auto* basic = dynamic_cast<const CBasicPixmap*>(&pixmap))
        basic->GetView(fView, rect, firstPlane, planeCount);
    else if (auto* paged = dynamic_cast<CVirtualPixmap*>(&pixmap))
        LockTiles(*paged, rect, firstPlane, planeCount, writes);
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
        fLocks.emplace_back(pixmap, pixmap.GetTileColumn(rect.left), pixmap.GetTileRow(rect.top),
                            first + i, writes);
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
