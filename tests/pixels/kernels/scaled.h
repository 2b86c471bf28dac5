// Planes scaled in one run, without a grid.
#pragma once

#include "pixels/kernels/pictures.h"
#include "pixels/kernels/scale.h"

namespace Kesto::Testing {

// How one axis is scaled; `start` is the index that the entries have for the first source pixel.
struct ScaledAxis {
    ScaledAxis(std::int32_t target, std::int32_t source, std::int32_t start)
    {
        axis.fStart = start;
        axis.fMode = target < source   ? ScaleMode::kReduce
                     : target > source ? ScaleMode::kEnlarge
                                       : ScaleMode::kSame;
        if (target < source)
            table = MakeReduceTable(target, source, start, axis.fScale);
        else if (target > source)
            table = MakeEnlargeTable(target, source, start);
        axis.fEntries = table;
    }

    ScaleTable table;
    Kernels::ScaleAxis axis;
};

// The first plane in another size, in bytes, without padding.
template <class T>
std::vector<std::uint8_t> Scaled(const CPicture& source, std::int32_t width, std::int32_t height)
{
    const CPicture target(8 * sizeof(T), width, height, 1);
    const CPixView from = source.View();
    const ScaledAxis columns(width, from.width, 3);
    const ScaledAxis rows(height, from.height, -7);
    std::vector<double> scratch(Kernels::ScaleScratchBytes<T>(width) / sizeof(double) + 1);
    Kernels::ScalePlane<T>(Kernels::PlaneOf<T>(from, 0), Kernels::PlaneOf<T>(target.View(), 0),
                           columns.axis, rows.axis, reinterpret_cast<std::byte*>(scratch.data()));
    return target.Copied();
}

} // namespace Kesto::Testing
