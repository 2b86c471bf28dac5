#include "drawing/ports/pixmap_stage.h"

#include "pixels/kernels/colour.h"
#include "pixels/kernels/kernel_table.h"
#include "pixels/operations/pixel_fill.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace Kesto {
namespace {

using Kernels::PlaneOrder;

constexpr std::uint8_t kOpaque = 255;

// One axis of a mapping from a source of `sourceLength` pixels to a destination.
std::int32_t Scaled(std::int32_t offset, std::int32_t sourceLength, std::int32_t destLength)
{
    return RoundHalfAway(static_cast<double>(offset) * destLength / sourceLength);
}

// The source pixel whose area holds the middle of a destination pixel.
std::int32_t Nearest(std::int32_t offset, std::int32_t sourceLength, std::int32_t destLength)
{
    return static_cast<std::int32_t>((2 * std::int64_t{offset} + 1) * sourceLength /
                                     (2 * std::int64_t{destLength}));
}

// Cuts the source to the bounds, and the destination by as much.
void Cut(PixelRect& source, PixelRect& dest, const PixelRect& bounds)
{
    const PixelRect cut = Intersect(source, bounds);
    const std::int32_t width = source.Width();
    const std::int32_t height = source.Height();
    dest = {dest.left + Scaled(cut.left - source.left, width, dest.Width()),
            dest.top + Scaled(cut.top - source.top, height, dest.Height()),
            dest.right - Scaled(source.right - cut.right, width, dest.Width()),
            dest.bottom - Scaled(source.bottom - cut.bottom, height, dest.Height())};
    source = cut;
}

bool IsSane(const PixelRect& rect)
{
    constexpr std::int32_t kFarthest = 1 << 29;
    return !rect.IsEmpty() && rect.left >= -kFarthest && rect.top >= -kFarthest &&
           rect.right <= kFarthest && rect.bottom <= kFarthest;
}

// How planes of 8 bits become pixels, by their number.
struct Merging {
    PlaneOrder order;
    bool hasAlpha;
};
constexpr Merging kMergings[] = {{Kernels::kOrder_GreyConstant, false},
                                 {Kernels::kOrder_GreyAlpha, true},
                                 {Kernels::kOrder_BGRConstant, false},
                                 {Kernels::kOrder_BGRA, true}};
constexpr std::int32_t kMostPlanes = 4;

// Where the rows of a contiguous pixmap of 8 bits lie, without a view that would be allocated.
struct PlaneRows {
    explicit PlaneRows(const CBasicPixmap& pixmap)
        : first(pixmap.GetBaseAddress()), rowBytes(pixmap.GetRowBytes()),
          planeBytes(pixmap.GetPlaneBytes()), origin(pixmap.GetOrigin())
    {
    }
    std::uint8_t* At(std::int32_t plane, std::int32_t x, std::int32_t y) const
    {
        return first + plane * planeBytes + (y - origin.y) * rowBytes + (x - origin.x);
    }

    std::uint8_t* first;
    std::ptrdiff_t rowBytes;
    std::ptrdiff_t planeBytes;
    PixelPoint origin;
};

void MergeRect(const CBasicPixmap& pixmap, const PixelRect& rect, const PlaneOrder& order,
               bool premultiply, const CPixelSurface& out)
{
    const PlaneRows planes(pixmap);
    const Kernels::KernelTable& kernels = Kernels::ActiveKernels();
    const auto merge = premultiply ? kernels.mergePremultiplied : kernels.mergePlanes;
    // Where rows follow each other without a gap all of them are one.
    const bool packed = planes.rowBytes == rect.Width() && out.rowBytes == 4 * planes.rowBytes;
    const std::int32_t rowsAtOnce = packed ? rect.Height() : 1;
    const auto count =
        static_cast<std::size_t>(rect.Width()) * static_cast<std::size_t>(rowsAtOnce);
    for (std::int32_t y = rect.top; y < rect.bottom; y += rowsAtOnce) {
        Kernels::MergedRows rows{{}, kOpaque};
        for (std::size_t i = 0; i < order.size(); ++i)
            if (order[i] >= 0)
                rows.fBytes[i] = planes.At(order[i], rect.left, y);
        merge(rows, out.At(0, y - rect.top), count);
    }
}

// Makes it a pixmap of so many pixels from 0, 0, with unrelated content.
void Reshape(CMemoryPixmap& pixmap, std::int32_t width, std::int32_t height, std::int32_t planes)
{
    if (pixmap.GetPlaneCount() != planes)
        pixmap = CMemoryPixmap(8, width, height, planes, 4, 1);
    pixmap.SetSize(width, height);
}

} // namespace

