// Cairo has no count; so this program makes its surfaces through a function of the same name, which
// counts those that live.
#include "drawing/ports/graphics_objects.h"

#include <cairo.h>
#include <dlfcn.h>

namespace {

int gSurfaces = 0;
cairo_user_data_key_t gKey;

void CountDown(void*)
{
    --gSurfaces;
}

} // namespace

int Kesto::CountGraphicsObjects()
{
    return gSurfaces;
}

extern "C" cairo_surface_t* cairo_image_surface_create(cairo_format_t format, int width, int height)
{
    static const auto create = reinterpret_cast<decltype(&cairo_image_surface_create)>(
        dlsym(RTLD_NEXT, "cairo_image_surface_create"));
    cairo_surface_t* const surface = create(format, width, height);
    if (cairo_surface_set_user_data(surface, &gKey, &gKey, CountDown) == CAIRO_STATUS_SUCCESS)
        ++gSurfaces;
    return surface;
}
