// Where a window is to open, and where it was when it was closed.
#pragma once

#include "foundation/base/geometry.h"
#include "platform/graphics/monitors.h"
#include "view/window/window_options.h"

#include <array>
#include <span>

namespace Kesto {

// A position of 0 or more is in units from the corner of the monitor's work area; below that it is
// a percentage of the room that the window leaves free there (-50: in the middle). A size below 0
// is a percentage of the work area, 0 the window's natural one.
struct CWindowPlacement {
    double positionX = -50.0;
    double positionY = -33.0;
    double sizeX = 0.0;
    double sizeY = 0.0;
    double state = kWinState_Default;
    double monitor = kMonitor_Main;
    double slopX = 0.0; // left free beside a window that is zoomed
    double slopY = 0.0;
    std::array<double, 4> user{}; // left, top, right, bottom in pixels of the desktop, as the user
                                  // had it last: it opens on the monitor there
    std::array<double, 4> last{}; // before it was maximized
};

// The keys under which its numbers are kept, and where each is.
struct CPlacementKey {
    const char* name;
    double& (*field)(CWindowPlacement& placement);
};
std::span<const CPlacementKey> PlacementKeys();

// The index of the monitor that a placement chooses; the owner's for kMonitor_Main, and where all
// are alike, as their depths are.
std::size_t ChooseMonitor(std::span<const Platform::Monitor> monitors, EMonitorChoice choice,
                          std::size_t ownersMonitor);

// The index of the one that it opens on: where the user had it, or the nearest one if that no
// longer exists; else the one that it chooses.
std::size_t StartMonitor(const CWindowPlacement& placement,
                         std::span<const Platform::Monitor> monitors, std::size_t ownersMonitor);

// The rectangle of the content, in pixels of the screen, for a window of that natural size in units
// and these edges of its frame in pixels (left, top, right, bottom). It lies on the monitor's work
// area as far as there is room.
Platform::PixelRect PlaceOnMonitor(const CWindowPlacement& placement,
                                   const Platform::Monitor& monitor, const Point& naturalSize,
                                   double scale, const Platform::PixelRect& frameEdges);

} // namespace Kesto
