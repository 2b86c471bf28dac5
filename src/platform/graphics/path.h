// An outline of lines and curves, for Canvas to fill or stroke.
//
// Coordinates are device pixels, fractions included: 0, 0 is the outer corner of the first pixel,
// so that a rectangle from 0, 0 to 1, 1 covers exactly that pixel. Points that are not numbers are
// left out; those more than a thousand million pixels away are drawn to there.
#pragma once

#include <span>
#include <vector>

namespace Platform {

struct PathPoint {
    double x = 0.0;
    double y = 0.0;

    friend bool operator==(const PathPoint&, const PathPoint&) = default;
};

struct PathRect {
    double left = 0.0;
    double top = 0.0;
    double right = 0.0;
    double bottom = 0.0;
};

class Path {
public:
    // A line of points in order; a closed one joins its last point to its first.
    struct Figure {
        std::vector<PathPoint> points;
        bool closed = false;
    };

    // Begins a figure. A line without one begins it at its own end.
    void MoveTo(PathPoint point);
    void LineTo(PathPoint point);
    // A cubic curve, kept as lines that stray from it by less than a fiftieth of a pixel.
    void CurveTo(PathPoint control1, PathPoint control2, PathPoint end);
    void Close();

    // Closed figures, clockwise. An empty or inverted rectangle adds nothing. Radii are cut to half
    // of the width and the height; at 0 or below the corner is square.
    void AddRectangle(const PathRect& rect);
    void AddOval(const PathRect& rect);
    void AddRoundedRectangle(const PathRect& rect, double radiusX, double radiusY);

    // Forgets the figures and keeps their memory.
    void Clear() { fCount = 0; }
    std::span<const Figure> Figures() const { return {fFigures.data(), fCount}; }

private:
    Figure& Begin();
    Figure& Current();
    void Add(PathPoint point);

    std::vector<Figure> fFigures; // the first fCount are in use
    std::size_t fCount = 0;
};

} // namespace Platform
