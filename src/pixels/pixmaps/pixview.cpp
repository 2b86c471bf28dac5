#include "pixels/pixmaps/pixview.h"

#include <algorithm>
#include <utility>

namespace Kesto {
namespace {

constexpr std::int32_t kPlanesPerGroup = 4;

std::int32_t GroupsFor(std::int32_t planes)
{
    return planes / kPlanesPerGroup + (planes % kPlanesPerGroup != 0);
}

} // namespace

CPixView::CPixView(const CPixView& other)
    : bitOffset(other.bitOffset), x(other.x), y(other.y), width(other.width), height(other.height),
      rowBytes(other.rowBytes), pixelBits(other.pixelBits)
{
    SetPlanes(other.firstPlane, other.planeCount);
    std::copy_n(other.planePointers.get(), planeCount, planePointers.get());
}

CPixView& CPixView::operator=(CPixView other) noexcept
{
    std::swap(planePointers, other.planePointers);
    bitOffset = other.bitOffset;
    x = other.x;
    y = other.y;
    width = other.width;
    height = other.height;
    firstPlane = other.firstPlane;
    planeCount = other.planeCount;
    rowBytes = other.rowBytes;
    pixelBits = other.pixelBits;
    return *this;
}

void CPixView::SetPlanes(std::int32_t first, std::int32_t count)
{
    count = std::max(count, 0);
    const std::int32_t groups = GroupsFor(count);
    if (groups != GroupsFor(planeCount)) {
        const auto room = static_cast<std::size_t>(groups) * kPlanesPerGroup;
        planePointers = groups != 0 ? std::make_unique<std::uint8_t*[]>(room) : nullptr;
    }
    firstPlane = first;
    planeCount = count;
    std::fill_n(planePointers.get(), count, nullptr);
}

void CPixView::Reset()
{
    *this = CPixView();
}

void CPixView::MoveTo(const PixelRect& rect)
{
    const std::int64_t bitPosition = bitOffset + (std::int64_t{rect.left} - x) * pixelBits;
    std::int64_t byteDelta = bitPosition / 8 + (std::int64_t{rect.top} - y) * rowBytes;
    bitOffset = static_cast<std::int32_t>(bitPosition % 8);
    if (bitOffset < 0) {
        bitOffset += 8;
        --byteDelta;
    }
    x = rect.left;
    y = rect.top;
    width = rect.right - rect.left;
    height = rect.bottom - rect.top;
    for (std::int32_t i = 0; i < planeCount; ++i)
        if (planePointers[i] != nullptr) // there are no pixels in a pixmap without storage
            planePointers[i] += byteDelta;
}

} // namespace Kesto
