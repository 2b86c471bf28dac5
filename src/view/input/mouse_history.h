// CMouseHistory, the places that the mouse or pen passed through since a tracker last looked: the
// system joins moves into one message, and a brush wants them all.
#pragma once

#include "view/input/mouse_event.h"

#include <array>
#include <cstddef>
#include <optional>

namespace Kesto {

class CMouseHistory {
public:
    static constexpr std::size_t kCapacity = 256;

    // While it is off nothing is recorded. Switching forgets what was.
    void SetOn(bool on);
    bool IsOn() const { return fIsOn; }

    // Keeps the event; the oldest one gives way when the ring is full.
    void Record(const CMouseEvent& event);

    // Takes out the oldest one.
    std::optional<CMouseEvent> Take();

    // The one of the user interface.
    static CMouseHistory& Get();

private:
    std::array<CMouseEvent, kCapacity> fRing;
    std::size_t fFirst = 0;
    std::size_t fCount = 0;
    bool fIsOn = false;
};

} // namespace Kesto
