// The six states that a button is drawn in.
#pragma once

#include <cstdint>

namespace Kesto {

enum class EButtonState : std::uint32_t {
    kNormal,
    kPress,
    kRollover,
    kDisabled,
    kInactive,  // of a window that isn't active
    kDisactive, // of such a window, and disabled
};

inline constexpr std::uint32_t kButtonStateCount = 6;

constexpr EButtonState ButtonStateOf(bool active, bool usable, bool pressed, bool hot)
{
    if (!active)
        return usable ? EButtonState::kInactive : EButtonState::kDisactive;
    if (!usable)
        return EButtonState::kDisabled;
    if (pressed)
        return EButtonState::kPress;
    return hot ? EButtonState::kRollover : EButtonState::kNormal;
}

// A default button shows its ring only where Return would press it.
constexpr bool CanShowDefaultRing(EButtonState state)
{
    return state < EButtonState::kDisabled;
}

} // namespace Kesto
