#include "pixels/kernels/blend.h"

#include "pixels/kernels/kernel_table.h"
#include "pixels/kernels/view_access.h"

namespace Kesto::Kernels {

namespace {

using Byte = std::uint8_t;

Extent Limited(Extent extent, std::span<const Byte> values)
{
    extent.fPlanes = std::min(extent.fPlanes, static_cast<std::int32_t>(values.size()));
    return extent;
}

Byte Value(std::span<const Byte> values, std::int32_t plane)
{
    return values[static_cast<std::size_t>(plane)];
}

} // namespace

void Blend(const CPixView& out, const CPixView& source, const CPixView& below, const CPixView& mask)
{
    const Extent extent = CommonExtent({&out, &source, &below}, mask);
    const auto blend = ActiveKernels(extent.Pixels()).blend;
    ForEachRow(extent, [&](std::int32_t plane, std::int32_t y, std::size_t n) {
        blend(RowOf<Byte>(source, plane, y), RowOf<Byte>(below, plane, y), RowOf<Byte>(mask, 0, y),
              RowOf<Byte>(out, plane, y), n);
    });
}

void Blend(const CPixView& out, const CPixView& source, const CPixView& below, std::uint8_t alpha)
{
    const Extent extent = CommonExtent(8, {&out, &source, &below});
    const auto blend = ActiveKernels(extent.Pixels()).blendConstant;
    ForEachRow(extent, [&](std::int32_t plane, std::int32_t y, std::size_t n) {
        blend(RowOf<Byte>(source, plane, y), RowOf<Byte>(below, plane, y), alpha,
              RowOf<Byte>(out, plane, y), n);
    });
}

void BlendColour(const CPixView& out, std::span<const std::uint8_t> colour, const CPixView& below,
                 const CPixView& mask)
{
    const Extent extent = Limited(CommonExtent({&out, &below}, mask), colour);
    const auto blend = ActiveKernels(extent.Pixels()).blendColour;
    ForEachRow(extent, [&](std::int32_t plane, std::int32_t y, std::size_t n) {
        blend(Value(colour, plane), RowOf<Byte>(below, plane, y), RowOf<Byte>(mask, 0, y),
              RowOf<Byte>(out, plane, y), n);
    });
}

void BlendColour(const CPixView& out, std::span<const std::uint8_t> colour, const CPixView& below,
                 std::uint8_t alpha)
{
    const Extent extent = Limited(CommonExtent(8, {&out, &below}), colour);
    const auto blend = ActiveKernels(extent.Pixels()).blendColourConstant;
    ForEachRow(extent, [&](std::int32_t plane, std::int32_t y, std::size_t n) {
        blend(Value(colour, plane), RowOf<Byte>(below, plane, y), alpha, RowOf<Byte>(out, plane, y),
              n);
    });
}

void BlendColours(const CPixView& out, std::span<const std::uint8_t> colour,
                  std::span<const std::uint8_t> below, const CPixView& mask)
{
    const Extent extent = Limited(Limited(CommonExtent({&out}, mask), colour), below);
    const auto blend = ActiveKernels(extent.Pixels()).blendColours;
    ForEachRow(extent, [&](std::int32_t plane, std::int32_t y, std::size_t n) {
        blend(Value(colour, plane), Value(below, plane), RowOf<Byte>(mask, 0, y),
              RowOf<Byte>(out, plane, y), n);
    });
}

void ApplyMask(const CPixView& view, const CPixView& mask)
{
    const Extent extent = CommonExtent({&view}, mask);
    const auto apply = ActiveKernels(extent.Pixels()).applyMask;
    ForEachRow(extent, [&](std::int32_t plane, std::int32_t y, std::size_t n) {
        apply(RowOf<Byte>(view, plane, y), RowOf<Byte>(mask, 0, y), RowOf<Byte>(view, plane, y), n);
    });
}

void ApplyInvertedMask(const CPixView& view, const CPixView& mask)
{
    const Extent extent = CommonExtent({&view}, mask);
    const auto apply = ActiveKernels(extent.Pixels()).applyInvertedMask;
    ForEachRow(extent, [&](std::int32_t plane, std::int32_t y, std::size_t n) {
        apply(RowOf<Byte>(view, plane, y), RowOf<Byte>(mask, 0, y), RowOf<Byte>(view, plane, y), n);
    });
}

} // namespace Kesto::Kernels
