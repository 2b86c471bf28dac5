// CPixState, a grid that remembers how far the work on each cell has come, and which part of it has
// changed.
#pragma once

#include "pixels/operations/pix_grid.h"

#include <vector>

namespace Kesto {

class CPixState : public CPixGrid {
public:
    void Reset() override;
    void SetOrigin(std::int32_t x, std::int32_t y) override;

    // All states become 0, and no cell has a changed part.
    void SetGrid(const PixelRect& bounds, const PixelRect& firstCell) override;

    // The same for cells of at most `limit` pixels, as many as `bounds` and `other` need.
    void SetGrid(const PixelRect& bounds, const PixelRect& other, std::int32_t limit);

    // Changed rectangles are kept only while they are tracked. Turning this on starts with none.
    void SetTrackChanges(bool track);

    // A cell that is not in the grid has state 0.
    std::uint32_t GetState(std::int32_t column, std::int32_t row) const;
    void SetCellState(std::int32_t column, std::int32_t row, std::uint32_t state);

    // Change the states of all cells that `rect` touches: subtract with floor 0, lower to at most
    // `state`, raise to at least `state`, assign. A changed region of the image lowers its cells,
    // so that they are done again.
    void SubtractStates(const PixelRect& rect, std::uint32_t amount);
    void CapStates(const PixelRect& rect, std::uint32_t state);
    void RaiseStates(const PixelRect& rect, std::uint32_t state);
    void SetStates(const PixelRect& rect, std::uint32_t state);

    // The changed part of a cell; empty when nothing changed or changes are not tracked.
    PixelRect GetChangedRect(std::int32_t column, std::int32_t row) const;

    // For every cell that `rect` touches: its changed part becomes what it shares with `rect`; or
    // grows to hold that too; or becomes empty.
    void IntersectChangedRects(const PixelRect& rect);
    void UniteChangedRects(const PixelRect& rect);
    void ClearChangedRects(const PixelRect& rect);

private:
    std::size_t Index(std::int32_t column, std::int32_t row) const
    {
        return static_cast<std::size_t>(column) +
               static_cast<std::size_t>(GetColumns()) * static_cast<std::size_t>(row);
    }
    void StartStates();

    // Calls function(index, cell) for each cell that the rectangle touches.
    template <class Function>
    void ForCellsIn(const PixelRect& rect, const Function& function);

    std::vector<std::uint32_t> fCellStates;
    std::vector<PixelRect> fChangedRects; // one for each cell, or none
    bool fTrackChanges = false;
};

} // namespace Kesto
