// The screens, and how dense their pixels are.
#pragma once

#include "platform/system/native_window.h"
#include "platform/system/pixel_rect.h"

#include <cstddef>
#include <span>
#include <vector>

namespace Platform {

// Rectangles are in pixels of the desktop.
struct Monitor {
    PixelRect bounds;
    PixelRect workArea; // without task bars and the like
    double scale = 1.0; // device pixels for each unit

    friend bool operator==(const Monitor&, const Monitor&) = default;
};

// As they are now, the primary one first; never empty. Without a display there is one of 1920 by
// 1080 pixels at scale 1.
std::vector<Monitor> ListMonitors();

// Without a display there are these from now on. False, and no change, with one, and for none.
bool MakeUpMonitors(std::vector<Monitor> monitors);

// The index of the one that shows most of the rectangle, else of the nearest one.
std::size_t MonitorOf(std::span<const Monitor> monitors, const PixelRect& rect);

} // namespace Platform
