// An answer of the display, which XCB allocates and its reader frees.
#pragma once

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string_view>
#include <xcb/xcb.h>

namespace Platform {

struct FreeReply {
    void operator()(void* reply) const { std::free(reply); }
};

template <class T>
using Reply = std::unique_ptr<T, FreeReply>;

// Whether the display has the extension of that name.
inline bool HasExtension(xcb_connection_t* display, std::string_view name)
{
    const Reply<xcb_query_extension_reply_t> reply(xcb_query_extension_reply(
        display, xcb_query_extension(display, static_cast<std::uint16_t>(name.size()), name.data()),
        nullptr));
    return reply != nullptr && reply->present != 0;
}

} // namespace Platform
