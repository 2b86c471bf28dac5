#include "pixels/operations/pix_walker.h"

#include "pixels/tiles/tile_view.h"

namespace Kesto {

namespace {

PixelRect Moved(const PixelRect& rect, std::int32_t x, std::int32_t y)
{
    return {rect.left + x, rect.top + y, rect.right + x, rect.bottom + y};
}

// The first x right of the tile that holds `x`, and the same for y. A tile is at least one pixel in
// size.
std::int32_t TileRight(const CPixmap& pixmap, std::int32_t x)
{
    return std::max(x + 1, pixmap.GetTileLeft(pixmap.GetTileColumn(x)) + pixmap.GetTileWidth());
}
std::int32_t TileBottom(const CPixmap& pixmap, std::int32_t y)
{
    return std::max(y + 1, pixmap.GetTileTop(pixmap.GetTileRow(y)) + pixmap.GetTileHeight());
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

// What all operands have, from the corner of each one's rectangle.
PixelRect CPixWalker::CommonArea() const
{
    if (fOperands.empty())
        return {};
    const PixelRect& first = fOperands.front().fRect;
    PixelRect area = Moved(first, -first.left, -first.top);
    for (const Operand& operand : fOperands) {
        const PixelRect inside = Intersect(operand.fRect, operand.fPixmap->GetBounds());
        area = Intersect(area, Moved(inside, -operand.fRect.left, -operand.fRect.top));
    }
    return area;
}

bool CPixWalker::Run(Function function, void* userData) const
{
    const PixelRect area = CommonArea();
    std::int32_t bottom = 0;
    for (std::int32_t y = area.top; y < area.bottom; y = bottom) {
        bottom = area.bottom;
        for (const Operand& operand : fOperands)
            bottom = std::min(bottom, TileBottom(*operand.fPixmap, y + operand.fRect.top) -
                                          operand.fRect.top);
        std::int32_t right = 0;
        for (std::int32_t x = area.left; x < area.right; x = right) {
            right = area.right;
            for (const Operand& operand : fOperands)
                right = std::min(right, TileRight(*operand.fPixmap, x + operand.fRect.left) -
                                            operand.fRect.left);
            if (!RunPiece({x, y, right, bottom}, function, userData))
                return false;
        }
    }
    return true;
}

bool CPixWalker::RunPiece(const PixelRect& piece, Function function, void* userData) const
{
    CPixWalkContext context;
    std::vector<CTileView> locks; // keep the tiles in memory until the function is done
    locks.reserve(fOperands.size());
    for (const Operand& operand : fOperands) {
        const PixelRect place = Moved(piece, operand.fRect.left, operand.fRect.top);
        const bool writes = operand.fAccess != Access::kRead;
        locks.emplace_back(*operand.fPixmap, place, operand.fFirstPlane, operand.fPlaneCount,
                           writes);
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
