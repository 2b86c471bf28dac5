// Carries out what a host hands in during its turns: input, which goes into the queue as if the
// user had made it, and the requests of lumograph/window_requests.h.
#pragma once

#include "lumograph/view_info.h"

namespace Kesto {

class CWindow;

// True for events of the user's: they are only put into the queue. The others call views, and may
// throw what those throw.
bool IsInput(const HostInputEvent& event);

// An event that can't be carried out is without effect. kHostRequestWait is the business of whoever
// takes the turns.
void CarryOut(const HostInputEvent& event);

// The window with this native handle, or the frontmost in sight for null; null if there is none.
CWindow* FindWindowOf(void* native);

} // namespace Kesto
