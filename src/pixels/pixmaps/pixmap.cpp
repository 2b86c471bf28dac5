#include "pixels/pixmaps/pixmap.h"

#include "pixels/pixmaps/pixel_size.h"

namespace Kesto {

PixelPoint CPixmap::GetOrigin() const
{
    PixelPoint origin;
    GetOrigin(origin);
    return origin;
}

PixelRect CPixmap::GetBounds() const
{
    PixelRect bounds;
    GetBounds(bounds);
    return bounds;
}

void CPixmap::SetBounds(const PixelRect& bounds)
{
    SetSize(ToInt32(std::int64_t{bounds.right} - bounds.left),
            ToInt32(std::int64_t{bounds.bottom} - bounds.top));
    SetOrigin(bounds.left, bounds.top);
}

PixelPoint CPixmap::GetSize() const
{
    PixelPoint size;
    GetSize(size);
    return size;
}

void CPixmap::SetSize(const PixelPoint& size)
{
    SetSize(size.x, size.y);
}

void CPixmap::Clear()
{
    SetSize(0, 0);
    SetOrigin(0, 0);
}

} // namespace Kesto
