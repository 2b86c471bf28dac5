// The calling thread's last operating-system error code: GetLastError on Windows, errno on Linux.
#pragma once

#include <cstdint>

namespace Platform {

// The code that the operating system's last failing call left on this thread; 0 when there is none.
std::uint32_t LastError();

// Sets that code. Calls that report by it alone are preceded by SetLastError(0).
void SetLastError(std::uint32_t code);

} // namespace Platform
