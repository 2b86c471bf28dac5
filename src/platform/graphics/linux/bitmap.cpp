#include "platform/graphics/bitmap.h"

#include "platform/system/errors.h"

#include <cairo.h>
#include <cerrno>

namespace Platform {
namespace {

cairo_surface_t* Surface(std::intptr_t native)
{
    return reinterpret_cast<cairo_surface_t*>(native);
}

cairo_format_t FormatOf(std::int32_t pixelBits)
{
    switch (pixelBits) {
    case 1:
        return CAIRO_FORMAT_A1;
    case 8:
        return CAIRO_FORMAT_A8;
    case 16:
        return CAIRO_FORMAT_RGB16_565;
    case 32:
        return CAIRO_FORMAT_ARGB32;
    default:
        return CAIRO_FORMAT_INVALID;
    }
}

std::uint32_t CodeOf(cairo_status_t status)
{
    return status == CAIRO_STATUS_NO_MEMORY ? ENOMEM : EINVAL;
}

} // namespace

bool Bitmap::Make(std::int32_t width, std::int32_t height, std::int32_t pixelBits, bool)
{
    Release();
    cairo_surface_t* const surface = cairo_image_surface_create(FormatOf(pixelBits), width, height);
    const cairo_status_t status = cairo_surface_status(surface);
    if (status != CAIRO_STATUS_SUCCESS) {
        cairo_surface_destroy(surface);
        SetLastError(CodeOf(status));
        return false;
    }
    cairo_surface_mark_dirty(surface); // or it counts as clear, and is drawn as nothing at all
    fNative = reinterpret_cast<std::intptr_t>(surface);
    fBits = cairo_image_surface_get_data(surface);
    fSize = {width, height, pixelBits, cairo_image_surface_get_stride(surface)};
    return true;
}

void Bitmap::Release()
{
    if (fNative != 0)
        cairo_surface_destroy(Surface(fNative));
    fNative = 0;
    fBits = nullptr;
    fSize = {};
}

void Bitmap::BeginWriting() const
{
    if (fNative != 0)
        cairo_surface_flush(Surface(fNative));
}

void Bitmap::EndWriting() const
{
    if (fNative != 0)
        cairo_surface_mark_dirty(Surface(fNative));
}

} // namespace Platform
