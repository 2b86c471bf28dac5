#include "pixels/tiles/tile_grid.h"

#include "pixels/pixmaps/pixel_size.h"
#include "pixels/tiles/virtual_tile.h"

#include <stdexcept>

namespace Kesto {
namespace {

constexpr std::uint8_t kSquareCode = 0x80;
constexpr std::uint8_t kMostSquare = 4;
constexpr std::uint8_t kMostDepth = 5;

std::uint8_t ClassOf(std::uint8_t depthLog2, std::uint8_t sizeCode)
{
    if (depthLog2 > kMostDepth)
        throw std::logic_error("Warning! (depthLog2 <= kMostDepth)");
    if ((sizeCode & kSquareCode) == 0) {
        if (sizeCode >= kTileClassCount)
            throw std::logic_error("Warning! (sizeCode < kTileClassCount)");
        return sizeCode;
    }
    const int square = sizeCode & ~kSquareCode;
    if (square > kMostSquare)
        throw std::logic_error("Warning! (square <= kMostSquare)");
    return static_cast<std::uint8_t>(2 * square + 1 + depthLog2);
}

std::int32_t TilesFor(std::int32_t pixels, std::int32_t tilePixels)
{
    if (pixels < 0)
        throw std::length_error("A pixmap's size is negative");
    return pixels / tilePixels + (pixels % tilePixels != 0);
}

} // namespace

TileShape TileShape::FromCode(std::uint8_t depthLog2, std::uint8_t sizeCode)
{
    const std::uint8_t sizeClass = ClassOf(depthLog2, sizeCode);
    const int pixelsLog2 = 11 + sizeClass - depthLog2;
    return {sizeClass, 1 << ((pixelsLog2 + 1) / 2), 1 << (pixelsLog2 / 2)};
}

TileGrid::TileGrid(const TileShape& shape, std::int32_t width, std::int32_t height,
                   std::int32_t planes, bool interleaved)
    : fTilesAcross(TilesFor(width, shape.fWidth)), fTilesDown(TilesFor(height, shape.fHeight))
{
    if (planes < 0)
        throw std::length_error("A pixmap's size is negative");
    const std::int32_t tilesOfPlane = Multiply32(fTilesAcross, fTilesDown);
    fCount = static_cast<std::uint32_t>(Multiply32(tilesOfPlane, planes));
    fColumnStride = interleaved ? planes : 1;
    fRowStride = Multiply32(fTilesAcross, fColumnStride);
    fPlaneStride = interleaved ? 1 : tilesOfPlane;
}

} // namespace Kesto
