// The plain loops of the box kernels. The source is larger than the target by the box's extra
// columns and rows.
#pragma once

#include "pixels/kernels/box_shape.h"
#include "pixels/kernels/plane.h"

#include <algorithm>
#include <cstdint>

namespace Kesto::Kernels::Plain {

// The mean by a running sum: a column leaves, a column enters.
template <class T>
void BoxMean(Plane<const T> source, Plane<T> out, BoxShape shape, bool round, std::byte*)
{
    const std::uint64_t area =
        static_cast<std::uint64_t>(shape.fWidth) * static_cast<std::uint64_t>(shape.fHeight);
    const std::uint64_t half = round ? area / 2 : 0;
    for (std::int32_t y = 0; y < out.fHeight; ++y) {
        const auto column = [&](std::int32_t x) {
            std::uint64_t sum = 0;
            for (std::int32_t row = 0; row < shape.fHeight; ++row)
                sum += source.Row(y + row)[x + shape.RowStart(row)];
            return sum;
        };
        std::uint64_t sum = 0;
        for (std::int32_t x = 0; x < shape.fWidth; ++x)
            sum += column(x);
        T* target = out.Row(y);
        for (std::int32_t x = 0; x < out.fWidth; ++x) {
            if (x > 0)
                sum += column(x + shape.fWidth - 1) - column(x - 1);
            target[x] = static_cast<T>((sum + half) / area);
        }
    }
}

struct Larger {
    template <class T>
    T operator()(T a, T b) const
    {
        return std::max(a, b);
    }
};
struct Smaller {
    template <class T>
    T operator()(T a, T b) const
    {
        return std::min(a, b);
    }
};

// The extreme of each column of one row of boxes, `columns` of them, to `extremes`.
template <class Pick, class T>
void ColumnExtremes(Plane<const T> source, std::int32_t y, BoxShape shape, T* extremes,
                    std::int32_t columns)
{
    std::copy_n(source.Row(y), columns, extremes);
    for (std::int32_t row = 1; row < shape.fHeight; ++row) {
        const T* line = source.Row(y + row);
        for (std::int32_t x = 0; x < columns; ++x)
            extremes[x] = Pick()(extremes[x], line[x]);
    }
}

template <class Pick, class T>
T Extreme(const T* first, std::int32_t count)
{
    T extreme = *first;
    for (std::int32_t i = 1; i < count; ++i)
        extreme = Pick()(extreme, first[i]);
    return extreme;
}

// Dilates or erodes: first down the columns, then along the row.
template <class Pick, class T>
void BoxExtreme(Plane<const T> source, Plane<T> out, BoxShape shape, std::byte* scratch)
{
    T* extremes = reinterpret_cast<T*>(scratch);
    for (std::int32_t y = 0; y < out.fHeight; ++y) {
        ColumnExtremes<Pick>(source, y, shape, extremes, out.fWidth + shape.fWidth - 1);
        T* target = out.Row(y);
        for (std::int32_t x = 0; x < out.fWidth; ++x)
            target[x] = Extreme<Pick>(extremes + x, shape.fWidth);
    }
}

template <class T>
void BoxRange(Plane<const T> source, Plane<T> out, BoxShape shape, std::byte* scratch)
{
    const std::int32_t columns = out.fWidth + shape.fWidth - 1;
    T* largest = reinterpret_cast<T*>(scratch);
    T* smallest = largest + columns;
    for (std::int32_t y = 0; y < out.fHeight; ++y) {
        ColumnExtremes<Larger>(source, y, shape, largest, columns);
        ColumnExtremes<Smaller>(source, y, shape, smallest, columns);
        T* target = out.Row(y);
        for (std::int32_t x = 0; x < out.fWidth; ++x)
            target[x] = static_cast<T>(Extreme<Larger>(largest + x, shape.fWidth) -
                                       Extreme<Smaller>(smallest + x, shape.fWidth));
    }
}

} // namespace Kesto::Kernels::Plain
