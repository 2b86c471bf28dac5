#include "drawing/ports/graphics_objects.h"
#include "platform/graphics/win32/gdi_objects.h"

int Kesto::CountGraphicsObjects()
{
    return CountGdiObjects();
}
