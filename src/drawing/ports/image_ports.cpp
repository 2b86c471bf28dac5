// The ports that draw on what is not the screen.
#include "drawing/ports/image.h"
#include "drawing/ports/radio_port.h"

namespace Kesto {

void CImagePort::SetPixmap(CDisplayPixmap* pixmap)
{
    if (fPixmap != nullptr)
        PixmapLeaving(*fPixmap);
    fPixmap = pixmap;
    const bool drawable = pixmap != nullptr && pixmap->GetPixelBits() == GetScreenDepth() &&
                          pixmap->GetBaseAddress() != nullptr;
    SetSurface(drawable ? &pixmap->GetBitmap() : nullptr, GetSize());
    if (fPixmap != nullptr)
        PixmapAttached(*fPixmap);
}

PixelPoint CImagePort::GetSize() const
{
    return fPixmap != nullptr ? fPixmap->GetSize() : PixelPoint{};
}

void CImagePort::PixmapAttached(CDisplayPixmap&) {}

void CImagePort::PixmapLeaving(CDisplayPixmap&) {}

CImage::CImage(std::int32_t width, std::int32_t height) : fDisplay(*this, width, height)
{
    fDisplay.Erase();
}

CImage::~CImage() = default;

void CImage::Resize(std::int32_t width, std::int32_t height)
{
    fDisplay.SetSize(width, height);
}

void CRadioPort::Tune(const CSystemPort* station)
{
    SetSurface(station != nullptr ? station->GetSurface() : nullptr,
               station != nullptr ? station->GetSurfaceSize() : PixelPoint{});
    if (station == nullptr)
        return;
    SetScaleFactor(station->GetScaleFactor());
    SetDeviceClip(station->GetDeviceClip());
}

} // namespace Kesto
