// How many objects of GDI this process has.
#pragma once

#include <windows.h>

inline int CountGdiObjects()
{
    if (const DWORD count = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS); count > 0)
        return static_cast<int>(count);
    // Wine has no such count. The lower half of a handle is its place in a table, and is enough to
    // ask what is there.
    int count = 0;
    for (UINT_PTR place = 1; place <= 0xFFFF; ++place)
        count += GetObjectType(reinterpret_cast<HGDIOBJ>(place)) != 0;
    return count;
}
