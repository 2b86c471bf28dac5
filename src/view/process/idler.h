// CIdler, something that wants a turn whenever the pump has nothing more urgent.
//
// While any idler has its turn due, the pump looks for messages and doesn't block. One with a
// period is due again when the period has passed; meanwhile it keeps nobody awake.
#pragma once

#include "foundation/base/link.h"

namespace Kesto {

class CIdler : public CLink<CIdler> {
public:
    // A period of 0 seconds is always due.
    explicit CIdler(double period = 0.0) : fPeriod(period) {}
    virtual ~CIdler();

    // Joins the idle list at its end, due at once; leaves it. Safe to call twice, and from Idle.
    void StartIdling();
    void StopIdling();
    bool IsIdling() const { return fIsIdling; }

    // Counts from its last turn.
    void SetPeriod(double period) { fPeriod = period; }

    // Its turn.
    virtual void Idle() = 0;

    // Gives each idler that is due its turn. Those that join meanwhile wait for the next time.
    // Times are seconds of the tick count.
    static void RunIdlers(double now);

    // Seconds until the next idler is due, 0 for at once, below 0 if there are none.
    static double TimeToNext(double now);

private:
    double TimeToDue(double now) const;

    double fPeriod;
    double fLast = 0.0;
    bool fHadTurn = false;
    bool fIsIdling = false;
};

} // namespace Kesto
