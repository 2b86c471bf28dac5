#include "platform/graphics/rasterizer.h"

#include <algorithm>
#include <cmath>

namespace Platform {
namespace {

constexpr std::int32_t kOne = 256;                            // a pixel's side
constexpr std::int64_t kFull = std::int64_t{2} * kOne * kOne; // a cell that is inside as a whole

std::int32_t Fixed(double value)
{
    return static_cast<std::int32_t>(std::floor(value * kOne + 0.5));
}

std::int32_t PixelOf(std::int32_t fixed)
{
    return fixed >> 8;
}

PathPoint AtY(PathPoint a, PathPoint b, double y)
{
    return {a.x + (b.x - a.x) * ((y - a.y) / (b.y - a.y)), y};
}

PathPoint AtX(PathPoint a, PathPoint b, double x)
{
    return {x, a.y + (b.y - a.y) * ((x - a.x) / (b.x - a.x))};
}

// What the line crosses at `to` of the way from `start` to `end`, as whole steps.
std::int32_t Between(std::int32_t start, std::int32_t end, std::int64_t part, std::int64_t whole)
{
    return start + static_cast<std::int32_t>((end - start) * part / whole);
}

std::uint8_t CoverageOf(std::int64_t inside, FillRule rule)
{
    inside = std::abs(inside);
    if (rule == FillRule::kEvenOdd) {
        inside %= 2 * kFull;
        inside = std::min(inside, 2 * kFull - inside);
    }
    return static_cast<std::uint8_t>((std::min(inside, kFull) * 255 + kFull / 2) / kFull);
}

} // namespace

void Rasterizer::Begin(const PixelRect& bounds)
{
    fBounds = bounds.IsEmpty() ? PixelRect{} : bounds;
    fCells.clear();
}

void Rasterizer::AddFigure(std::span<const PathPoint> points)
{
    for (std::size_t i = 0; i < points.size(); ++i)
        AddLine(points[i], points[i + 1 < points.size() ? i + 1 : 0]);
}

// Cuts off what lies above and below, which no row needs.
void Rasterizer::AddLine(PathPoint from, PathPoint to)
{
    const double top = fBounds.top;
    const double bottom = fBounds.bottom;
    if (from.y == to.y || std::max(from.y, to.y) <= top || std::min(from.y, to.y) >= bottom)
        return;
    const PathPoint a = from;
    const PathPoint b = to;
    for (PathPoint* end : {&from, &to})
        if (end->y < top || end->y > bottom)
            *end = AtY(a, b, std::clamp(end->y, top, bottom));
    AddWithin(from, to);
}

// What lies to the left counts as if it lay on the left edge, what lies to the right not at all.
void Rasterizer::AddWithin(PathPoint from, PathPoint to)
{
    const double left = fBounds.left;
    const double right = fBounds.right;
    for (const double edge : {left, right})
        if (std::min(from.x, to.x) < edge && std::max(from.x, to.x) > edge) {
            const PathPoint middle = AtX(from, to, edge);
            AddWithin(from, middle);
            AddWithin(middle, to);
            return;
        }
    if (std::max(from.x, to.x) <= left)
        from.x = to.x = left;
    if (std::min(from.x, to.x) < right)
        AddFixed({Fixed(from.x), Fixed(from.y)}, {Fixed(to.x), Fixed(to.y)});
}

void Rasterizer::AddFixed(FixedPoint from, FixedPoint to)
{
    const bool down = to.y > from.y;
    const FixedPoint start = from;
    while (from.y != to.y) {
        const std::int32_t y = PixelOf(down ? from.y : from.y - 1);
        const std::int32_t edge = (down ? y + 1 : y) * kOne;
        FixedPoint next = to;
        if (down ? edge < to.y : edge > to.y)
            next = {Between(start.x, to.x, edge - start.y, to.y - start.y), edge};
        AddInRow(y, from, next);
        from = next;
    }
}

void Rasterizer::AddInRow(std::int32_t y, FixedPoint from, FixedPoint to)
{
    const bool forward = to.x > from.x;
    const FixedPoint start = from;
    for (;;) {
        const std::int32_t x = PixelOf(forward || to.x == from.x ? from.x : from.x - 1);
        const std::int32_t edge = (forward ? x + 1 : x) * kOne;
        if (to.x == from.x || (forward ? edge >= to.x : edge <= to.x)) {
            AddInCell(x, y, from, to);
            return;
        }
        const FixedPoint next{edge, Between(start.y, to.y, edge - start.x, to.x - start.x)};
        AddInCell(x, y, from, next);
        from = next;
    }
}

void Rasterizer::AddInCell(std::int32_t x, std::int32_t y, FixedPoint from, FixedPoint to)
{
    const std::int32_t cover = to.y - from.y;
    if (cover == 0 || x >= fBounds.right)
        return;
    const std::int32_t area = (from.x + to.x - 2 * x * kOne) * cover;
    if (!fCells.empty() && fCells.back().x == x && fCells.back().y == y) {
        fCells.back().cover += cover;
        fCells.back().area += area;
    } else {
        fCells.push_back({x, y, cover, area});
    }
}

// By counting the cells of each row, and a sort of the few that a row has.
void Rasterizer::SortCells()
{
    const auto rowOf = [this](const Cell& cell) {
        return static_cast<std::size_t>(cell.y - fBounds.top);
    };
    fRowStarts.assign(static_cast<std::size_t>(fBounds.bottom - fBounds.top) + 2, 0);
    for (const Cell& cell : fCells)
        ++fRowStarts[rowOf(cell) + 2];
    for (std::size_t i = 2; i < fRowStarts.size(); ++i)
        fRowStarts[i] += fRowStarts[i - 1];
    fSorted.resize(fCells.size());
    for (const Cell& cell : fCells)
        fSorted[fRowStarts[rowOf(cell) + 1]++] = cell;
    fRowStarts.pop_back(); // each start has moved up to its row by now
}

std::span<const CoverageSpan> Rasterizer::SpansOf(std::int32_t y, FillRule rule)
{
    const auto row = static_cast<std::size_t>(y - fBounds.top);
    const std::span cells(fSorted.data() + fRowStarts[row], fRowStarts[row + 1] - fRowStarts[row]);
    std::ranges::sort(cells, {}, &Cell::x);
    fSpans.clear();
    std::int64_t cover = 0; // of all cells to the left
    for (std::size_t i = 0; i < cells.size();) {
        const std::int32_t x = cells[i].x;
        std::int64_t area = 0;
        for (; i < cells.size() && cells[i].x == x; ++i) {
            cover += cells[i].cover;
            area += cells[i].area;
        }
        AddSpan(x, x + 1, cover * 2 * kOne - area, rule);
        const std::int32_t next = i < cells.size() ? cells[i].x : fBounds.right;
        AddSpan(x + 1, next, cover * 2 * kOne, rule);
    }
    return fSpans;
}

void Rasterizer::AddSpan(std::int32_t left, std::int32_t right, std::int64_t inside, FillRule rule)
{
    const std::uint8_t coverage = CoverageOf(inside, rule);
    if (left >= right || coverage == 0)
        return;
    if (!fSpans.empty() && fSpans.back().right == left && fSpans.back().coverage == coverage)
        fSpans.back().right = right;
    else
        fSpans.push_back({left, right, coverage});
}

} // namespace Platform
