#include "pixels/operations/pix_grid.h"

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

// The cell at a place along one axis, from the grid's corner.
std::int32_t CellAt(std::int32_t place, std::int32_t count, std::int32_t first, std::int32_t cell)
{
    if (place < first || count <= 1 || cell == 0)
        return 0;
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(
        (std::int64_t{place} - first) / cell + 1, 0, std::int64_t{count} - 1));
}

} // namespace

void CPixGrid::Reset()
{
    Divide({}, {}, {});
}

void CPixGrid::SetOrigin(std::int32_t x, std::int32_t y)
{
    fX = x;
    fY = y;
}

void CPixGrid::SetGrid(const PixelRect& bounds, const PixelRect& firstCell)
{
    if (bounds.IsEmpty())
        return Divide({}, {}, {});
    const auto along = [](std::int32_t size, std::int32_t firstEnd, std::int32_t cell) -> Division {
        cell = std::max(cell, 1);
        const std::int32_t first = std::clamp(firstEnd, 1, size);
        const std::int32_t count = 1 + (size - first) / cell;
        return {count, cell, first, size - (count > 1 ? first + (count - 2) * cell : 0)};
    };
    Divide(bounds,
           along(bounds.right - bounds.left, firstCell.right - bounds.left,
                 firstCell.right - firstCell.left),
           along(bounds.bottom - bounds.top, firstCell.bottom - bounds.top,
                 firstCell.bottom - firstCell.top));
}

CPixGrid::Division CPixGrid::DivideEvenly(std::int32_t size, std::int32_t otherSize,
                                          std::int32_t limit)
{
    const auto needed = [limit](std::int64_t pixels) {
        return static_cast<std::int32_t>((std::max<std::int64_t>(pixels, 0) + limit - 1) / limit);
    };
    std::int32_t count = std::max({1, needed(size), needed(otherSize)});
    const std::int32_t cell = std::max(size / count, 1);
    count = std::min(count, std::max(size, 1)); // no cell is empty
    return {count, cell, count > 1 ? cell : size, size - (count - 1) * cell};
}

void CPixGrid::Divide(const PixelRect& bounds, const Division& across, const Division& down)
{
    fX = bounds.left;
    fY = bounds.top;
    fWidth = bounds.right - bounds.left;
    fHeight = bounds.bottom - bounds.top;
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
    return CellAt(x - fX, fColumns, fFirstWidth, fCellWidth);
}

std::int32_t CPixGrid::GetRow(std::int32_t y) const
{
    return CellAt(y - fY, fRows, fFirstHeight, fCellHeight);
}

} // namespace Kesto
