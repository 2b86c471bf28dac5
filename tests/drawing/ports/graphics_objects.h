// The graphics system's objects that this process has, by the system's own count: GDI's handles, or
// Cairo's surfaces.
#pragma once

namespace Kesto {

int CountGraphicsObjects();

} // namespace Kesto
