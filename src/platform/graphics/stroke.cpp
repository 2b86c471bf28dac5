#include "platform/graphics/stroke.h"

#include <algorithm>
#include <cmath>

namespace Platform {
namespace {

constexpr double kMiterLimit = 4.0;
constexpr double kTurnedBack = 1e-9;

struct Step {
    PathPoint from;
    PathPoint to;
    PathPoint direction; // of length 1
    double length;

    // From the middle of the stroke to its left side.
    PathPoint Side(double half) const { return {direction.y * half, -direction.x * half}; }
    Step Reversed() const { return {to, from, {-direction.x, -direction.y}, length}; }
};

PathPoint Sum(PathPoint a, PathPoint b)
{
    return {a.x + b.x, a.y + b.y};
}

std::vector<Step> StepsOf(const Path::Figure& figure)
{
    std::vector<Step> steps;
    const auto& points = figure.points;
    const std::size_t count = points.size();
    for (std::size_t i = 0; i + 1 < count + (figure.closed ? 1 : 0); ++i) {
        const PathPoint from = points[i];
        const PathPoint to = points[(i + 1) % count];
        const double length = std::hypot(to.x - from.x, to.y - from.y);
        if (length > 0)
            steps.push_back(
                {from, to, {(to.x - from.x) / length, (to.y - from.y) / length}, length});
    }
    return steps;
}

// Where the left sides of two steps meet: in one point where that is near enough, else (on the
// outside) over the cut-off corner, or (on the inside) through the middle, which leaves a loop
// within the stroke.
void AddCorner(std::vector<PathPoint>& outline, const Step& a, const Step& b, double half)
{
    const PathPoint corner = a.to;
    const double cosine = a.direction.x * b.direction.x + a.direction.y * b.direction.y;
    const bool isInside = a.direction.x * b.direction.y - a.direction.y * b.direction.x < 0;
    const PathPoint sides = Sum(a.Side(half), b.Side(half));
    const double shrink = 1 + cosine; // 2 times the squared cosine of half the turn
    const double reach = std::min(a.length, b.length);
    const bool meet =
        shrink > kTurnedBack && (isInside ? half * half * (1 - cosine) <= shrink * reach * reach
                                          : shrink * kMiterLimit * kMiterLimit >= 2);
    if (meet) {
        outline.push_back(Sum(corner, {sides.x / shrink, sides.y / shrink}));
        return;
    }
    outline.push_back(Sum(corner, a.Side(half)));
    if (isInside)
        outline.push_back(corner);
    outline.push_back(Sum(corner, b.Side(half)));
}

void AddLeftSide(std::vector<PathPoint>& outline, const std::vector<Step>& steps, bool closed,
                 double half)
{
    if (!closed)
        outline.push_back(Sum(steps.front().from, steps.front().Side(half)));
    for (std::size_t i = 0; i + 1 < steps.size(); ++i)
        AddCorner(outline, steps[i], steps[i + 1], half);
    if (closed)
        AddCorner(outline, steps.back(), steps.front(), half);
    else
        outline.push_back(Sum(steps.back().to, steps.back().Side(half)));
}

} // namespace

void AddStroke(Rasterizer& rasterizer, const Path::Figure& figure, double width)
{
    std::vector<Step> steps = StepsOf(figure);
    if (steps.empty())
        return;
    std::vector<PathPoint> outline;
    AddLeftSide(outline, steps, figure.closed, width / 2);
    if (figure.closed) {
        rasterizer.AddFigure(outline);
        outline.clear();
    }
    std::ranges::reverse(steps);
    std::ranges::transform(steps, steps.begin(), &Step::Reversed);
    AddLeftSide(outline, steps, figure.closed, width / 2);
    rasterizer.AddFigure(outline);
}

} // namespace Platform
