#include "pixels/operations/pix_scaler.h"

#include "foundation/base/block.h"
#include "pixels/kernels/transfer.h"
#include "pixels/kernels/view_access.h"
#include "pixels/operations/pix_walker.h"
#include "pixels/pixmaps/memory_pixmap.h"

#include <optional>

namespace Kesto {

namespace {

using Access = CPixWalker::Access;

ScaleMode ModeOf(std::int32_t destSize, std::int32_t sourceSize)
{
    return destSize < sourceSize   ? ScaleMode::kReduce
           : destSize > sourceSize ? ScaleMode::kEnlarge
                                   : ScaleMode::kSame;
}

ScaleTable MakeTable(std::int32_t destSize, std::int32_t sourceSize, std::int32_t sourceStart,
                     float& scale)
{
    scale = 1;
    switch (ModeOf(destSize, sourceSize)) {
    case ScaleMode::kReduce:
        return MakeReduceTable(destSize, sourceSize, sourceStart, scale);
    case ScaleMode::kEnlarge:
        return MakeEnlargeTable(destSize, sourceSize, sourceStart);
    case ScaleMode::kSame:
        break;
    }
    return {};
}

// The entries of the target pixels `start` to `end`, counted from the table's first.
std::span<const ScaleEntry> Part(const ScaleTable& table, std::int32_t start, std::int32_t end)
{
    if (table.empty())
        return {};
    return std::span(table).subspan(static_cast<std::size_t>(start),
                                    static_cast<std::size_t>(end - start));
}

struct Range {
    std::int32_t fStart;
    std::int32_t fEnd;
};

// The source pixels of the target pixels `start` to `end`; `shift` is the way from target to
// source.
Range SourceRange(const ScaleTable& table, std::int32_t start, std::int32_t end, std::int32_t shift,
                  std::int32_t targetStart)
{
    if (table.empty())
        return {targetStart + start + shift, targetStart + end + shift};
    const std::span<const ScaleEntry> entries = Part(table, start, end);
    return {entries.front().fFirst, entries.back().fLast + 1};
}

// Some planes of a rectangle of a pixmap as one view. Where the rectangle crosses tiles the pixels
// are a copy.
class CPixels {
public:
    CPixels(CPixmap& pixmap, const PixelRect& rect, std::int32_t firstPlane,
            std::int32_t planeCount)
        : fPixmap(pixmap), fRect(rect),
          fFirst(std::clamp(firstPlane, 0, std::max(pixmap.GetPlaneCount() - 1, 0))),
          fCount(pixmap.GetPlaneCount() - fFirst)
    {
        if (planeCount >= 0)
            fCount = std::min(fCount, planeCount);
        if (!LiesInOneTile(pixmap, rect))
            fCopy.emplace(rect, pixmap.GetPixelBits(), fCount, 4, 0);
    }

    std::int32_t GetPlaneCount() const { return fCount; }

    // Calls the function with a view to read from.
    template <class Function>
    void Read(const Function& function)
    {
        if (!fCopy)
            return Visit(Access::kRead, function);
        CPixWalker({{&fPixmap, fRect, fFirst, fCount, Access::kRead},
                    {&*fCopy, fRect, 0, fCount, Access::kWrite}})
            .Run([](const CPixWalkContext& context) {
                Kernels::Copy(context.fWrite[0], context.fRead[0]);
                return true;
            });
        function(ViewOfCopy());
    }

    // Calls the function with a view to write to, of which it writes every pixel.
    template <class Function>
    void Write(const Function& function)
    {
        if (!fCopy)
            return Visit(Access::kWrite, function);
        function(ViewOfCopy());
        CPixWalker({{&*fCopy, fRect, 0, fCount, Access::kRead},
                    {&fPixmap, fRect, fFirst, fCount, Access::kWrite}})
            .Run([](const CPixWalkContext& context) {
                Kernels::Copy(context.fWrite[0], context.fRead[0]);
                return true;
            });
    }

private:
    template <class Function>
    void Visit(Access access, const Function& function)
    {
        CPixWalker({{&fPixmap, fRect, fFirst, fCount, access}})
            .Run([&](const CPixWalkContext& context) {
                function(access == Access::kRead ? context.fRead[0] : context.fWrite[0]);
                return true;
            });
    }

    CPixView ViewOfCopy() const
    {
        CPixView view;
        fCopy->GetView(view);
        return view;
    }

