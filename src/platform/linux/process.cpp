#include "platform/process.h"

#include <unistd.h>

namespace Platform {

std::uint32_t ProcessNumber()
{
    return static_cast<std::uint32_t>(getpid());
}

void MakeProcessDpiAware() {}

void ReadyCommonControls() {}

} // namespace Platform
