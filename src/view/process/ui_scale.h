// How the toolkit's windows scale with the density of the display.
#pragma once

#include <cstdint>

namespace Kesto {

// As the host set it up: 0 one scale for all monitors, 1 none, 2 a scale for each monitor.
enum class UiScaleMode : int32_t {};

void SetUiScaleMode(UiScaleMode mode);
UiScaleMode GetUiScaleMode();

// How much larger than usual all windows are, on top of what the mode asks for; 1 at first, and for
// what is no scale. Open windows stay as they are until the display changes.
void SetUiScale(double scale);
double GetUiScale();

// The scale at which windows usually open, on the main monitor; 1 before it has been looked up.
double UsualScale();
void LookUpUsualScale();

// What a font is scaled by on top of all that, so that one that doesn't follow it stays as it is.
double FontScale(bool followsUiScale);

} // namespace Kesto
