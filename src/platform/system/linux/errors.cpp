#include "platform/system/errors.h"

#include <array>
#include <cerrno>
#include <cstring>

namespace Platform {

std::string ErrorText(std::uint32_t code)
{
    const int number = code == kOutOfMemoryCode ? ENOMEM : static_cast<int>(code);
    std::array<char, 256> buffer{};
    // The GNU form, which may answer a constant of its own.
    return strerror_r(number, buffer.data(), buffer.size());
}

std::uint32_t LastError()
{
    return static_cast<std::uint32_t>(errno);
}

void SetLastError(std::uint32_t code)
{
    errno = static_cast<int>(code);
}

} // namespace Platform
