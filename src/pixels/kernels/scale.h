// Scaling one plane: row by row, each source row scaled along the row first and rounded there, then
// the rows combined.
#pragma once

#include "pixels/kernels/plane.h"
#include "pixels/kernels/scale_tables.h"

#include <span>

namespace Kesto::Kernels {

// How one axis of a piece is scaled.
struct ScaleAxis {
    ScaleMode fMode = ScaleMode::kSame;
    std::span<const ScaleEntry>
        fEntries;            // one for each target pixel of the piece; none for the same size
    std::int32_t fStart = 0; // the index that the entries have for the piece's first source pixel
    float fScale = 1;        // for reduction
};

// What ScalePlane needs as scratch for a target of `width` pixels of type T.
template <class T>
std::size_t ScaleScratchBytes(std::int32_t width)
{
    const std::size_t count = static_cast<std::size_t>(width);
    return count * (sizeof(double) + 2 * sizeof(T)) + ScaleColumns::PlanBytes(count);
}

// Fills `out` from `source`, which holds at least the pixels that the axes name; of the same size
// where an axis keeps its size. `scratch` is aligned for doubles.
template <class T>
void ScalePlane(Plane<const T> source, Plane<T> out, const ScaleAxis& columns,
                const ScaleAxis& rows, std::byte* scratch);

} // namespace Kesto::Kernels
