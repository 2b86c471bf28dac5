// A window of the operating system.
#pragma once

namespace Platform {

// Only handed through; null is none.
using NativeWindow = void*;

} // namespace Platform
