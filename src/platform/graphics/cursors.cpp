#include "platform/graphics/cursors.h"

#include <algorithm>

namespace Platform {
namespace {

constexpr std::int32_t kLargestSide = 512;

bool IsPicture(std::size_t pixels, std::int32_t width, std::int32_t height)
{
    return width >= 1 && height >= 1 && width <= kLargestSide && height <= kLargestSide &&
           pixels >= static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
}

} // namespace

Cursor::Cursor(CursorShape shape) : fRecord(MakeRecord(shape)) {}

Cursor::Cursor(std::span<const std::uint32_t> pixels, std::int32_t width, std::int32_t height,
               PixelPoint hotSpot)
{
    if (IsPicture(pixels.size(), width, height))
        fRecord =
            MakeRecord(pixels, width, height,
                       {std::clamp(hotSpot.x, 0, width - 1), std::clamp(hotSpot.y, 0, height - 1)});
    if (fRecord == nullptr)
        fRecord = MakeRecord(CursorShape::kArrow);
}

} // namespace Platform
