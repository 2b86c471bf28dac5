#include "platform/windows/linux/display.h"

namespace Platform {

std::unique_ptr<Display> ConnectDisplay()
{
    return nullptr;
}

} // namespace Platform
