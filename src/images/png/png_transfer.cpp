// The way from unfiltered rows to the planes of a pixmap.
#include "images/png/png_decoder.h"
#include "images/png/sample_rows.h"
#include "pixels/pixmaps/basic_pixmap.h"

#include <stdexcept>
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

SampleFormat CPNGDecoder::Samples() const
{
    SampleFormat format;
    format.channels = fChannels;
    format.planes = static_cast<std::size_t>(PlaneCount());
    format.isIndexed = fColorType == PNGColor::kPalette;
    format.key = {fTransparentRed, fTransparentGreen, fTransparentBlue};
    for (std::size_t i = 0; format.isIndexed && i < format.palette.size(); ++i)
        format.palette[i] = fPaletteRed[i] | std::uint32_t{fPaletteGreen[i]} << 8 |
                            std::uint32_t{fPaletteBlue[i]} << 16 |
                            std::uint32_t{fPaletteAlpha[i]} << 24;
    return format;
}

void CPNGDecoder::TransferTo(CBasicPixmap& pixmap, std::span<const std::uint8_t> data) const
{
    const SampleFormat format = Samples();
    if (fBitDepth != 8 || format.planes == 0 || fTotalSize == 0)
        return;
    CPixView view;
    pixmap.GetView(view);
    if (view.pixelBits != 8 || view.planeCount < PlaneCount() || view.width < fWidth ||
        view.height < fHeight)
        throw std::logic_error("Warning! (view.planeCount >= planeCount)");
    if (data.size() < static_cast<std::size_t>(fTotalSize))
        throw std::logic_error("Warning! (data.size() >= totalSize)");

    const std::uint8_t* row = data.data() + (HasFilterBytes() ? 1 : 0);
    std::vector<std::uint8_t> scratch( // for rows whose pixels lie apart in the planes
        IsInterlaced() ? format.planes * static_cast<std::size_t>(fWidth) : 0);
    for (const PNGPass& pass : Passes()) {
        const Route route = RouteOf(pass, fColorType, view.rowBytes);
        for (std::int32_t j = 0; j < pass.height; ++j, row += pass.rowBytes) {
            PlaneRows planes{};
            for (std::size_t c = 0; c < format.planes; ++c)
                planes[c] = view.planePointers[c] + route.start + j * route.rowStep;
            const std::size_t pixels = static_cast<std::size_t>(pass.width);
            if (route.pixelStep == 1)
                SplitRow(format, row, pixels, planes);
            else
                ScatterRow(format, row, pixels, planes, route.pixelStep, scratch.data());
        }
    }
}

} // namespace Kesto
