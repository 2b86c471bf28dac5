// CHostTurns, the turns that a host takes while a window of the module is up: it hands in events
// whenever nothing else waits, in the loops of modal windows, trackers and menus too.
#pragma once

#include "lumograph/view_info.h"
#include "view/process/idler.h"

#include <functional>

namespace Kesto {

class CHostTurns : public CIdler {
public:
    // Fills in an event; false if there is none. It throws nothing.
    using Source = std::function<bool(HostInputEvent& event)>;

    // The turns come from now on until this ends.
    explicit CHostTurns(Source source);

    void Idle() override;

private:
    Source fSource;
};

} // namespace Kesto
