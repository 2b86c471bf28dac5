#include "platform/graphics/bitmap.h"

#include <array>
#include <windows.h>

namespace Platform {
namespace {

constexpr LONG kPixelsPerMetre = 2835;

struct Header {
    BITMAPINFOHEADER fInfo{};
    std::array<WORD, 256> fPalette{}; // indices, where the bitmap has any
};

Header MakeHeader(std::int32_t width, std::int32_t height, std::int32_t pixelBits)
{
    Header header;
    header.fInfo.biSize = sizeof header.fInfo;
    header.fInfo.biWidth = width;
    header.fInfo.biHeight = -height; // the top row comes first
    header.fInfo.biPlanes = 1;
    header.fInfo.biBitCount = static_cast<WORD>(pixelBits);
    header.fInfo.biCompression = BI_RGB;
    header.fInfo.biXPelsPerMeter = kPixelsPerMetre;
    header.fInfo.biYPelsPerMeter = kPixelsPerMetre;
    for (std::size_t i = 0; i < header.fPalette.size(); ++i)
        header.fPalette[i] = static_cast<WORD>(i);
    return header;
}

// DIB_PAL_COLORS needs a device whose palette the indices mean.
class ScreenDevice {
public:
    ScreenDevice() : fDevice(GetDC(nullptr)) {}
    ~ScreenDevice() { ReleaseDC(nullptr, fDevice); }
    ScreenDevice(const ScreenDevice&) = delete;
    ScreenDevice& operator=(const ScreenDevice&) = delete;

    HDC Get() const { return fDevice; }

private:
    HDC fDevice;
};

} // namespace

bool Bitmap::Make(std::int32_t width, std::int32_t height, std::int32_t pixelBits,
                  bool paletteIndices)
{
    static_assert(sizeof(BITMAPINFOHEADER) == 40);
    Release();
    const Header header = MakeHeader(width, height, pixelBits);
    const ScreenDevice device;
    void* bits = nullptr;
    // The call may fail without setting an error; one from before would be told in its place.
    SetLastError(0);
    const HBITMAP bitmap =
        CreateDIBSection(device.Get(), reinterpret_cast<const BITMAPINFO*>(&header),
                         paletteIndices ? DIB_PAL_COLORS : DIB_RGB_COLORS, &bits, nullptr, 0);
    if (bitmap == nullptr)
        return false;
    fNative = reinterpret_cast<std::intptr_t>(bitmap);
    fBits = static_cast<std::uint8_t*>(bits);
    fSize = {width, height, pixelBits, (std::ptrdiff_t{width} * pixelBits + 31) / 32 * 4};
    return true;
}

void Bitmap::Release()
{
    if (fNative != 0)
        DeleteObject(reinterpret_cast<HBITMAP>(fNative));
    fNative = 0;
    fBits = nullptr;
    fSize = {};
}

void Bitmap::BeginWriting() const
{
    GdiFlush();
}

void Bitmap::EndWriting() const {}

} // namespace Platform
