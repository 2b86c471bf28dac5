#include "pixels/kernels/box.h"

#include "foundation/base/block.h"
#include "pixels/kernels/kernel_table.h"
#include "pixels/kernels/plain/box.h"
#include "pixels/kernels/view_access.h"

namespace Kesto::Kernels {

namespace {

// Calls kernel(source, target, shape) for each plane, the target cut to what the source allows.
template <class T, class Kernel>
void ForEachPlane(const CPixView& out, const CPixView& source, const BoxShape& shape,
                  const Kernel& kernel)
{
    if (!HasPlanes(out, 8 * sizeof(T)) || !HasPlanes(source, 8 * sizeof(T)) || shape.fWidth < 1 ||
        shape.fHeight < 1)
        return;
    const std::int64_t width = std::int64_t{source.width} - shape.ExtraColumns();
    const std::int64_t height = std::int64_t{source.height} - shape.ExtraRows();
    for (std::int32_t i = 0; i < std::min(out.planeCount, source.planeCount); ++i) {
        Plane<T> target = PlaneOf<T>(out, i);
        target.fWidth = static_cast<std::int32_t>(std::min<std::int64_t>(target.fWidth, width));
        target.fHeight = static_cast<std::int32_t>(std::min<std::int64_t>(target.fHeight, height));
        if (target.fWidth > 0 && target.fHeight > 0)
            kernel(Plane<const T>(PlaneOf<T>(source, i)), target, shape);
    }
}

// Runs one of the extreme kernels: the fast one for bytes, the plain one for the rest.
template <class Fast, class Simple>
void RunExtreme(const CPixView& out, const CPixView& source, BoxShape shape, const Fast& fast,
                const Simple& simple)
{
    shape.fLean = 0;
    WithPixelType(out.pixelBits, [&]<class T>() {
        ForEachPlane<T>(out, source, shape,
                        [&](Plane<const T> pixels, Plane<T> target, const BoxShape& box) {
                            CMemoryBlock scratch;
                            scratch.SetSize(box.ScratchBytes(source.width) * sizeof(T));
                            if constexpr (sizeof(T) == 1)
                                fast(pixels, target, box, scratch.Data());
                            else
                                simple(pixels, target, box, scratch.Data());
                        });
    });
}

} // namespace

void BoxMean(const CPixView& out, const CPixView& source, const BoxShape& shape, bool round)
{
    ForEachPlane<std::uint8_t>(
        out, source, shape,
        [&](Plane<const std::uint8_t> pixels, Plane<std::uint8_t> target, const BoxShape& box) {
            CMemoryBlock scratch;
            scratch.SetSize(box.ScratchBytes(source.width));
            ActiveKernels().boxMean(pixels, target, box, round, scratch.Data());
        });
    ForEachPlane<std::uint32_t>(
        out, source, shape,
        [&](Plane<const std::uint32_t> pixels, Plane<std::uint32_t> target, const BoxShape& box) {
            Plain::BoxMean(pixels, target, box, round, nullptr);
        });
}

void Dilate(const CPixView& out, const CPixView& source, const BoxShape& shape)
{
    RunExtreme(out, source, shape, ActiveKernels().boxMaximum,
               [](auto... arguments) { Plain::BoxExtreme<Plain::Larger>(arguments...); });
}

void Erode(const CPixView& out, const CPixView& source, const BoxShape& shape)
{
    RunExtreme(out, source, shape, ActiveKernels().boxMinimum,
               [](auto... arguments) { Plain::BoxExtreme<Plain::Smaller>(arguments...); });
}

void BoxRange(const CPixView& out, const CPixView& source, const BoxShape& shape)
{
    RunExtreme(out, source, shape, ActiveKernels().boxRange,
               [](auto... arguments) { Plain::BoxRange(arguments...); });
}

void Rank(const CPixView& out, const CPixView& source, const BoxShape& shape, std::int32_t rank,
          std::span<std::int32_t> counts)
{
    if (counts.empty())
        return;
    BoxShape upright = shape;
    upright.fLean = 0;
    ForEachPlane<std::uint32_t>(
        out, source, upright,
        [&](Plane<const std::uint32_t> pixels, Plane<std::uint32_t> target, const BoxShape& box) {
            CMemoryBlock scratch;
            scratch.SetSize(box.ScratchBytes(source.width));
            ActiveKernels().rank(pixels, target, box, rank, counts, scratch.Data());
        });
}

} // namespace Kesto::Kernels
