#include "view/input/mouse_history.h"

namespace Kesto {

CMouseHistory& CMouseHistory::Get()
{
    static CMouseHistory history;
    return history;
}

void CMouseHistory::SetOn(bool on)
{
    fIsOn = on;
    fCount = 0;
}

void CMouseHistory::Record(const CMouseEvent& event)
{
    if (!fIsOn)
        return;
    fRing[(fFirst + fCount) % kCapacity] = event;
    if (fCount < kCapacity)
        ++fCount;
    else
        fFirst = (fFirst + 1) % kCapacity;
}

std::optional<CMouseEvent> CMouseHistory::Take()
{
    if (fCount == 0)
        return std::nullopt;
    const CMouseEvent oldest = fRing[fFirst];
    fFirst = (fFirst + 1) % kCapacity;
    --fCount;
    return oldest;
}

} // namespace Kesto
