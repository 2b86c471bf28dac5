// How the toolkit's windows scale with the density of the display.
#pragma once

#include <cstdint>

namespace Kesto {

// As the host set it up: 0 one scale for all monitors, 1 none, 2 a scale for each monitor.
enum class UiScaleMode : int32_t {};

void SetUiScaleMode(UiScaleMode mode);
UiScaleMode GetUiScaleMode();

} // namespace Kesto
