#include "pixels/operations/pix_state.h"

namespace Kesto {

void CPixState::Reset()
{
    CPixGrid::Reset();
    StartStates();
}

void CPixState::SetOrigin(std::int32_t x, std::int32_t y)
{
    const PixelRect bounds = GetBounds();
    CPixGrid::SetOrigin(x, y);
    const auto moved = [](std::int32_t value, std::int32_t from, std::int32_t to) {
        return static_cast<std::int32_t>(std::int64_t{value} + to - from);
    };
    for (PixelRect& changed : fChangedRects) // parts of cells, so they fit where the grid does
        if (!changed.IsEmpty())
            changed = {moved(changed.left, bounds.left, x), moved(changed.top, bounds.top, y),
                       moved(changed.right, bounds.left, x), moved(changed.bottom, bounds.top, y)};
}

void CPixState::SetGrid(const PixelRect& bounds, const PixelRect& firstCell)
{
    CPixGrid::SetGrid(bounds, firstCell);
    StartStates();
}

void CPixState::SetGrid(const PixelRect& bounds, const PixelRect& other, std::int32_t limit)
{
    if (bounds.IsEmpty())
        return Reset();
    const auto size = [](std::int32_t start, std::int32_t end) {
        return std::int64_t{end} - start;
    };
    Divide(bounds,
           DivideEvenly(size(bounds.left, bounds.right), size(other.left, other.right), limit),
           DivideEvenly(size(bounds.top, bounds.bottom), size(other.top, other.bottom), limit));
    StartStates();
}

void CPixState::StartStates()
{
    const std::size_t count =
        static_cast<std::size_t>(GetColumns()) * static_cast<std::size_t>(GetRows());
    fCellStates.assign(count, 0);
    fChangedRects.assign(fTrackChanges ? count : 0, PixelRect());
}

void CPixState::SetTrackChanges(bool track)
{
    fTrackChanges = track;
    fChangedRects.assign(track ? fCellStates.size() : 0, PixelRect());
}

std::uint32_t CPixState::GetState(std::int32_t column, std::int32_t row) const
{
    return HasCell(column, row) ? fCellStates[Index(column, row)] : 0;
}

void CPixState::SetCellState(std::int32_t column, std::int32_t row, std::uint32_t state)
{
    if (HasCell(column, row))
        fCellStates[Index(column, row)] = state;
}

template <class Function>
void CPixState::ForCellsIn(const PixelRect& rect, const Function& function)
{
    const PixelRect touched = Intersect(rect, GetBounds());
    if (touched.IsEmpty())
        return;
    for (std::int32_t row = GetRow(touched.top); row <= GetRow(touched.bottom - 1); ++row)
        for (std::int32_t column = GetColumn(touched.left); column <= GetColumn(touched.right - 1);
             ++column)
            function(Index(column, row), GetCell(column, row));
}

void CPixState::SubtractStates(const PixelRect& rect, std::uint32_t amount)
{
    ForCellsIn(rect, [&](std::size_t i, const PixelRect&) {
        fCellStates[i] -= std::min(fCellStates[i], amount);
    });
}

void CPixState::CapStates(const PixelRect& rect, std::uint32_t state)
{
    ForCellsIn(rect, [&](std::size_t i, const PixelRect&) {
        fCellStates[i] = std::min(fCellStates[i], state);
    });
}

void CPixState::RaiseStates(const PixelRect& rect, std::uint32_t state)
{
    ForCellsIn(rect, [&](std::size_t i, const PixelRect&) {
        fCellStates[i] = std::max(fCellStates[i], state);
    });
}

void CPixState::SetStates(const PixelRect& rect, std::uint32_t state)
{
    ForCellsIn(rect, [&](std::size_t i, const PixelRect&) { fCellStates[i] = state; });
}

PixelRect CPixState::GetChangedRect(std::int32_t column, std::int32_t row) const
{
    return fTrackChanges && HasCell(column, row) ? fChangedRects[Index(column, row)] : PixelRect();
}

void CPixState::IntersectChangedRects(const PixelRect& rect)
{
    if (fTrackChanges)
        ForCellsIn(rect, [&](std::size_t i, const PixelRect& cell) {
            fChangedRects[i] = Intersect(cell, rect);
        });
}

void CPixState::UniteChangedRects(const PixelRect& rect)
{
    if (!fTrackChanges)
        return;
    ForCellsIn(rect, [&](std::size_t i, const PixelRect& cell) {
        const PixelRect added = Intersect(cell, rect);
        PixelRect& changed = fChangedRects[i];
        changed = changed.IsEmpty() ? added
                                    : PixelRect{std::min(changed.left, added.left),
                                                std::min(changed.top, added.top),
                                                std::max(changed.right, added.right),
                                                std::max(changed.bottom, added.bottom)};
    });
}

void CPixState::ClearChangedRects(const PixelRect& rect)
{
    if (fTrackChanges)
        ForCellsIn(rect, [&](std::size_t i, const PixelRect&) { fChangedRects[i] = {}; });
}

} // namespace Kesto
