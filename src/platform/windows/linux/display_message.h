// Messages that a display posts to a window about what was done to it. They go no further than to
// the window itself, which follows and sends what belongs to the change.
#pragma once

#include <cstdint>

namespace Platform {

inline constexpr std::uint32_t kDisplayMoved = 0x0060;  // to fServerContent
inline constexpr std::uint32_t kDisplayFocus = 0x0061;  // first: 1 comes, 0 goes
inline constexpr std::uint32_t kDisplayExtent = 0x0062; // first: a LinuxWindow::Extent
inline constexpr std::uint32_t kDisplayClose = 0x0063;  // its close box was pressed

constexpr bool IsOfDisplay(std::uint32_t number)
{
    return number >= kDisplayMoved && number <= kDisplayClose;
}

} // namespace Platform
