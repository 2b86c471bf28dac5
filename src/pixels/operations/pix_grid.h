// CPixGrid, a rectangle divided into columns and rows of cells, so that a large job can be done
// piece by piece.
//
// Column 0 is firstWidth wide, inner columns cellWidth, the last lastWidth; rows likewise.
// Invariant: the widths of all columns add up to the rectangle's, and so do the heights.
#pragma once

#include "foundation/base/geometry.h"

namespace Kesto {

class CPixGrid {
public:
    // An empty grid.
    CPixGrid() = default;
    virtual ~CPixGrid() = default;

    // Empties the grid.
    virtual void Reset();

    // Moves the grid; its cells stay as they are. Throws std::length_error, and leaves it, when it
    // would reach beyond 32 bits.
    virtual void SetOrigin(std::int32_t x, std::int32_t y);

    // Lays cells over `bounds`. The first one ends at the right and bottom of `firstCell`, the
    // others have its size; as many as fit whole make the grid, and the last takes what remains.
    // Throws std::length_error for bounds that are wider or higher than 31 bits.
    virtual void SetGrid(const PixelRect& bounds, const PixelRect& firstCell);

    PixelRect GetBounds() const { return {fX, fY, fX + fWidth, fY + fHeight}; }
    std::int32_t GetColumns() const { return fColumns; }
    std::int32_t GetRows() const { return fRows; }

    // The cell's rectangle; empty for a cell that is not in the grid.
    PixelRect GetCell(std::int32_t column, std::int32_t row) const;

    // The column and row whose cells hold a global place. A place before the grid gives 0, one
    // after it the last.
    std::int32_t GetColumn(std::int32_t x) const;
    std::int32_t GetRow(std::int32_t y) const;

protected:
    CPixGrid(const CPixGrid&) = default;
    CPixGrid& operator=(const CPixGrid&) = default;

    // One axis of a grid.
    struct Division {
        std::int32_t fCount;
        std::int32_t fCell;
        std::int32_t fFirst;
        std::int32_t fLast;
    };

    // As many cells as `size`, and `otherSize`, need to have no more than `limit` pixels in a cell,
    // all of one size but the last, which takes what remains.
    // Throws std::length_error for a size, or a number of cells, beyond 31 bits.
    static Division DivideEvenly(std::int64_t size, std::int64_t otherSize, std::int32_t limit);

    void Divide(const PixelRect& bounds, const Division& across, const Division& down);

    bool HasCell(std::int32_t column, std::int32_t row) const
    {
        return column >= 0 && column < fColumns && row >= 0 && row < fRows;
    }

private:
    std::int32_t fX = 0; // global
    std::int32_t fY = 0;
    std::int32_t fWidth = 0;
    std::int32_t fHeight = 0;
    std::int32_t fColumns = 0;
    std::int32_t fRows = 0;
    std::int32_t fCellWidth = 0; // of inner columns
    std::int32_t fCellHeight = 0;
    std::int32_t fFirstWidth = 0;
    std::int32_t fFirstHeight = 0;
    std::int32_t fLastWidth = 0;
    std::int32_t fLastHeight = 0;
};

} // namespace Kesto