// One picture on its way. Either `planes` or `pixels` is its source.
struct CPixmapStage::CJob {
    CPixmap* planes = nullptr;
    const CBasicPixmap* contiguous = nullptr; // `planes`, if it is one
    CPixelSurface pixels;
    PixelRect source;
    PixelRect dest;
    PixelRect visible;
    EAlphaUse alpha = EAlphaUse::kIgnored;

    // What is used of the source for the visible part when no pixels are averaged.
    PixelRect UsedSource() const
    {
        const auto x = [this](std::int32_t at) {
            return source.left + Nearest(at - dest.left, source.Width(), dest.Width());
        };
        const auto y = [this](std::int32_t at) {
            return source.top + Nearest(at - dest.top, source.Height(), dest.Height());
        };
        return {x(visible.left), y(visible.top), x(visible.right - 1) + 1,
                y(visible.bottom - 1) + 1};
    }

    bool IsPremultiplied() const
    {
        return alpha == EAlphaUse::kBlended && planes != nullptr &&
               kMergings[planes->GetPlaneCount() - 1].hasAlpha;
    }

    PlaneOrder Order() const
    {
        const std::int32_t count = planes->GetPlaneCount();
        const bool drop = alpha == EAlphaUse::kIgnored && kMergings[count - 1].hasAlpha;
        return kMergings[count - 1 - (drop ? 1 : 0)].order;
    }
};

CPixmapStage::CPixmapStage() : fPlanes(8, 0, 0, 4, 4, 1), fMerged(1, 1), fStretched(1, 1) {}

CPixelSurface CPixmapStage::Grown(CDisplayPixmap& pixmap, std::int32_t width, std::int32_t height)
{
    if (width > pixmap.GetWidth() || height > pixmap.GetHeight())
        pixmap.SetSize(std::max(width, pixmap.GetWidth()), std::max(height, pixmap.GetHeight()));
    return {pixmap.GetBaseAddress(), std::ptrdiff_t{4} * width, {width, height}};
}

CPreparedPixels CPixmapStage::Prepare(CPixmap& pixmap, const PixelRect& source,
                                      const PixelRect& dest, const PixelRect& visible,
                                      EAlphaUse alpha)
{
    const std::int32_t planes = pixmap.GetPlaneCount();
    const auto* const contiguous = dynamic_cast<const CBasicPixmap*>(&pixmap);
    if (contiguous != nullptr && contiguous->GetBaseAddress() == nullptr)
        return {};
    // Pixels that are as the port has them are drawn from where they are.
    if (alpha == EAlphaUse::kIgnored && contiguous != nullptr && planes == 1 &&
        pixmap.GetPixelBits() == 32) {
        const CPixelSurface surface{contiguous->GetBaseAddress(), contiguous->GetRowBytes(),
                                    contiguous->GetSize()};
        const PixelPoint origin = pixmap.GetOrigin();
        return IsSane(source)
                   ? Prepare(surface, Platform::Offset(source, -origin.x, -origin.y), dest, visible)
                   : CPreparedPixels{};
    }
    if (pixmap.GetPixelBits() != 8 || planes < 1 || planes > kMostPlanes || !IsSane(source) ||
        !IsSane(dest))
        return {};
    CJob job{&pixmap, contiguous, {}, source, dest, visible, alpha};
    Cut(job.source, job.dest, pixmap.GetBounds());
    return Stretch(job);
}

CPreparedPixels CPixmapStage::Prepare(const CPixelSurface& surface, const PixelRect& source,
                                      const PixelRect& dest, const PixelRect& visible)
{
    if (!IsSane(source) || !IsSane(dest))
        return {};
    CJob job{nullptr, nullptr, surface, source, dest, visible, EAlphaUse::kIgnored};
    Cut(job.source, job.dest, surface.Bounds());
    return Stretch(job);
}

