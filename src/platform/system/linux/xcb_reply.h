// What whoever asks the display needs: whether there is one, and the answers, which XCB allocates
// and their reader frees.
#pragma once

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string_view>
#include <xcb/xcb.h>

namespace Platform {

// Whether the environment names a display. Without one XCB isn't even loaded.
inline bool IsDisplayNamed()
{
    const char* const name = std::getenv("DISPLAY");
    return name != nullptr && *name != '\0';
}

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
