#include "view/process/idler.h"

#include "view/process/walked_list.h"

#include <algorithm>

namespace Kesto {
namespace {

CWalkedList<CIdler> gIdlers;

} // namespace

CIdler::~CIdler()
{
    StopIdling();
}

void CIdler::StartIdling()
{
    if (fIsIdling)
        return;
    fIsIdling = true;
    fHadTurn = false;
    gIdlers.Add(*this);
}

void CIdler::StopIdling()
{
    if (fIsIdling)
        gIdlers.Remove(*this);
    fIsIdling = false;
}

// A clock that has started over makes it due.
double CIdler::TimeToDue(double now) const
{
    if (!fHadTurn || now < fLast)
        return 0.0;
    return std::max(fLast + fPeriod - now, 0.0);
}

void CIdler::RunIdlers(double now)
{
    gIdlers.ForEach([now](CIdler& idler) {
        if (idler.TimeToDue(now) > 0.0)
            return;
        idler.fHadTurn = true;
        idler.fLast = now;
        idler.Idle();
    });
}

double CIdler::TimeToNext(double now)
{
    double next = -1.0;
    for (const CIdler* idler = gIdlers.Head(); idler != nullptr; idler = idler->fNext) {
        const double time = idler->TimeToDue(now);
        next = next < 0.0 ? time : std::min(next, time);
    }
    return next;
}

} // namespace Kesto