    CPixmap& fPixmap;
    PixelRect fRect;
    std::int32_t fFirst;
    std::int32_t fCount;
    std::optional<CMemoryPixmap> fCopy;
};

} // namespace

void CPixScaler::Reset()
{
    CPixProcess::Reset();
    SetStepsPerCell(0);
    fDestRect = {};
    fSourceRect = {};
    fColumnTable.clear();
    fRowTable.clear();
}

// The tables depend on the rectangles alone and are kept with them; the cells start over each time,
// since the pixels may be others.
void CPixScaler::Prepare(const PixelRect& destRect, const PixelRect& sourceRect)
{
    if (destRect != fDestRect || sourceRect != fSourceRect) {
        if (destRect.IsEmpty() || sourceRect.IsEmpty())
            return Reset();
        const PixelPoint dest{destRect.right - destRect.left, destRect.bottom - destRect.top};
        const PixelPoint source{sourceRect.right - sourceRect.left,
                                sourceRect.bottom - sourceRect.top};
        fDestRect = destRect;
        fSourceRect = sourceRect;
        fColumnTable = MakeTable(dest.x, source.x, sourceRect.left, fColumnScale);
        fRowTable = MakeTable(dest.y, source.y, sourceRect.top, fRowScale);
        fColumnMode = ModeOf(dest.x, source.x);
        fRowMode = ModeOf(dest.y, source.y);
    }
    SetGrid(destRect, destRect, kCellSize);
    SetStepsPerCell(1);
}

bool CPixScaler::IsPrepared(const PixelRect& destRect) const
{
    return !destRect.IsEmpty() && Intersect(destRect, fDestRect) == destRect;
}

void CPixScaler::GetSourceRect(const PixelRect& destRect, PixelRect& sourceRect)
{
    sourceRect = {};
    if (!IsPrepared(destRect))
        return;
    const Range across =
        SourceRange(fColumnTable, destRect.left - fDestRect.left, destRect.right - fDestRect.left,
                    fSourceRect.left - fDestRect.left, fDestRect.left);
    const Range down =
        SourceRange(fRowTable, destRect.top - fDestRect.top, destRect.bottom - fDestRect.top,
                    fSourceRect.top - fDestRect.top, fDestRect.top);
    sourceRect = {across.fStart, down.fStart, across.fEnd, down.fEnd};
}

void CPixScaler::Scale(CPixmap& dest, CPixmap& source, const PixelRect& destRect,
                       const PixelRect& sourceRect, const Planes& planes)
{
    switch (fDepthKind) {
    case DepthKind::k8Bit:
        return Scale8(dest, source, destRect, sourceRect, planes);
    case DepthKind::k16Bit:
        return Scale16(dest, source, destRect, sourceRect, planes);
    case DepthKind::k32Bit:
        return Scale32(dest, source, destRect, sourceRect, planes);
    }
}

void CPixScaler::Scale8(CPixmap& dest, CPixmap& source, const PixelRect& destRect,
                        const PixelRect& sourceRect, const Planes& planes)
{
    ScalePixels<std::uint8_t>(dest, source, destRect, sourceRect, planes);
}

void CPixScaler::Scale16(CPixmap& dest, CPixmap& source, const PixelRect& destRect,
                         const PixelRect& sourceRect, const Planes& planes)
{
    ScalePixels<std::uint16_t>(dest, source, destRect, sourceRect, planes);
}

void CPixScaler::Scale32(CPixmap& dest, CPixmap& source, const PixelRect& destRect,
                         const PixelRect& sourceRect, const Planes& planes)
{
    ScalePixels<std::uint32_t>(dest, source, destRect, sourceRect, planes);
}

template <class T>
void CPixScaler::ScalePixels(CPixmap& dest, CPixmap& source, const PixelRect& destRect,
                             const PixelRect& sourceRect, const Planes& planes)
{
    constexpr std::int32_t kBits = 8 * sizeof(T);
    PixelRect needed;
    GetSourceRect(destRect, needed);
    const bool served = dest.GetPixelBits() == kBits && source.GetPixelBits() == kBits &&
                        !needed.IsEmpty() && Intersect(needed, sourceRect) == needed &&
                        Intersect(sourceRect, source.GetBounds()) == sourceRect &&
                        Intersect(destRect, dest.GetBounds()) == destRect;
    if (!served)
        return;
    CPixels pixels(source, sourceRect, planes.fSourceFirst, planes.fSourceCount);
    // A target's planes beyond the source's would be copied back without having been written.
    const std::int32_t count = planes.fDestCount < 0
                                   ? pixels.GetPlaneCount()
                                   : std::min(planes.fDestCount, pixels.GetPlaneCount());
    CPixels target(dest, destRect, planes.fDestFirst, count);
    pixels.Read([&](const CPixView& from) {
        target.Write([&](const CPixView& to) { ScaleViews<T>(to, from, destRect, sourceRect); });
    });
}

template <class T>
void CPixScaler::ScaleViews(const CPixView& dest, const CPixView& source, const PixelRect& destRect,
                            const PixelRect& sourceRect)
{
    const Kernels::ScaleAxis columns{
        fColumnMode,
        Part(fColumnTable, destRect.left - fDestRect.left, destRect.right - fDestRect.left),
        sourceRect.left, fColumnScale};
    const Kernels::ScaleAxis rows{
        fRowMode, Part(fRowTable, destRect.top - fDestRect.top, destRect.bottom - fDestRect.top),
        sourceRect.top, fRowScale};
    CMemoryBlock scratch;
    scratch.SetSize(Kernels::ScaleScratchBytes<T>(dest.width));
    for (std::int32_t plane = 0; plane < std::min(dest.planeCount, source.planeCount); ++plane)
        Kernels::ScalePlane<T>(Kernels::PlaneOf<T>(source, plane), Kernels::PlaneOf<T>(dest, plane),
                               columns, rows, scratch.Data());
}

} // namespace Kesto
