// A window of the operating system.
#pragma once

namespace Platform {

// Each system knows what it is; all others only hand it through. A null pointer is no window.
struct NativeWindowRecord;
using NativeWindow = NativeWindowRecord*;

} // namespace Platform
