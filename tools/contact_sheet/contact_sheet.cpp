#include "contact_sheet/contact_sheet.h"

#include "drawing/ports/pixel_surface.h"
#include "drawing/tools/draw_tools.h"
#include "failure.h"
#include "pictures/bitmap_file.h"
#include "pixels/kernels/blend_table.h"

#include <algorithm>
#include <cmath>

using namespace Kesto;

namespace {

// One pixel as a surface keeps it, its colours multiplied by its alpha.
std::uint32_t Premultiplied(const CPixView& picture, std::ptrdiff_t offset)
{
    const std::int32_t planes = picture.planeCount;
    const bool colour = planes >= 3;
    const auto sample = [&](std::int32_t plane) {
        return std::uint32_t{picture.planePointers[plane][offset]};
    };
    const std::uint32_t alpha = planes % 2 == 0 ? sample(planes - 1) : 255;
    std::uint32_t pixel = alpha;
    for (const std::int32_t plane : {0, 1, 2})
        pixel = pixel << 8 | (*CBlendTable::Get())(alpha, sample(colour ? plane : 0));
    return pixel;
}

Colour ColourOf(std::uint32_t number)
{
    const auto part = [&](int shift) { return static_cast<std::uint8_t>(number >> shift); };
    return {part(16), part(8), part(0)};
}

} // namespace

ContactSheet::ContactSheet(std::int32_t width, std::int32_t height, std::uint32_t colour)
    : fImage(width, height)
{
    fImage.SetFont(CDrawTools::Get().GetFont(kFont_UIMedium));
    Fill({0, 0, width, height}, colour);
}

void ContactSheet::Fill(const PixelRect& rect, std::uint32_t colour)
{
    fImage.Paint(Rect{static_cast<double>(rect.left), static_cast<double>(rect.top),
                      static_cast<double>(rect.right), static_cast<double>(rect.bottom)},
                 ColourOf(colour));
}

void ContactSheet::Draw(const CPixView& picture, std::int32_t x, std::int32_t y)
{
    if (picture.pixelBits != 8 || picture.planeCount < 1 || picture.planeCount > 4)
        return;
    const CImage source(picture.width, picture.height);
    const CPixelSurface pixels = SurfaceOf(*source.GetSurface());
    for (std::int32_t line = 0; line < picture.height; ++line)
        for (std::int32_t i = 0; i < picture.width; ++i)
            *pixels.At(i, line) =
                Premultiplied(picture, std::ptrdiff_t{line} * picture.rowBytes + i);
    const CPixelSurface sheet = SurfaceOf(*fImage.GetSurface());
    const std::int32_t right = std::min(picture.width, sheet.size.x - x);
    const std::int32_t bottom = std::min(picture.height, sheet.size.y - y);
    if (right > 0 && bottom > 0)
        BlendPixels(pixels, {0, 0, right, bottom}, sheet, {x, y});
}

void ContactSheet::Label(const std::string& text, std::int32_t x, std::int32_t y,
                         std::uint32_t colour)
{
    fImage.SetTextColour(ColourOf(colour));
    fImage.DrawTextLine(text, {static_cast<double>(x), static_cast<double>(y)});
}

std::int32_t ContactSheet::LabelWidth(const std::string& text) const
{
    return static_cast<std::int32_t>(std::ceil(fImage.MeasureText(text)));
}

bool ContactSheet::Write(const std::string& path) const
{
    const CPixelSurface pixels = SurfaceOf(*fImage.GetSurface());
    try {
        Host::WriteBitmap(path, {pixels.size.x, pixels.size.y, pixels.bits, pixels.rowBytes});
    } catch (const Host::Failure&) {
        return false;
    }
    return true;
}
