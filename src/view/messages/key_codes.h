// The codes of keys that the toolkit knows, as CKeyboardMessage::fKeyCode has them: those of
// Windows on every system. Letters and digits have the codes of their characters in capitals.
#pragma once

#include <cstdint>

namespace Kesto {

enum EKeyCode : std::uint32_t {
    kKeyCode_Backspace = 0x08,
    kKeyCode_Tab = 0x09,
    kKeyCode_Return = 0x0D,
    kKeyCode_Escape = 0x1B,
    kKeyCode_Space = 0x20,
    kKeyCode_PageUp = 0x21,
    kKeyCode_PageDown = 0x22,
    kKeyCode_End = 0x23,
    kKeyCode_Home = 0x24,
    kKeyCode_Left = 0x25,
    kKeyCode_Up = 0x26,
    kKeyCode_Right = 0x27,
    kKeyCode_Down = 0x28,
    kKeyCode_Insert = 0x2D,
    kKeyCode_Delete = 0x2E,
    kKeyCode_F1 = 0x70,
    kKeyCode_F4 = 0x73,
    kKeyCode_F12 = 0x7B,
};

} // namespace Kesto
