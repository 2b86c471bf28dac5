#include "images/png/row_writer.h"

#include "pixels/pixmaps/basic_pixmap.h"

#include <cstddef>
#include <vector>

namespace Kesto {

namespace {

// Where the pixels of a pass are put in each plane, in bytes from the plane's first pixel.
struct Route {
    std::ptrdiff_t start;
    std::ptrdiff_t rowStep;
    std::size_t pixelStep;
};

// Interlaced RGBA is different, and stays so since pictures may count on it: the pixels of a row
// are put side by side whatever dx says, and each further row begins (dx - 1) * width bytes to the
// left of its place.
Route RouteOf(const PNGPass& pass, PNGColor color, std::ptrdiff_t rowBytes)
{
    Route route{pass.y0 * rowBytes + pass.x0, pass.dy * rowBytes,
                static_cast<std::size_t>(pass.dx)};
    if (color == PNGColor::kRGBA) {
        route.rowStep -= (pass.dx - 1) * std::ptrdiff_t{pass.width};
        route.pixelStep = 1;
    }
    return route;
}

// Splits a row whose pixels don't lie side by side in the planes, by way of `scratch`, planes *
// pixels bytes.
void ScatterRow(const SampleFormat& format, const std::uint8_t* samples, std::size_t pixels,
                const PlaneRows& planes, std::size_t pixelStep, std::uint8_t* scratch)
{
    PlaneRows packed{};
    for (std::size_t c = 0; c < format.planes; ++c)
        packed[c] = scratch + c * pixels;
    SplitRow(format, samples, pixels, packed);
    for (std::size_t c = 0; c < format.planes; ++c)
        for (std::size_t i = 0; i < pixels; ++i)
            planes[c][i * pixelStep] = packed[c][i];
}

} // namespace

PNGRowWriter::PNGRowWriter(CBasicPixmap& pixmap, const SampleFormat& format, PNGColor color,
                           bool hasFilterBytes)
    : fFormat(format), fColor(color), fSkip(hasFilterBytes ? 1 : 0)
{
    pixmap.GetView(fView);
}

void PNGRowWriter::Put(const PNGPass& pass, std::int32_t first, std::int32_t rows,
                       const std::uint8_t* data) const
{
    const Route route = RouteOf(pass, fColor, fView.rowBytes);
    const auto pixels = static_cast<std::size_t>(pass.width);
    std::vector<std::uint8_t> scratch(route.pixelStep == 1 ? 0 : fFormat.planes * pixels);
    const std::uint8_t* row = data + fSkip;
    for (std::int32_t y = first; y < first + rows; ++y, row += pass.rowBytes) {
        PlaneRows planes{};
        for (std::size_t c = 0; c < fFormat.planes; ++c)
            planes[c] = fView.planePointers[c] + route.start + y * route.rowStep;
        if (route.pixelStep == 1)
            SplitRow(fFormat, row, pixels, planes);
        else
            ScatterRow(fFormat, row, pixels, planes, route.pixelStep, scratch.data());
    }
}

} // namespace Kesto
