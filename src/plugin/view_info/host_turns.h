// CHostTurns, the turns that a host takes while a window of the module is up: it hands in events
// whenever nothing else waits, in the loops of modal windows, trackers and menus too.
#pragma once

#include "lumograph/view_info.h"
#include "view/process/idler.h"

#include <functional>

namespace Kesto {

// What does with the user's input what a user would: without `deliver` it goes into the queue;
// another program's hands need so many seconds.
struct CHostHands {
    std::function<void(const HostInputEvent& event)> deliver;
    double seconds = 0.0;
};

class CHostTurns : public CIdler {
public:
    // Fills in an event; false if there is none. It throws nothing.
    using Source = std::function<bool(HostInputEvent& event)>;

    // The turns come from now on until this ends.
    explicit CHostTurns(Source source, CHostHands hands = {});

    void Idle() override;

private:
    Source fSource;
    CHostHands fHands;
    bool fIsTaken = false; // in a turn the host may run another module's dialog, and timers go on
};

} // namespace Kesto
