// Pens, where the system knows of them. The functions for them are looked up by name; without them there is no pen.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

namespace Platform {

struct PenSample {
    std::int32_t x = 0; // in pixels of the screen
    std::int32_t y = 0;
    std::uint32_t time = 0;     // as TickCount
    std::uint32_t pressure = 0; // 0 to 1024; 0 also from a pen that doesn't measure it
};

// The pen's last sample; nothing if the pointer of this number is no pen.
std::optional<PenSample> ReadPen(std::uint32_t pointer);

// The samples that the pen's last message stands for, oldest first.
std::vector<PenSample> ReadPenHistory(std::uint32_t pointer);

} // namespace Platform
