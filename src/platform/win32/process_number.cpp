#include "platform/process_number.h"

#include <windows.h>

namespace Platform {

std::uint32_t ProcessNumber()
{
    return GetCurrentProcessId();
}

} // namespace Platform
