// The library or program that this code is linked into.
#pragma once

#include <windows.h>

namespace Platform {

HINSTANCE ThisModule();

} // namespace Platform
