#include "platform/graphics/cursors.h"

#include "platform/graphics/bitmap.h"
#include "platform/graphics/win32/cursor_record.h"

#include <algorithm>
#include <cstring>
#include <vector>

namespace Platform {
namespace {

LPCWSTR NameOf(CursorShape shape)
{
    switch (shape) {
    case CursorShape::kText:
        return IDC_IBEAM;
    case CursorShape::kCross:
        return IDC_CROSS;
    case CursorShape::kHand:
        return IDC_HAND;
    case CursorShape::kWait:
        return IDC_WAIT;
    case CursorShape::kArrowWait:
        return IDC_APPSTARTING;
    case CursorShape::kNotAllowed:
        return IDC_NO;
    case CursorShape::kHelp:
        return IDC_HELP;
    case CursorShape::kSizeLeftRight:
        return IDC_SIZEWE;
    case CursorShape::kSizeUpDown:
        return IDC_SIZENS;
    case CursorShape::kSizeFalling:
        return IDC_SIZENWSE;
    case CursorShape::kSizeRising:
        return IDC_SIZENESW;
    case CursorShape::kSizeAll:
        return IDC_SIZEALL;
    case CursorShape::kArrow:
    case CursorShape::kHidden:
        break;
    }
    return IDC_ARROW;
}

// The system wants colours that are not multiplied by alpha, and a mask that it then ignores.
std::uint32_t Unmultiplied(std::uint32_t pixel)
{
    const std::uint32_t alpha = pixel >> 24;
    std::uint32_t result = alpha << 24;
    for (const unsigned shift : {0U, 8U, 16U})
        if (alpha != 0)
            result |= std::min(255U, (((pixel >> shift) & 0xFF) * 255 + alpha / 2) / alpha)
                      << shift;
    return result;
}

HCURSOR MakeCursor(std::span<const std::uint32_t> pixels, std::int32_t width, std::int32_t height,
                   PixelPoint hotSpot)
{
    Bitmap colours;
    if (!colours.Make(width, height, 32, false))
        return nullptr;
    for (std::int32_t y = 0; y < height; ++y)
        for (std::int32_t x = 0; x < width; ++x) {
            const std::uint32_t pixel =
                Unmultiplied(pixels[std::size_t(y) * std::size_t(width) + std::size_t(x)]);
            std::memcpy(colours.Bits() + y * colours.RowBytes() + x * 4, &pixel, sizeof pixel);
        }
    // The alpha of the pixels says what is seen; a mask must be there all the same, and its rows
    // are whole 16-bit words.
    const std::vector<std::uint8_t> none(static_cast<std::size_t>((width + 15) / 16 * 2 * height));
    const HBITMAP mask = CreateBitmap(width, height, 1, 1, none.data());
    ICONINFO plan{FALSE, static_cast<DWORD>(hotSpot.x), static_cast<DWORD>(hotSpot.y), mask,
                  reinterpret_cast<HBITMAP>(colours.Native())};
    const HCURSOR cursor = CreateIconIndirect(&plan);
    DeleteObject(mask);
    return cursor;
}

} // namespace

std::shared_ptr<const Cursor::Record> Cursor::MakeRecord(CursorShape shape)
{
    const HCURSOR cursor =
        shape == CursorShape::kHidden ? nullptr : LoadCursorW(nullptr, NameOf(shape));
    return std::make_shared<const Record>(cursor, false);
}

std::shared_ptr<const Cursor::Record> Cursor::MakeRecord(std::span<const std::uint32_t> pixels,
                                                         std::int32_t width, std::int32_t height,
                                                         PixelPoint hotSpot)
{
    const HCURSOR cursor = MakeCursor(pixels, width, height, hotSpot);
    return cursor != nullptr ? std::make_shared<const Record>(cursor, true) : nullptr;
}

} // namespace Platform
