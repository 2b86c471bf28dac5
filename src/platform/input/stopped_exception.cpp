#include "platform/input/stopped_exception.h"

namespace Platform {
namespace {

thread_local std::exception_ptr gStopped;

}

void StopException(std::exception_ptr exception)
{
    if (gStopped == nullptr)
        gStopped = std::move(exception);
}

void ThrowStopped()
{
    if (gStopped != nullptr)
        std::rethrow_exception(std::exchange(gStopped, nullptr));
}

} // namespace Platform
