#include "pixels/kernels/arithmetic.h"

#include "pixels/kernels/kernel_table.h"
#include "pixels/kernels/plain/arithmetic.h"
#include "pixels/kernels/view_access.h"

namespace Kesto::Kernels {

namespace {

void ForEachPair(const CPixView& out, const CPixView& a, const CPixView& b,
                 KernelTable::Binary8 KernelTable::*operationOf)
{
    const Extent extent = CommonExtent(8, {&out, &a, &b});
    const auto operation = ActiveKernels(extent.Pixels()).*operationOf;
    ForEachRow(extent, [&](std::int32_t plane, std::int32_t y, std::size_t n) {
        operation(RowOf<std::uint8_t>(a, plane, y), RowOf<std::uint8_t>(b, plane, y),
                  RowOf<std::uint8_t>(out, plane, y), n);
    });
}

} // namespace

void AddWrapping(const CPixView& out, const CPixView& a, const CPixView& b)
{
    ForEachPair(out, a, b, &KernelTable::addWrapping);
}

void AddCapped(const CPixView& out, const CPixView& a, const CPixView& b)
{
    ForEachPair(out, a, b, &KernelTable::addCapped);
}

void SubtractWrapping(const CPixView& out, const CPixView& a, const CPixView& b)
{
    ForEachPair(out, a, b, &KernelTable::subtractWrapping);
}

void SubtractFloored(const CPixView& out, const CPixView& a, const CPixView& b)
{
    ForEachPair(out, a, b, &KernelTable::subtractFloored);
}

void AddLookup(const CPixView& out, const CPixView& source, const CPixView& other,
               std::span<const std::int32_t, 256> table)
{
    ForEachRow(CommonExtent(8, {&out, &source, &other}),
               [&](std::int32_t plane, std::int32_t y, std::size_t n) {
                   const std::uint8_t* pixels = RowOf<std::uint8_t>(source, plane, y);
                   const std::uint8_t* others = RowOf<std::uint8_t>(other, plane, y);
                   std::uint8_t* results = RowOf<std::uint8_t>(out, plane, y);
                   for (std::size_t i = 0; i < n; ++i)
                       results[i] = Plain::Clamped(std::int64_t{pixels[i]} + table[others[i]]);
               });
}

void MapTable(const CPixView& out, const CPixView& source, std::span<const std::uint8_t, 256> table)
{
    const Extent extent = CommonExtent(8, {&out, &source});
    const auto mapTable = ActiveKernels(extent.Pixels()).mapTable;
    ForEachRow(extent, [&](std::int32_t plane, std::int32_t y, std::size_t n) {
        mapTable(RowOf<std::uint8_t>(source, plane, y), table.data(),
                 RowOf<std::uint8_t>(out, plane, y), n);
    });
}

void MapTable(const CPixView& out, const CPixView& source,
              std::span<const std::uint8_t, 65536> table, std::uint8_t level)
{
    MapTable(out, source,
             std::span<const std::uint8_t, 256>(table.data() + (std::size_t{level} << 8), 256));
}

} // namespace Kesto::Kernels
