#include "contact_sheet/contact_sheet.h"

#include "pixels/kernels/blend_table.h"

#include <cmath>

using namespace Kesto;

namespace {

using Surface = std::unique_ptr<cairo_surface_t, void (*)(cairo_surface_t*)>;

Surface MakeSurface(cairo_format_t format, std::int32_t width, std::int32_t height)
{
    return {cairo_image_surface_create(format, width, height), cairo_surface_destroy};
}

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

void SetColour(cairo_t* context, std::uint32_t colour)
{
    const auto part = [&](int shift) { return (colour >> shift & 0xFF) / 255.0; };
    cairo_set_source_rgb(context, part(16), part(8), part(0));
}

} // namespace

ContactSheet::ContactSheet(std::int32_t width, std::int32_t height, std::uint32_t colour)
    : fSurface(MakeSurface(CAIRO_FORMAT_RGB24, width, height)),
      fContext(cairo_create(fSurface.get()), cairo_destroy)
{
    cairo_set_font_size(fContext.get(), kLabelHeight);
    Fill({0, 0, width, height}, colour);
}

void ContactSheet::Fill(const PixelRect& rect, std::uint32_t colour)
{
    SetColour(fContext.get(), colour);
    cairo_rectangle(fContext.get(), rect.left, rect.top, rect.right - rect.left,
                    rect.bottom - rect.top);
    cairo_fill(fContext.get());
}

void ContactSheet::Draw(const CPixView& picture, std::int32_t x, std::int32_t y)
{
    if (picture.pixelBits != 8 || picture.planeCount < 1 || picture.planeCount > 4)
        return;
    const Surface surface = MakeSurface(CAIRO_FORMAT_ARGB32, picture.width, picture.height);
    auto* row = reinterpret_cast<std::uint32_t*>(cairo_image_surface_get_data(surface.get()));
    for (std::int32_t line = 0; line < picture.height; ++line) {
        for (std::int32_t i = 0; i < picture.width; ++i)
            row[i] = Premultiplied(picture, std::ptrdiff_t{line} * picture.rowBytes + i);
        row += cairo_image_surface_get_stride(surface.get()) / 4;
    }
    cairo_surface_mark_dirty(surface.get());
    cairo_set_source_surface(fContext.get(), surface.get(), x, y);
    cairo_paint(fContext.get());
}

void ContactSheet::Label(const std::string& text, std::int32_t x, std::int32_t y,
                         std::uint32_t colour)
{
    SetColour(fContext.get(), colour);
    cairo_move_to(fContext.get(), x, y);
    cairo_show_text(fContext.get(), text.c_str());
}

std::int32_t ContactSheet::LabelWidth(const std::string& text) const
{
    cairo_text_extents_t extents;
    cairo_text_extents(fContext.get(), text.c_str(), &extents);
    return static_cast<std::int32_t>(std::ceil(extents.x_advance));
}

bool ContactSheet::Write(const std::string& path) const
{
    return cairo_surface_write_to_png(fSurface.get(), path.c_str()) == CAIRO_STATUS_SUCCESS;
}
