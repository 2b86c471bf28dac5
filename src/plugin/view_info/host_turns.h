// CHostTurns, the turns that a host takes while a window of the module is up: it hands in events
// whenever nothing else waits, in the loops of modal windows, trackers and menus too.
#pragma once

#include "lumograph/view_info.h"
#include "view/process/idler.h"

#include <functional>
#include <vector>

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

    // Lets go of the keys and buttons that it was handed as pressed: on a desktop of several
    // programs they would stay so for all of them.
    ~CHostTurns() override;

    void Idle() override;

private:
    void Deliver(const HostInputEvent& event);

    Source fSource;
    CHostHands fHands;
    std::vector<HostInputEvent> fHeld; // what lets go of that, in the order of the presses
    bool fIsTaken = false; // in a turn the host may run another module's dialog, and timers go on
};

} // namespace Kesto
