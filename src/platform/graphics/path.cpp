#include "platform/graphics/path.h"

#include <algorithm>
#include <cmath>

namespace Platform {
namespace {

constexpr double kTolerance = 0.02; // pixels
constexpr double kMostPieces = 512;
constexpr double kFarthest = 1e9;

// How far a quarter's control points lie from its ends, for a radius of 1.
constexpr double kQuarter = 0.5522847498307936;

bool IsFinite(PathPoint point)
{
    return std::isfinite(point.x) && std::isfinite(point.y);
}

// The length of a - 2 b + c, which bounds how much a curve bends.
double Bend(PathPoint a, PathPoint b, PathPoint c)
{
    return std::hypot(a.x - 2 * b.x + c.x, a.y - 2 * b.y + c.y);
}

double Mix(double a, double b, double c, double d, double t)
{
    const double s = 1 - t;
    return s * s * s * a + 3 * s * s * t * b + 3 * s * t * t * c + t * t * t * d;
}

// A line between two points of a cubic strays from it by an eighth of the second derivative times
// the square of the step at most.
int PiecesOf(PathPoint a, PathPoint b, PathPoint c, PathPoint d)
{
    const double second = 6 * std::max(Bend(a, b, c), Bend(b, c, d));
    return static_cast<int>(
        std::clamp(std::ceil(std::sqrt(second / (8 * kTolerance))), 1.0, kMostPieces));
}

bool IsEmpty(const PathRect& rect)
{
    return !(rect.left < rect.right && rect.top < rect.bottom);
}

} // namespace

Path::Figure& Path::Begin()
{
    if (fCount == fFigures.size())
        fFigures.emplace_back();
    Figure& figure = fFigures[fCount++];
    figure.points.clear();
    figure.closed = false;
    return figure;
}

// The figure that is being drawn; after a closed one a new one begins where that began.
Path::Figure& Path::Current()
{
    if (fCount == 0)
        return Begin();
    if (!fFigures[fCount - 1].closed)
        return fFigures[fCount - 1];
    const PathPoint start = fFigures[fCount - 1].points.front();
    Figure& figure = Begin();
    figure.points.push_back(start);
    return figure;
}

void Path::Add(PathPoint point)
{
    Current().points.push_back(
        {std::clamp(point.x, -kFarthest, kFarthest), std::clamp(point.y, -kFarthest, kFarthest)});
}

void Path::MoveTo(PathPoint point)
{
    if (!IsFinite(point))
        return;
    Begin();
    Add(point);
}

void Path::LineTo(PathPoint point)
{
    if (IsFinite(point))
        Add(point);
}

void Path::CurveTo(PathPoint control1, PathPoint control2, PathPoint end)
{
    if (!IsFinite(control1) || !IsFinite(control2) || !IsFinite(end))
        return;
    if (Current().points.empty())
        Add(end);
    const PathPoint start = Current().points.back();
    const int pieces = PiecesOf(start, control1, control2, end);
    for (int i = 1; i < pieces; ++i) {
        const double t = static_cast<double>(i) / pieces;
        Add({Mix(start.x, control1.x, control2.x, end.x, t),
             Mix(start.y, control1.y, control2.y, end.y, t)});
    }
    Add(end);
}

void Path::Close()
{
    if (fCount > 0 && !fFigures[fCount - 1].points.empty())
        fFigures[fCount - 1].closed = true;
}

void Path::AddRectangle(const PathRect& rect)
{
    AddRoundedRectangle(rect, 0, 0);
}

void Path::AddOval(const PathRect& rect)
{
    AddRoundedRectangle(rect, rect.right - rect.left, rect.bottom - rect.top);
}

void Path::AddRoundedRectangle(const PathRect& rect, double radiusX, double radiusY)
{
    const auto [left, top, right, bottom] = rect;
    if (IsEmpty(rect) || !IsFinite({left, top}) || !IsFinite({right, bottom}))
        return;
    if (!(radiusX > 0 && radiusY > 0))
        radiusX = radiusY = 0;
    // Halves are taken first: the difference of two huge numbers would overflow.
    const double x = std::min(radiusX, right / 2 - left / 2);
    const double y = std::min(radiusY, bottom / 2 - top / 2);
    const double bendX = x * (1 - kQuarter);
    const double bendY = y * (1 - kQuarter);

    MoveTo({left + x, top});
    LineTo({right - x, top});
    if (x > 0)
        CurveTo({right - bendX, top}, {right, top + bendY}, {right, top + y});
    LineTo({right, bottom - y});
    if (x > 0)
        CurveTo({right, bottom - bendY}, {right - bendX, bottom}, {right - x, bottom});
    LineTo({left + x, bottom});
    if (x > 0)
        CurveTo({left + bendX, bottom}, {left, bottom - bendY}, {left, bottom - y});
    LineTo({left, top + y});
    if (x > 0)
        CurveTo({left, top + bendY}, {left + bendX, top}, {left + x, top});
    Close();
}

} // namespace Platform
