#include "platform/graphics/text_line.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace Platform {
namespace {

// Coverage of more bytes is not kept but rendered piece by piece, as it is drawn.
constexpr std::int64_t kMostKept = 256 * 1024;

std::int64_t PixelsOf(const PixelRect& rect)
{
    return rect.IsEmpty()
               ? 0
               : (std::int64_t{rect.right} - rect.left) * (std::int64_t{rect.bottom} - rect.top);
}

TextExtent ExtentOf(const TextCluster& cluster)
{
    return {std::min(cluster.leading, cluster.trailing),
            std::max(cluster.leading, cluster.trailing)};
}

} // namespace

TextLine::TextLine(Shape shape)
    : fShape(std::move(shape)),
      fMemorySize(sizeof *this + fShape.clusters.size() * sizeof(TextCluster) +
                  static_cast<std::size_t>(std::min(PixelsOf(fShape.inkBounds), kMostKept))),
      fInk(std::move(fShape.ink))
{
}

std::span<const TextCluster> TextLine::Clusters() const
{
    if (const auto mark = std::exchange(fShape.mark, nullptr))
        mark(fShape.clusters);
    return fShape.clusters;
}

// The index of the cluster that holds this byte, from the text's end on the number of clusters.
std::size_t TextLine::ClusterAt(std::size_t position) const
{
    const auto& clusters = fShape.clusters;
    if (position >= fShape.length)
        return clusters.size();
    const auto next = std::ranges::upper_bound(clusters, position, {}, &TextCluster::start);
    return static_cast<std::size_t>(std::max(next, clusters.begin() + 1) - clusters.begin()) - 1;
}

float TextLine::XOf(std::size_t position) const
{
    const std::size_t index = ClusterAt(position);
    if (index < fShape.clusters.size())
        return fShape.clusters[index].leading;
    return fShape.rightToLeft ? 0.0F : fShape.advance;
}

std::size_t TextLine::PositionAt(double x) const
{
    std::size_t best = fShape.length;
    double distance = std::abs(x - static_cast<double>(XOf(best)));
    for (const TextCluster& cluster : fShape.clusters)
        if (const double away = std::abs(x - static_cast<double>(cluster.leading));
            away < distance) {
            best = cluster.start;
            distance = away;
        }
    return best;
}

std::size_t TextLine::NextPosition(std::size_t position) const
{
    const std::size_t next = ClusterAt(position) + 1;
    return next < fShape.clusters.size() ? fShape.clusters[next].start : fShape.length;
}

std::size_t TextLine::PreviousPosition(std::size_t position) const
{
    const std::size_t index = ClusterAt(position);
    const bool isWithin = index < fShape.clusters.size() && fShape.clusters[index].start < position;
    if (isWithin)
        return fShape.clusters[index].start;
    return index > 0 ? fShape.clusters[index - 1].start : 0;
}

std::vector<TextExtent> TextLine::ExtentsOf(std::size_t from, std::size_t to) const
{
    std::vector<TextExtent> pieces;
    for (std::size_t i = ClusterAt(from); i < ClusterAt(to); ++i)
        pieces.push_back(ExtentOf(fShape.clusters[i]));
    std::ranges::sort(pieces, {}, &TextExtent::left);
    std::vector<TextExtent> joined;
    for (const TextExtent& piece : pieces)
        if (!joined.empty() && piece.left <= joined.back().right + 0.01F)
            joined.back().right = std::max(joined.back().right, piece.right);
        else
            joined.push_back(piece);
    return joined;
}

// The cluster that begins the next row: the last one of those from `first` on, but for itself, to
// `most` before which the text may be broken. A word that is too wide for a row breaks anywhere.
std::size_t TextLine::RowEnd(std::size_t first, std::size_t most) const
{
    const std::span<const TextCluster> clusters = Clusters();
    for (std::size_t i = most; i > first; --i)
        if (clusters[i].breakBefore)
            return i;
    return most;
}

std::size_t TextLine::FitRow(std::size_t from, double width) const
{
    const auto& clusters = fShape.clusters;
    const std::size_t first = ClusterAt(from);
    if (first == clusters.size())
        return 0;
    const std::size_t start = clusters[first].start;
    double used = 0.0;
    for (std::size_t i = first; i < clusters.size(); ++i) {
        const TextExtent extent = ExtentOf(clusters[i]);
        used += static_cast<double>(extent.right - extent.left);
        // Blanks may hang over the end of a row.
        if (i > first && !clusters[i].blank && used > width)
            return clusters[RowEnd(first, i)].start - start;
    }
    return fShape.length - start;
}

const PixelRect& TextLine::InkBounds() const
{
    if (const auto find = std::exchange(fShape.findInkBounds, nullptr))
        fShape.inkBounds = Union(find(), fShape.underline);
    return fShape.inkBounds;
}

void TextLine::Render(const PixelRect& area, std::vector<std::uint8_t>& coverage) const
{
    coverage.assign(static_cast<std::size_t>(PixelsOf(area)), 0);
    if (fInk != nullptr)
        fInk->Render(area, coverage);
    const PixelRect line = Intersect(fShape.underline, area);
    const std::ptrdiff_t rowBytes = area.right - area.left;
    for (std::int32_t y = line.top; y < line.bottom && !line.IsEmpty(); ++y)
        std::fill_n(coverage.begin() + (y - area.top) * rowBytes + (line.left - area.left),
                    line.right - line.left, std::uint8_t{255});
}

TextLine::Coverage TextLine::CoverageOf(const PixelRect& area) const
{
    const PixelRect& all = InkBounds();
    if (PixelsOf(all) > kMostKept) {
        static std::vector<std::uint8_t> piece;
        Render(area, piece);
        return {piece.data(), area.right - area.left};
    }
    if (fCoverage.empty()) {
        Render(all, fCoverage);
        fInk.reset();
    }
    const std::ptrdiff_t rowBytes = all.right - all.left;
    return {fCoverage.data() + (area.top - all.top) * rowBytes + (area.left - all.left), rowBytes};
}

} // namespace Platform
