#include "platform/windows/win32/edit_picture.h"

#include "platform/graphics/blend.h"
#include "platform/windows/win32/device.h"

#include <algorithm>
#include <cstdlib>

namespace Platform {
namespace {

// A colour of the system as a bitmap has it, without alpha.
std::uint32_t PixelOf(COLORREF colour)
{
    return GetRValue(colour) << 16 | GetGValue(colour) << 8 | GetBValue(colour);
}

// How far a pixel has gone from one colour to another, by the channel in which these differ most.
class Way {
public:
    Way(COLORREF from, COLORREF to)
    {
        for (const int shift : {0, 8, 16}) {
            const int first = Channel(PixelOf(from), shift);
            const int length = Channel(PixelOf(to), shift) - first;
            if (std::abs(length) > std::abs(fLength))
                fShift = shift, fFirst = first, fLength = length;
        }
    }

    // 0 to 255.
    std::uint32_t PartAt(std::uint32_t pixel) const
    {
        if (fLength == 0)
            return 0;
        return static_cast<std::uint32_t>(
            std::clamp((Channel(pixel, fShift) - fFirst) * 255 / fLength, 0, 255));
    }

private:
    static int Channel(std::uint32_t pixel, int shift)
    {
        return static_cast<int>(pixel >> shift & 0xFF);
    }

    int fShift = 0;
    int fFirst = 0;
    int fLength = 0;
};

bool Draw(Bitmap& bitmap, PixelPoint size, const EditDrawer& draw, COLORREF text, COLORREF ground)
{
    if (!bitmap.Make(size.x, size.y, 32, false))
        return false;
    const MemoryDevice device(bitmap);
    draw(device.Get(), text, ground);
    bitmap.BeginWriting();
    return true;
}

std::uint32_t* RowOf(const Bitmap& bitmap, std::int32_t y)
{
    return reinterpret_cast<std::uint32_t*>(bitmap.Bits() + y * bitmap.RowBytes());
}

struct Ink {
    std::uint32_t text;
    std::uint32_t ground;
    Way way; // of the system's pixels, from its ground to its text

    std::uint32_t Over(std::uint32_t pixel) const
    {
        return PixelOver(ScalePixel(text, way.PartAt(pixel)), ground);
    }
};

} // namespace

bool MakeEditPicture(Bitmap& picture, PixelPoint size, const EditLook& look, bool hasSelection,
                     const EditDrawer& draw)
{
    constexpr COLORREF kWhite = RGB(255, 255, 255);
    constexpr COLORREF kBlack = RGB(0, 0, 0);
    constexpr std::uint32_t kColours = 0xFFFFFF;
    const COLORREF highlight = GetSysColor(COLOR_HIGHLIGHT);
    const COLORREF elsewhere = ~highlight & kColours;
    Bitmap marks;
    if (!Draw(picture, size, draw, kWhite, kBlack) ||
        (hasSelection && !Draw(marks, size, draw, elsewhere, elsewhere)))
        return false;
    const Ink plain{PremultipliedPixel(look.text), PremultipliedPixel(look.ground),
                    Way(kBlack, kWhite)};
    const Ink selected{PremultipliedPixel(look.selectedText),
                       PremultipliedPixel(look.selectedGround),
                       Way(highlight, GetSysColor(COLOR_HIGHLIGHTTEXT))};
    for (std::int32_t y = 0; y < picture.Height(); ++y) {
        std::uint32_t* const row = RowOf(picture, y);
        const std::uint32_t* const marked = hasSelection ? RowOf(marks, y) : nullptr;
        for (std::int32_t x = 0; x < picture.Width(); ++x) {
            const bool isSelected =
                marked != nullptr && (marked[x] & kColours) != PixelOf(elsewhere);
            row[x] = (isSelected ? selected : plain).Over(row[x]);
        }
    }
    picture.EndWriting();
    return true;
}

} // namespace Platform