CPreparedPixels CPixmapStage::Detach(const CPreparedPixels& pixels)
{
    const PixelRect all{0, 0, pixels.dest.Width(), pixels.dest.Height()};
    const CPixelSurface copy = Grown(fMerged, all.right, all.bottom);
    if (copy.bits != pixels.surface.bits)
        CopyPixels(pixels.surface, all, copy, {});
    return {copy, pixels.dest};
}

void CPixmapStage::Merge(const CJob& job, const PixelRect& rect, const CPixelSurface& out)
{
    if (job.contiguous != nullptr)
        return MergeRect(*job.contiguous, rect, job.Order(), job.IsPremultiplied(), out);
    const PixelRect all{0, 0, rect.Width(), rect.Height()};
    Reshape(fPlanes, all.right, all.bottom, job.planes->GetPlaneCount());
    Copy(fPlanes, *job.planes, all, rect, 0, -1);
    MergeRect(fPlanes, all, job.Order(), job.IsPremultiplied(), out);
}

CPreparedPixels CPixmapStage::Stretch(CJob& job)
{
    job.visible = Intersect(job.visible, job.dest);
    if (job.source.IsEmpty() || job.visible.IsEmpty())
        return {};
    const bool smaller =
        job.dest.Width() < job.source.Width() || job.dest.Height() < job.source.Height();
    if (smaller)
        return Average(job);

    // Of planes only the part that shows is merged; merged pixels in their own size aren't copied.
    const PixelRect used = job.UsedSource();
    CPixelSurface pixels = job.pixels;
    PixelPoint first{used.left, used.top};
    if (job.planes != nullptr) {
        pixels = Grown(fMerged, used.Width(), used.Height());
        first = {};
        Merge(job, used, pixels);
    }
    if (job.dest.Width() == job.source.Width() && job.dest.Height() == job.source.Height())
        return {{reinterpret_cast<std::uint8_t*>(pixels.At(first.x, first.y)),
                 pixels.rowBytes,
                 {used.Width(), used.Height()}},
                job.visible};

    const CPixelSurface stretched = Grown(fStretched, job.visible.Width(), job.visible.Height());
    for (std::int32_t y = job.visible.top; y < job.visible.bottom; ++y) {
        const std::int32_t row = job.source.top - used.top + first.y +
                                 Nearest(y - job.dest.top, job.source.Height(), job.dest.Height());
        std::uint32_t* const out = stretched.At(0, y - job.visible.top);
        const std::uint32_t* const in = pixels.At(first.x + job.source.left - used.left, row);
        for (std::int32_t x = job.visible.left; x < job.visible.right; ++x)
            out[x - job.visible.left] =
                in[Nearest(x - job.dest.left, job.source.Width(), job.dest.Width())];
    }
    return {stretched, job.visible};
}

// The used columns of a job's source, merged as they are asked for.
class CPixmapStage::CMergedRows final : public CPixelRows {
public:
    CMergedRows(CPixmapStage& stage, const CJob& job, std::int32_t left, std::int32_t right)
        : fStage(stage), fJob(job), fLeft(job.source.left + left), fRight(job.source.left + right),
          fMerged(stage.Grown(stage.fMerged, right - left, 1))
    {
    }
    const std::uint32_t* Row(std::int32_t y) override
    {
        const std::int32_t row = fJob.source.top + y;
        if (fJob.planes == nullptr)
            return fJob.pixels.At(fLeft, row);
        if (y != fKept)
            fStage.Merge(fJob, {fLeft, row, fRight, row + 1}, fMerged);
        fKept = y;
        return fMerged.At(0, 0);
    }

private:
    CPixmapStage& fStage;
    const CJob& fJob;
    std::int32_t fLeft;
    std::int32_t fRight;
    CPixelSurface fMerged;
    std::int32_t fKept = -1;
};

CPreparedPixels CPixmapStage::Average(CJob& job)
{
    const CAverageAxis across{job.source.Width(), job.dest.Width(),
                              job.visible.left - job.dest.left, job.visible.right - job.dest.left};
    const CAverageAxis down{job.source.Height(), job.dest.Height(), job.visible.top - job.dest.top,
                            job.visible.bottom - job.dest.top};
    CMergedRows rows(*this, job, across.FirstUsed(), across.EndUsed());
    const CPixelSurface out = Grown(fStretched, job.visible.Width(), job.visible.Height());
    fAverage.Run(rows, across, down, out);
    return {out, job.visible};
}

} // namespace Kesto
