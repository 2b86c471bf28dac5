#include "platform/last_error.h"

#include <cerrno>

namespace Platform {

std::uint32_t LastError()
{
    return static_cast<std::uint32_t>(errno);
}

void SetLastError(std::uint32_t code)
{
    errno = static_cast<int>(code);
}

} // namespace Platform
