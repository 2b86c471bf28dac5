// Turns for the program while a loop of the system's own pumps the thread's messages: a frame is
// dragged, a menu is open.
#pragma once

#include <cstdint>

namespace Platform {

// Called some thirty times a second while such a loop runs for one of our windows, and in any other
// that hands messages to windows whenever a timer of the thread comes due; with that timer's
// number, or 0 when it isn't known. Null for none.
void SetForeignTurn(void (*turn)(std::uintptr_t timer));

// While one lives, the turns come. For the sources of the platform that begin such loops.
class ForeignLoop {
public:
    ForeignLoop() { Enter(); }
    ~ForeignLoop() { Leave(); }
    ForeignLoop(const ForeignLoop&) = delete;
    ForeignLoop& operator=(const ForeignLoop&) = delete;

    // The same for loops whose begin and end are told by messages.
    static void Enter();
    static void Leave();
};

} // namespace Platform
