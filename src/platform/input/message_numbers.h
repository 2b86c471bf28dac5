// The numbers of the messages that the toolkit looks at. They are those of Windows on every system.
#pragma once

#include <cstdint>

namespace Platform::Number {

inline constexpr std::uint32_t kNothing = 0x0000;
inline constexpr std::uint32_t kPaint = 0x000F;
inline constexpr std::uint32_t kTimer = 0x0113;
inline constexpr std::uint32_t kUser = 0x0400; // the first that a window may define for itself

// Keys. A message translated into a character is two above its key-down.
inline constexpr std::uint32_t kKeyFirst = 0x0100;
inline constexpr std::uint32_t kKeyDown = 0x0100;
inline constexpr std::uint32_t kKeyUp = 0x0101;
inline constexpr std::uint32_t kKeyChar = 0x0102;
inline constexpr std::uint32_t kDeadChar = 0x0103;
inline constexpr std::uint32_t kSysKeyDown = 0x0104;
inline constexpr std::uint32_t kSysKeyUp = 0x0105;
inline constexpr std::uint32_t kSysKeyChar = 0x0106;
inline constexpr std::uint32_t kSysDeadChar = 0x0107;
inline constexpr std::uint32_t kKeyLast = 0x0109;

// The mouse over a window's content; over its frame the numbers lie lower by the difference of the
// two first ones.
inline constexpr std::uint32_t kFrameMouseFirst = 0x00A0;
inline constexpr std::uint32_t kFrameMouseLast = 0x00AD;
inline constexpr std::uint32_t kMouseFirst = 0x0200;
inline constexpr std::uint32_t kMouseMove = 0x0200;
inline constexpr std::uint32_t kLeftDown = 0x0201;
inline constexpr std::uint32_t kLeftUp = 0x0202;
inline constexpr std::uint32_t kLeftDouble = 0x0203;
inline constexpr std::uint32_t kRightDown = 0x0204;
inline constexpr std::uint32_t kRightUp = 0x0205;
inline constexpr std::uint32_t kRightDouble = 0x0206;
inline constexpr std::uint32_t kMiddleDown = 0x0207;
inline constexpr std::uint32_t kMiddleUp = 0x0208;
inline constexpr std::uint32_t kMiddleDouble = 0x0209;
inline constexpr std::uint32_t kWheel = 0x020A;
inline constexpr std::uint32_t kExtraDown =
    0x020B; // the fourth or fifth button, as the parameter says
inline constexpr std::uint32_t kExtraUp = 0x020C;
inline constexpr std::uint32_t kExtraDouble = 0x020D;
inline constexpr std::uint32_t kMouseLast = 0x020E;

inline constexpr std::uint32_t kPenMoved = 0x0245;

} // namespace Platform::Number
