// The numbers of the messages that the toolkit looks at. They are those of Windows on every system.
#pragma once

#include <cstdint>

namespace Platform::Number {

inline constexpr std::uint32_t kNothing = 0x0000;
inline constexpr std::uint32_t kTimer = 0x0113;

// Life and state of a window.
inline constexpr std::uint32_t kMove = 0x0003;
inline constexpr std::uint32_t kSize = 0x0005;
inline constexpr std::uint32_t kActivate = 0x0006;
inline constexpr std::uint32_t kSetFocus = 0x0007;
inline constexpr std::uint32_t kKillFocus = 0x0008;
inline constexpr std::uint32_t kEnable = 0x000A;
inline constexpr std::uint32_t kPaint = 0x000F;
inline constexpr std::uint32_t kClose = 0x0010;
inline constexpr std::uint32_t kEraseBackground = 0x0014;
inline constexpr std::uint32_t kShowWindow = 0x0018;
inline constexpr std::uint32_t kSettingChange = 0x001A;
inline constexpr std::uint32_t kActivateApp = 0x001C;
inline constexpr std::uint32_t kCancelMode = 0x001F;
inline constexpr std::uint32_t kSetCursor = 0x0020;
inline constexpr std::uint32_t kMouseActivate = 0x0021;
inline constexpr std::uint32_t kGetMinMaxInfo = 0x0024;
inline constexpr std::uint32_t kDrawItem = 0x002B;
inline constexpr std::uint32_t kMeasureItem = 0x002C;
inline constexpr std::uint32_t kWindowPosChanged = 0x0047;
inline constexpr std::uint32_t kNotify = 0x004E;
inline constexpr std::uint32_t kNotifyFormat = 0x0055;
inline constexpr std::uint32_t kDisplayChange = 0x007E;
inline constexpr std::uint32_t kFrameDestroyed = 0x0082; // the last that a window gets
inline constexpr std::uint32_t kFrameActivate = 0x0086;
inline constexpr std::uint32_t kSizing = 0x0214;
inline constexpr std::uint32_t kCaptureChanged = 0x0215;
inline constexpr std::uint32_t kEnterSizeMove = 0x0231;
inline constexpr std::uint32_t kExitSizeMove = 0x0232;
inline constexpr std::uint32_t kDropFiles = 0x0233;
inline constexpr std::uint32_t kMouseLeave = 0x02A3;
inline constexpr std::uint32_t kScaleChanged = 0x02E0;

// Menus, scroll bars, child controls, keyboard cues.
inline constexpr std::uint32_t kCommand = 0x0111;
inline constexpr std::uint32_t kHScroll = 0x0114;
inline constexpr std::uint32_t kVScroll = 0x0115;
inline constexpr std::uint32_t kInitMenu = 0x0116;
inline constexpr std::uint32_t kInitMenuPopup = 0x0117;
inline constexpr std::uint32_t kMenuSelect = 0x011F;
inline constexpr std::uint32_t kChangeUIState = 0x0127;
inline constexpr std::uint32_t kUpdateUIState = 0x0128;
inline constexpr std::uint32_t kControlColourEdit = 0x0133;
inline constexpr std::uint32_t kControlColourList = 0x0134;
inline constexpr std::uint32_t kControlColourStatic = 0x0138;
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
inline constexpr std::uint32_t kSidewaysWheel = 0x020E;
inline constexpr std::uint32_t kMouseLast = 0x020E;

// Whether a button of the mouse goes down; the second press of a double click has its own number.
constexpr bool IsPress(std::uint32_t number)
{
    return number == kLeftDown || number == kRightDown || number == kMiddleDown ||
           number == kExtraDown;
}

inline constexpr std::uint32_t kPenMoved = 0x0245;
inline constexpr std::uint32_t kPenDown = 0x0246;

} // namespace Platform::Number
