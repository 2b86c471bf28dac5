#include "platform/process_number.h"

#include <unistd.h>

namespace Platform {

std::uint32_t ProcessNumber()
{
    return static_cast<std::uint32_t>(getpid());
}

} // namespace Platform
