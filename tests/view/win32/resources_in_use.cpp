#include "view/resources_in_use.h"

#include <windows.h>

ResourcesInUse CountResources()
{
    return {0, GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS),
            GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS)};
}
