// The system's clock for short spans.
#pragma once

#include <cstdint>

namespace Platform {

// Milliseconds since some moment before this process began; starts over after 49.7 days.
std::uint32_t TickCount();

} // namespace Platform
