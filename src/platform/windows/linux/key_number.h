// The numbers that key messages have for the keys that edit fields and menus know.
#pragma once

#include <cstdint>

namespace Platform {

enum KeyNumber : std::uint32_t {
    kReturnKey = 0x0D,
    kEscapeKey = 0x1B,
    kSpaceKey = 0x20,
    kPageUpKey = 0x21,
    kPageDownKey = 0x22,
    kEndKey = 0x23,
    kHomeKey = 0x24,
    kLeftKey = 0x25,
    kUpKey = 0x26,
    kRightKey = 0x27,
    kDownKey = 0x28,
    kInsertKey = 0x2D,
    kDeleteKey = 0x2E,
};

} // namespace Platform
