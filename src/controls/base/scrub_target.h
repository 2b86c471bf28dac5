// CScrubTarget, what a drag on a label changes: a field with a number.
#pragma once

#include "view/input/mouse_event.h"

#include <cstdint>

namespace Kesto {

class CScrubTarget {
public:
    // Phases of a drag, as messages of numbers have them.
    static constexpr std::uint32_t kPhase_ScrubBegin = 6;
    static constexpr std::uint32_t kPhase_Scrub = 7;
    static constexpr std::uint32_t kPhase_ScrubEnd = 8;

    // The drag begins, steps by `factor` increments, the major ones with Shift, or ends. False:
    // whoever has the focus refused, and the drag is over.
    virtual bool Scrub(double factor, const CMouseEvent& event, std::uint32_t phase,
                       bool takeFocus) = 0;

    // Ends the drag with the value before it.
    virtual void BreakOffScrub(const CMouseEvent& event) = 0;

protected:
    ~CScrubTarget() = default;
};

} // namespace Kesto
