// An answer of the display, which XCB allocates and its reader frees.
#pragma once

#include <cstdlib>
#include <memory>

namespace Platform {

struct FreeReply {
    void operator()(void* reply) const { std::free(reply); }
};

template <class T>
using Reply = std::unique_ptr<T, FreeReply>;

} // namespace Platform
