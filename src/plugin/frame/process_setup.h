// What the process needs once before the module's first object lives in it.
#pragma once

namespace Kesto {

// Makes the process aware of the display's density where the system asks for that, readies the
// common controls, and notes the calling thread as the one that owns the user interface, and
// readies the desktop. Safe to call again.
void SetUpProcess();

} // namespace Kesto
