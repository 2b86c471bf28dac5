// The panel of drawdemo's sheet: everything that ports draw, in the tools' present theme.
#pragma once

#include "drawing/ports/system_port.h"

// Units.
inline constexpr double kPanelWidth = 560.0;
inline constexpr double kPanelHeight = 400.0;

// Draws it from the port's window origin on; `title` is at its top.
void DrawPanel(Kesto::CSystemPort& port, const char* title);
