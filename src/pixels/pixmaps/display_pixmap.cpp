#include "pixels/pixmaps/display_pixmap.h"

#include "foundation/errors/system_checks.h"
#include "pixels/pixmaps/display_view.h"
#include "pixels/pixmaps/pixel_size.h"
#include "pixels/pixmaps/pixmap_port.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace Kesto {
namespace {

constexpr std::int32_t kPlanes = 1;
constexpr std::int32_t kRowAlignment = 4;
constexpr std::int32_t kMostPaletteBits = 8;
constexpr std::int32_t kOffScreenBits = 32;

} // namespace

CDisplayPixmap::CDisplayPixmap(CPixmapPort& port, std::int32_t width, std::int32_t height)
    : CBasicPixmap(port.GetScreenDepth(), 0, 0, width, height, kPlanes, kRowAlignment),
      fPort(&port), fBitmap(MakeBitmap())
{
    Announce();
}

CDisplayPixmap::CDisplayPixmap(std::int32_t width, std::int32_t height)
    : CBasicPixmap(kOffScreenBits, 0, 0, width, height, kPlanes, kRowAlignment), fPort(nullptr),
      fBitmap(MakeBitmap())
{
}

CDisplayPixmap::CDisplayPixmap(const CDisplayPixmap& other)
    : CBasicPixmap(other), fPort(other.fPort),
      fBitmap(other.GetBaseAddress() != nullptr ? MakeBitmap() : Platform::Bitmap())
{
    CopyBits(other);
}

CDisplayPixmap& CDisplayPixmap::operator=(const CDisplayPixmap& other)
{
    if (this == &other)
        return *this;
    CDisplayPixmap copy(other);
    const bool wasAnnounced = fAnnounced;
    Withdraw();
    CBasicPixmap::operator=(copy);
    fBitmap = std::move(copy.fBitmap);
    if (wasAnnounced)
        Announce();
    return *this;
}

CDisplayPixmap::~CDisplayPixmap()
{
    Withdraw();
}

Platform::Bitmap CDisplayPixmap::MakeBitmap() const
{
    Platform::Bitmap bitmap;
    if (!bitmap.Make(std::max(GetWidth(), 1), std::max(GetHeight(), 1), GetPixelBits(),
                     GetPixelBits() <= kMostPaletteBits))
        OSThrowLastNull(nullptr);
    return bitmap;
}

void CDisplayPixmap::CopyBits(const CDisplayPixmap& other)
{
    const std::int64_t bytes = std::int64_t{GetRowBytes()} * GetHeight();
    if (GetBaseAddress() == nullptr || bytes <= 0)
        return;
    const CBitmapAccess from(other.fBitmap, false);
    const CBitmapAccess to(fBitmap, true);
    std::memcpy(GetBaseAddress(), other.GetBaseAddress(), static_cast<std::size_t>(bytes));
}

void CDisplayPixmap::Announce()
{
    fAnnounced = true;
    fPort->PixmapChanged(this);
}

void CDisplayPixmap::Withdraw()
{
    if (std::exchange(fAnnounced, false))
        fPort->PixmapChanged(nullptr);
}

void CDisplayPixmap::SetSize(std::int32_t width, std::int32_t height)
{
    const PixelPoint old = GetSize();
    if (PixelPoint{width, height} == old)
        return;
    CBasicPixmap::SetSize(width, height);
    if (GetBaseAddress() == nullptr)
        return;
    Platform::Bitmap bitmap; // beside the old one, which stays after a failure
    try {
        bitmap = MakeBitmap();
    } catch (...) {
        CBasicPixmap::SetSize(old.x, old.y);
        throw;
    }
    const bool wasAnnounced = fAnnounced;
    Withdraw();
    fBitmap = std::move(bitmap);
    if (wasAnnounced)
        Announce();
}

void CDisplayPixmap::SetPort(CPixmapPort* port)
{
    if (port == fPort)
        return;
    Withdraw();
    fBitmap.Release();
    fPort = nullptr;
    if (port == nullptr)
        return;
    SetPixelBits(port->GetScreenDepth());
    fBitmap = MakeBitmap();
    fPort = port;
    Announce();
}

std::int32_t CDisplayPixmap::GetBitsSize() const
{
    return GetBaseAddress() != nullptr ? Multiply32(GetRowBytes(), std::max(GetHeight(), 1)) : 0;
}

} // namespace Kesto
