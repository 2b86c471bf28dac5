// Timers that put a message of the number kTimer into the queue.
//
// The message's first parameter is the timer's number. A timer that comes due again before its
// message was taken is not counted twice. Periods are milliseconds, at least 10.
#pragma once

#include "platform/input/message_queue.h"

namespace Platform {

// Starts a timer of a window under a number that is the caller's choice and not 0, or one of the
// thread (no window), which gets a number of its own. Returns the number, 0 if the system refuses.
std::uintptr_t ArmTimer(NativeWindow window, std::uintptr_t number, std::uint32_t milliseconds);

// Ends a timer. A message that it put into the queue before may still come.
void DisarmTimer(NativeWindow window, std::uintptr_t number);

} // namespace Platform
