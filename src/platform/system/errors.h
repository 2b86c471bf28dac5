// The codes of the operating system's failures, and its own words for them.
#pragma once

#include <cstdint>
#include <string>

namespace Platform {

// The code for exhausted memory where the operating system has left none. The number is
// the same on every system: a Linux errno of 14 cannot come from a correct call, so ErrorText
// explains it as memory exhaustion there too.
inline constexpr std::uint32_t kOutOfMemoryCode = 14;

// The text of a code in the user's language as UTF-8, as the system gives it: on Windows with a
// line break at its end. Empty when the system has no text of fewer than 256 characters for the
// code.
std::string ErrorText(std::uint32_t code);

// The code that the operating system's last failing call left on this thread (GetLastError on
// Windows, errno on Linux); 0 when there is none.
std::uint32_t LastError();

// Sets that code. Calls that report by it alone are preceded by SetLastError(0).
void SetLastError(std::uint32_t code);

} // namespace Platform
