#include "platform/process_number.h"

#include <cerrno>
#include <csignal>
#include <limits>

#include <unistd.h>

namespace Platform {

std::uint32_t ProcessNumber()
{
    return static_cast<std::uint32_t>(getpid());
}

bool ProcessMayRun(std::uint32_t number)
{
    if (number == 0 || number > static_cast<std::uint32_t>(std::numeric_limits<pid_t>::max()))
        return false;
    return kill(static_cast<pid_t>(number), 0) == 0 || errno != ESRCH;
}

} // namespace Platform
