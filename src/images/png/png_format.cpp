#include "images/png/png_format.h"

#include <cstddef>
#include <limits>

namespace Kesto {

namespace {

// Where the pixels of a pass lie in the image.
struct Lattice {
    std::int32_t x0, y0, dx, dy;
};
constexpr std::array<Lattice, 7> kAdam7{{{0, 0, 8, 8},
                                         {4, 0, 8, 8},
                                         {0, 4, 4, 8},
                                         {2, 0, 4, 4},
                                         {0, 2, 2, 4},
                                         {1, 0, 2, 2},
                                         {0, 1, 1, 2}}};

// How many of the points start, start + step, ... lie below `size`.
constexpr std::int64_t PointsBelow(std::int32_t size, std::int32_t start, std::int32_t step)
{
    return (std::int64_t{size} - start + step - 1) / step;
}

constexpr bool Fits(std::int64_t value)
{
    return value <= std::numeric_limits<std::int32_t>::max();
}

constexpr std::uint8_t ChannelsOf(PNGColor color)
{
    switch (color) {
    case PNGColor::kGrey:
    case PNGColor::kPalette:
        return 1;
    case PNGColor::kGreyAlpha:
        return 2;
    case PNGColor::kRGB:
        return 3;
    case PNGColor::kRGBA:
        return 4;
    }
    return 0;
}

} // namespace

bool PNGPass::SetSize(std::int64_t pixelsWide, std::int64_t pixelsHigh, std::int32_t pixelBits,
                      bool hasFilterByte)
{
    width = height = rowBytes = size = 0;
    if (pixelsWide < 1 || pixelsHigh < 1)
        return true;
    const std::int64_t row = (pixelsWide * pixelBits + 7) / 8 + (hasFilterByte ? 1 : 0);
    if (!Fits(row) || !Fits(row * pixelsHigh))
        return false;
    width = static_cast<std::int32_t>(pixelsWide);
    height = static_cast<std::int32_t>(pixelsHigh);
    rowBytes = static_cast<std::int32_t>(row);
    size = static_cast<std::int32_t>(row * pixelsHigh);
    return true;
}

void CPNGFormat::Reset()
{
    fWidth = fHeight = 0;
    fBitDepth = 0;
    fColorType = PNGColor::kGrey;
    fCompressionMethod = fFilterMethod = fInterlaceMethod = 0;
    fChannels = 0;
    fImage = {};
    for (std::size_t i = 0; i < kAdam7.size(); ++i)
        fPasses[i] = {0, 0, 0, 0, kAdam7[i].x0, kAdam7[i].y0, kAdam7[i].dx, kAdam7[i].dy};
    fTotalSize = 0;
    fPaletteRed.fill(0);
    fPaletteGreen.fill(0);
    fPaletteBlue.fill(0);
    fTransparencyCount = 0;
    fPaletteAlpha.fill(255);
    fTransparentRed = fTransparentGreen = fTransparentBlue = 0;
}

bool CPNGFormat::DeriveSizes()
{
    fChannels = ChannelsOf(fColorType);
    if (fWidth < 0 || fHeight < 0)
        return false;
    // Only samples of 8 bits get as far as a pixmap; any other depth has a failure of its own.
    const std::int64_t alignedRow =
        (std::int64_t{fWidth} + kPNGRowAlignment - 1) / kPNGRowAlignment * kPNGRowAlignment;
    if (fBitDepth == 8 && (!Fits(alignedRow) || !Fits(alignedRow * fHeight)))
        return false;
    if (!fImage.SetSize(fWidth, fHeight, PixelBits(), HasFilterBytes()))
        return false;
    std::int64_t total = fImage.size;
    if (IsInterlaced()) {
        total = 0;
        for (PNGPass& pass : fPasses) {
            if (!pass.SetSize(PointsBelow(fWidth, pass.x0, pass.dx),
                              PointsBelow(fHeight, pass.y0, pass.dy), PixelBits(),
                              HasFilterBytes()))
                return false;
            total += pass.size;
        }
    }
    fTotalSize = static_cast<std::int32_t>(total);
    return Fits(total);
}

std::span<const PNGPass> CPNGFormat::Passes() const
{
    return IsInterlaced() ? std::span<const PNGPass>(fPasses)
                          : std::span<const PNGPass>(&fImage, 1);
}

std::int32_t CPNGFormat::PlaneCount() const
{
    switch (fColorType) {
    case PNGColor::kGrey:
        return HasTransparency() ? 2 : 1;
    case PNGColor::kRGB:
    case PNGColor::kPalette:
        return HasTransparency() ? 4 : 3;
    case PNGColor::kGreyAlpha:
        return 2;
    case PNGColor::kRGBA:
        return 4;
    }
    return 0;
}

} // namespace Kesto
