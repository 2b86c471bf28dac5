// CButtonControl, what all buttons are to their window: a value, a flash, and whether Return or
// Escape means them.
#pragma once

#include "layout/vocabulary/button_options.h"
#include "view/messages/object_id.h"
#include "view/window/window_button.h"

#include <cstdint>

namespace Kesto {

class CButtonControl : public CWindowButton {
public:
    // Bits of fTrack.
    static constexpr std::uint32_t kTrack_Default = 1U << 0; // it is the window's default button
    static constexpr std::uint32_t kTrack_Pressed = 1U << 1;
    static constexpr std::uint32_t kTrack_Hot = 1U << 2; // the mouse is over it

    virtual ~CButtonControl() = default;

    // The messenger's.
    virtual void SetButtonID(CObjID id) = 0;
    virtual CObjID GetButtonID() const = 0;

    bool IsDefault() const override { return false; }
    bool IsCancel() const override { return false; }

    // One of a group of which one is on; see radio_group.h.
    virtual bool IsRadio() const { return false; }

    // Setting the value sends nothing.
    virtual EButtonValue GetValue() const { return fValue; }
    virtual void SetValue(EButtonValue value) { fValue = value; }

protected:
    EButtonValue fValue = kOff;
    std::uint32_t fTrack = 0;
};

} // namespace Kesto
