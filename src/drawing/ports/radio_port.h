// CRadioPort, a port that is tuned to another one: it draws on that port's surface, at its scale
// and within its clip, with a drawing state of its own.
#pragma once

#include "drawing/ports/system_port.h"

namespace Kesto {

class CRadioPort : public CSystemPort {
public:
    CRadioPort() = default;
    explicit CRadioPort(const CSystemPort& station) { Tune(&station); }

    // Draws on the station from now on, or on nothing with null. The station isn't owned; a change
    // of its surface, scale or clip needs another call.
    void Tune(const CSystemPort* station);
};

} // namespace Kesto
