#include "pixels/pixmaps/pixmap.h"

#include "pixels/operations/pixel_fill.h"
#include "pixels/pixmaps/pixel_size.h"

#include <algorithm>
#include <vector>

namespace Kesto {

Point CPixmap::GetOrigin() const
{
    Point origin;
    GetOrigin(origin);
    return origin;
}

Rect CPixmap::GetBounds() const
{
    Rect bounds;
    GetBounds(bounds);
    return bounds;
}

void CPixmap::SetBounds(const Rect& bounds)
{
    SetSize(ToInt32(std::int64_t{bounds.right} - bounds.left),
            ToInt32(std::int64_t{bounds.bottom} - bounds.top));
    SetOrigin(bounds.left, bounds.top);
}

Point CPixmap::GetSize() const
{
    Point size;
    GetSize(size);
    return size;
}

void CPixmap::SetSize(const Point& size)
{
    SetSize(size.x, size.y);
}

void CPixmap::Clear()
{
    SetSize(0, 0);
    SetOrigin(0, 0);
}

void CPixmap::Erase()
{
    const std::int32_t bits = GetPixelBits();
    if (bits != 8 && bits != 16 && bits != 32 && bits != 64)
        return;
    const std::int64_t planes = std::max(GetPlaneCount(), 0);
    const std::vector<std::uint8_t> zeros(static_cast<std::size_t>(planes * (bits / 8)));
    Fill(*this, GetBounds(), zeros.data(), 0, -1);
}

} // namespace Kesto
