#include "pixels/operations/pix_walker.h"

#include "pixels/tiles/tile_view.h"

#include <algorithm>
#include <cstdint>
#include <stdexcept>

namespace Kesto {

namespace {

// The pixels that a piece covers in an operand whose rectangle begins at `corner`. They lie in its
// pixmap, so they fit.
PixelRect PlaceOf(const CPixWalker::Area& piece, const PixelRect& corner)
{
    const auto moved = [](std::int64_t value, std::int32_t by) {
        return static_cast<std::int32_t>(value + by);
    };
    return {moved(piece.left, corner.left), moved(piece.top, corner.top),
            moved(piece.right, corner.left), moved(piece.bottom, corner.top)};
}

// The first x right of the tile that holds `x`, and the same for y. A tile is at least one pixel in
// size.
std::int64_t TileRight(const CPixmap& pixmap, std::int64_t x)
{
    const auto column = pixmap.GetTileColumn(static_cast<std::int32_t>(x));
    return std::max(x + 1, std::int64_t{pixmap.GetTileLeft(column)} + pixmap.GetTileWidth());
}
std::int64_t TileBottom(const CPixmap& pixmap, std::int64_t y)
{
    const auto row = pixmap.GetTileRow(static_cast<std::int32_t>(y));
    return std::max(y + 1, std::int64_t{pixmap.GetTileTop(row)} + pixmap.GetTileHeight());
}

} // namespace

CPixWalker::CPixWalker(std::span<CPixmap* const> read, std::span<CPixmap* const> readWrite,
                       std::span<CPixmap* const> write, const PixelRect& rect,
                       std::int32_t firstPlane, std::int32_t planeCount)
{
    Add(read, rect, firstPlane, planeCount, Access::kRead);
    Add(readWrite, rect, firstPlane, planeCount, Access::kReadWrite);
    Add(write, rect, firstPlane, planeCount, Access::kWrite);
}

CPixWalker::CPixWalker(CPixmap& pixmap, const PixelRect& rect, std::int32_t firstPlane,
                       std::int32_t planeCount)
    : fOperands{{&pixmap, rect, firstPlane, planeCount, Access::kReadWrite}}
{
}

CPixWalker::CPixWalker(CPixmap& source, CPixmap& dest, const PixelRect& sourceRect,
                       const PixelRect& destRect, std::int32_t firstPlane, std::int32_t planeCount)
    : fOperands{{&source, sourceRect, firstPlane, planeCount, Access::kRead},
                {&dest, destRect, firstPlane, planeCount, Access::kWrite}}
{
}

CPixWalker::CPixWalker(std::vector<Operand> operands) : fOperands(std::move(operands)) {}

void CPixWalker::Add(std::span<CPixmap* const> pixmaps, const PixelRect& rect,
                     std::int32_t firstPlane, std::int32_t planeCount, Access access)
{
    for (CPixmap* pixmap : pixmaps)
        if (pixmap != nullptr)
            fOperands.push_back({pixmap, rect, firstPlane, planeCount, access});
}

CPixWalker::Area CPixWalker::CommonArea() const
{
    if (fOperands.empty())
        return {};
    Area area{0, 0, INT64_MAX, INT64_MAX};
    for (const Operand& operand : fOperands) {
        const PixelRect& rect = operand.fRect;
        const PixelRect inside = Intersect(rect, operand.fPixmap->GetBounds());
        area = {std::max(area.left, std::int64_t{inside.left} - rect.left),
                std::max(area.top, std::int64_t{inside.top} - rect.top),
                std::min(area.right, std::int64_t{inside.right} - rect.left),
                std::min(area.bottom, std::int64_t{inside.bottom} - rect.top)};
    }
    return area;
}

bool CPixWalker::Run(Function function, void* userData) const
{
    const Area area = CommonArea();
    std::int64_t bottom = 0;
    for (std::int64_t y = area.top; y < area.bottom; y = bottom) {
        bottom = area.bottom;
        for (const Operand& operand : fOperands)
            bottom = std::min(bottom, TileBottom(*operand.fPixmap, y + operand.fRect.top) -
                                          operand.fRect.top);
        std::int64_t right = 0;
        for (std::int64_t x = area.left; x < area.right; x = right) {
            right = area.right;
            for (const Operand& operand : fOperands)
                right = std::min(right, TileRight(*operand.fPixmap, x + operand.fRect.left) -
                                            operand.fRect.left);
            if (!RunPiece({x, y, right, bottom}, function, userData))
                return false;
            // The next pieces would lie outside, or elsewhere than where the walk began.
            if (CommonArea() != area)
                throw std::logic_error("Warning! (CommonArea() == area)");
        }
    }
    return true;
}

bool CPixWalker::RunPiece(const Area& piece, Function function, void* userData) const
{
    CPixWalkContext context;
    std::vector<CTileView> locks; // keep the tiles in memory until the function is done
    locks.reserve(fOperands.size());
    for (const Operand& operand : fOperands) {
        const bool writes = operand.fAccess != Access::kRead;
        locks.emplace_back(*operand.fPixmap, PlaceOf(piece, operand.fRect), operand.fFirstPlane,
                           operand.fPlaneCount, writes);
        auto& views = operand.fAccess == Access::kRead    ? context.fRead
                      : operand.fAccess == Access::kWrite ? context.fWrite
                                                          : context.fReadWrite;
        views.push_back(locks.back().View());
    }
    return function(context, userData);
}

bool LiesInOneTile(const CPixmap& pixmap, const PixelRect& rect)
{
    return rect.IsEmpty() || (TileRight(pixmap, rect.left) >= rect.right &&
                              TileBottom(pixmap, rect.top) >= rect.bottom);
}

} // namespace Kesto
