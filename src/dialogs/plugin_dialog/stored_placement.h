// The state of a window as settings keep it, and as windows know it.
#pragma once

#include "foundation/settings/window_state.h"
#include "view/window/window_placement.h"

namespace Project {

// A stored state that no window can have had (no number, or far beyond any screen) gives the place
// of a window that nothing was stored for.
Kesto::CWindowPlacement PlacementOf(const Kesto::WindowState& state);

Kesto::WindowState WindowStateOf(const Kesto::CWindowPlacement& placement);

} // namespace Project
