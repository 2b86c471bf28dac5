// Monitors as a display tells of them, and how their scale is found.
#pragma once

#include "platform/graphics/monitors.h"

#include <optional>
#include <string_view>
#include <xcb/xcb.h>

namespace Platform {

std::vector<Monitor> MonitorsOf(xcb_connection_t* display, const xcb_screen_t& screen);

// What the desktop has set as "Xft.dpi" among its resources (one to a line, name and value parted
// by a colon), over 96; nothing without such a number from 24 to 768.
std::optional<double> ScaleFromResources(std::string_view resources);

// By the size of the monitor: its pixels to the inch over 96, in quarters, at least 1. A size that
// can't be true counts as unknown, which is 1.
double ScaleFromSize(std::int32_t pixels, std::int32_t millimetres);

} // namespace Platform
