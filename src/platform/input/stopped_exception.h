// Exceptions that must not pass through frames of the operating system: stopped on one side,
// thrown again on the other.
#pragma once

#include <exception>
#include <utility>

namespace Platform {

// Keeps the exception in flight for the next ThrowStopped of this thread, unless one is kept.
void StopException(std::exception_ptr exception);

// Throws again what was stopped, if anything was; it is forgotten then.
void ThrowStopped();

// Calls `body` and returns its answer; 0 when it throws, with the exception stopped.
template <class Body>
auto WithExceptionsStopped(Body&& body) noexcept -> decltype(body())
{
    try {
        return std::forward<Body>(body)();
    } catch (...) {
        StopException(std::current_exception());
    }
    return decltype(body())();
}

} // namespace Platform
