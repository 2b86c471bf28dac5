#include "pixels/operations/pix_grid.h"

#include "pixels/pixmaps/pixel_size.h"

#include <algorithm>

namespace Kesto {

namespace {

struct Span {
    std::int32_t fStart;
    std::int32_t fEnd;
};

// The extent of cell `index` along one axis, from the grid's corner.
Span CellSpan(std::int32_t index, std::int32_t count, std::int32_t first, std::int32_t cell,
              std::int32_t size)
{
    const std::int32_t start = index == 0 ? 0 : first + (index - 1) * cell;
    const std::int32_t end = index + 1 == count ? size : first + index * cell;
    return {start, end};
}

// The cell at a place along one axis, from the grid's corner, which can be 32 bits away.
std::int32_t CellAt(std::int64_t place, std::int32_t count, std::int32_t first, std::int32_t cell)
{
    if (place < first || count <= 1 || cell == 0)
        return 0;
    return static_cast<std::int32_t>(
        std::clamp<std::int64_t>((place - first) / cell + 1, 0, std::int64_t{count} - 1));
}

} // namespace

void CPixGrid::Reset()
{
    Divide({}, {}, {});
}

void CPixGrid::SetOrigin(std::int32_t x, std::int32_t y)
{
    ToInt32(std::int64_t{x} + fWidth);
    ToInt32(std::int64_t{y} + fHeight);
    fX = x;
    fY = y;
}

void CPixGrid::SetGrid(const PixelRect& bounds, const PixelRect& firstCell)
{
    if (bounds.IsEmpty())
        return Divide({}, {}, {});
    const auto along = [](std::int64_t start, std::int64_t end, std::int64_t cellStart,
                          std::int64_t cellEnd) -> Division {
        const std::int32_t size = ToInt32(end - start);
        // A cell that is larger than the grid counts as large as the grid.
        const auto cell =
            static_cast<std::int32_t>(std::clamp<std::int64_t>(cellEnd - cellStart, 1, size));
        const auto first =
            static_cast<std::int32_t>(std::clamp<std::int64_t>(cellEnd - start, 1, size));
        const std::int32_t count = 1 + (size - first) / cell;
        return {count, cell, first, size - (count > 1 ? first + (count - 2) * cell : 0)};
    };
    Divide(bounds, along(bounds.left, bounds.right, firstCell.left, firstCell.right),
           along(bounds.top, bounds.bottom, firstCell.top, firstCell.bottom));
}

CPixGrid::Division CPixGrid::DivideEvenly(std::int64_t wholeSize, std::int64_t otherSize,
                                          std::int32_t limit)
{
    const auto needed = [limit](std::int64_t pixels) {
        return ToInt32((std::max<std::int64_t>(pixels, 0) + limit - 1) / limit);
    };
    const std::int32_t size = ToInt32(wholeSize);
    std::int32_t count = std::max({1, needed(size), needed(otherSize)});
    const std::int32_t cell = std::max(size / count, 1);
    count = std::min(count, std::max(size, 1)); // no cell is empty
    return {count, cell, count > 1 ? cell : size, size - (count - 1) * cell};
}

void CPixGrid::Divide(const PixelRect& bounds, const Division& across, const Division& down)
{
    const std::int32_t width = ToInt32(std::int64_t{bounds.right} - bounds.left);
    const std::int32_t height = ToInt32(std::int64_t{bounds.bottom} - bounds.top);
    fX = bounds.left;
    fY = bounds.top;
    fWidth = width;
    fHeight = height;
    fColumns = across.fCount;
    fRows = down.fCount;
    fCellWidth = across.fCell;
    fCellHeight = down.fCell;
    fFirstWidth = across.fFirst;
    fFirstHeight = down.fFirst;
    fLastWidth = across.fLast;
    fLastHeight = down.fLast;
}

PixelRect CPixGrid::GetCell(std::int32_t column, std::int32_t row) const
{
    if (!HasCell(column, row))
        return {};
    const Span across = CellSpan(column, fColumns, fFirstWidth, fCellWidth, fWidth);
    const Span down = CellSpan(row, fRows, fFirstHeight, fCellHeight, fHeight);
    return {fX + across.fStart, fY + down.fStart, fX + across.fEnd, fY + down.fEnd};
}

std::int32_t CPixGrid::GetColumn(std::int32_t x) const
{
    return CellAt(std::int64_t{x} - fX, fColumns, fFirstWidth, fCellWidth);
}

std::int32_t CPixGrid::GetRow(std::int32_t y) const
{
    return CellAt(std::int64_t{y} - fY, fRows, fFirstHeight, fCellHeight);
}

} // namespace Kesto
