// What bench_drawing measures itself against: Qt's raster painter, and Cairo with Pango, each on a
// surface of its own of the same size.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace Bench {

// Premultiplied pixels, blue lowest.
struct Picture {
    std::int32_t side = 0;
    std::vector<std::uint32_t> pixels;
};

// A surface of 1,000 x 1,000 units; coordinates are units.
class Peer {
public:
    virtual ~Peer() = default;

    virtual void FillRect(double x, double y, double width, double height) = 0;
    virtual void RoundedRect(double x, double y, double width, double height, double radius) = 0;
    virtual void Text(double x, double baseLine, const std::string& text) = 0;
    // One to one at x, y in pixels.
    virtual void Icon(double x, double y) = 0;
    // Stretched to a square from the corner, smoothly.
    virtual void Stretched(double side) = 0;
};

// Pictures stay the caller's.
std::unique_ptr<Peer> MakeQt(double scale, const Picture& icon, const Picture& large);
std::unique_ptr<Peer> MakeCairo(double scale, const Picture& icon, const Picture& large);

} // namespace Bench
