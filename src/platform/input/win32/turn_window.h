// The hidden window that the thread's timers hang on. Loops of the system's own drop messages that
// have no window; those of this one they hand over, and it passes them on.
#pragma once

#include <cstdint>
#include <windows.h>

namespace Platform {

// Gets the number of each of these timers that comes due in a loop that isn't the program's; null
// for nobody. What it throws is stopped.
void SetTurnReceiver(void (*receiver)(std::uintptr_t timer));

// The window is made for the first timer and destroyed with the last one. 0 if the system refuses.
std::uintptr_t ArmThreadTimer(std::uint32_t milliseconds);
void DisarmThreadTimer(std::uintptr_t number);

bool IsTurnWindow(HWND window);

// The window, which stays until it is let go as often. Null if the system refuses.
HWND HoldTurnWindow();
void LetTurnWindowGo();

// From any thread: has a message put into the queue of the window's thread, unless one lies there.
void RingTurnWindow(HWND window);

// Whether it is that message, which is out of the queue then.
bool TakeRing(const MSG& message);

} // namespace Platform
