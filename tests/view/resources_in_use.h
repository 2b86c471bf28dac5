// What this process holds of things that run out.
#pragma once

#include <cstddef>

struct ResourcesInUse {
    std::size_t bytes = 0;   // of the heap; 0 where the system doesn't tell
    std::size_t drawing = 0; // bitmaps, fonts and the like of the system's
    std::size_t windows = 0; // and cursors, menus, hooks
};

ResourcesInUse CountResources();
