#include "pixels/operations/pixmap_scaler.h"

namespace Kesto {

namespace {

bool Contains(const CPixmap& pixmap, const PixelRect& rect)
{
    return rect.IsEmpty() || Intersect(rect, pixmap.GetBounds()) == rect;
}

// How many pieces a cell is cut into along a reduced axis: the first power of two that is not below
// the ratio, up to one piece for each pixel.
std::int32_t StepsFor(ScaleMode mode, std::int64_t destSize, std::int64_t sourceSize)
{
    std::int32_t steps = 1;
    while (mode == ScaleMode::kReduce && steps < CPixScaler::kCellSize &&
           steps * destSize < sourceSize)
        steps *= 2;
    return steps;
}

struct Range {
    std::int32_t fStart;
    std::int32_t fEnd;
};

// Piece `index` of `count` along one axis of a cell. The last one reaches the cell's end, since the
// last cell of a grid can be larger than the others.
Range PieceRange(std::int32_t start, std::int32_t end, std::int32_t index, std::int32_t count)
{
    const std::int32_t size = CPixScaler::kCellSize / count;
    const std::int32_t pieceStart = start + index * size;
    const std::int32_t pieceEnd = pieceStart + size;
    return {pieceStart, index + 1 == count ? std::max(pieceEnd, end) : pieceEnd};
}

} // namespace

void CPixmapScaler::Reset()
{
    CPixScaler::Reset();
    fStepsAcross = 0;
    fStepsDown = 0;
}

bool CPixmapScaler::CanPrepare(const PixelRect& destRect, const PixelRect& sourceRect) const
{
    if (fDest == nullptr || fSource == nullptr)
        return false;
    const std::int32_t bits = fDest->GetPixelBits();
    return (bits == 8 || bits == 16 || bits == 32) && fSource->GetPixelBits() == bits &&
           Contains(*fDest, destRect) && Contains(*fSource, sourceRect);
}

void CPixmapScaler::Prepare(const PixelRect& destRect, const PixelRect& sourceRect)
{
    if (!CanPrepare(destRect, sourceRect))
        return Reset();
    const std::int32_t bits = fDest->GetPixelBits();
    SetDepthKind(bits == 8 ? DepthKind::k8Bit : bits == 16 ? DepthKind::k16Bit : DepthKind::k32Bit);
    CPixScaler::Prepare(destRect, sourceRect);
    if (GetColumns() == 0)
        return;
    fStepsAcross = StepsFor(GetColumnMode(), destRect.right - destRect.left,
                            sourceRect.right - sourceRect.left);
    fStepsDown =
        StepsFor(GetRowMode(), destRect.bottom - destRect.top, sourceRect.bottom - sourceRect.top);
    SetStepsPerCell(static_cast<std::uint32_t>(fStepsAcross * fStepsDown));
}

PixelRect CPixmapScaler::PieceOf(std::int32_t column, std::int32_t row, std::uint32_t step) const
{
    const PixelRect cell = GetCell(column, row);
    const std::int32_t index = static_cast<std::int32_t>(step);
    const Range across = PieceRange(cell.left, cell.right, index % fStepsAcross, fStepsAcross);
    const Range down = PieceRange(cell.top, cell.bottom, index / fStepsAcross, fStepsDown);
    return Intersect({across.fStart, down.fStart, across.fEnd, down.fEnd}, GetDestRect());
}

bool CPixmapScaler::DoStep(std::int32_t column, std::int32_t row, std::uint32_t& done,
                           Callback callback, void* userData)
{
    const std::uint32_t state = GetCellState(column, row);
    if (state >= GetStepCount(column, row))
        return true;
    const PixelRect piece = PieceOf(column, row, state);
    if (!piece.IsEmpty()) {
        PixelRect sourceRect;
        GetSourceRect(piece, sourceRect);
        Scale(*fDest, *fSource, piece, sourceRect,
              {fDestFirstPlane, fDestPlaneCount, fSourceFirstPlane, fSourcePlaneCount});
    }
    SetCellState(column, row, state + 1);
    done += 1;
    return ReportProgress(1, callback, userData);
}

void CPixmapScaler::Clear()
{
    fDest = nullptr;
    fSource = nullptr;
    fDestFirstPlane = 0;
    fDestPlaneCount = -1;
    fSourceFirstPlane = 0;
    fSourcePlaneCount = -1;
    Reset();
}

void CPixmapScaler::SetPixmaps(CPixmap* dest, CPixmap* source, const PixelRect& destRect,
                               const PixelRect& sourceRect, std::int32_t destFirstPlane,
                               std::int32_t destPlaneCount, std::int32_t sourceFirstPlane,
                               std::int32_t sourcePlaneCount)
{
    fDest = dest;
    fSource = source;
    fDestFirstPlane = destFirstPlane;
    fDestPlaneCount = destPlaneCount;
    fSourceFirstPlane = sourceFirstPlane;
    fSourcePlaneCount = sourcePlaneCount;
    Prepare(destRect, sourceRect);
}

void CPixmapScaler::SetPixmaps(CPixmap* dest, CPixmap* source, std::int32_t destFirstPlane,
                               std::int32_t destPlaneCount, std::int32_t sourceFirstPlane,
                               std::int32_t sourcePlaneCount)
{
    SetPixmaps(dest, source, dest != nullptr ? dest->GetBounds() : PixelRect(),
               source != nullptr ? source->GetBounds() : PixelRect(), destFirstPlane,
               destPlaneCount, sourceFirstPlane, sourcePlaneCount);
}

} // namespace Kesto
