#include "platform/input/keyboard.h"

#include "platform/input/linux/queue.h"
#include "platform/system/linux/xcb_reply.h"

namespace Platform {
namespace {

struct Disconnect {
    void operator()(xcb_connection_t* display) const { xcb_disconnect(display); }
};

// The display server answers a question about the pointer with the modifiers that are down. Alt is
// its first modifier.
ModifierKeys AskDisplay()
{
    if (!IsDisplayNamed())
        return {};
    const std::unique_ptr<xcb_connection_t, Disconnect> display(xcb_connect(nullptr, nullptr));
    if (xcb_connection_has_error(display.get()) != 0)
        return {};
    const xcb_screen_iterator_t screens = xcb_setup_roots_iterator(xcb_get_setup(display.get()));
    if (screens.rem == 0)
        return {};
    const Reply<xcb_query_pointer_reply_t> reply(xcb_query_pointer_reply(
        display.get(), xcb_query_pointer(display.get(), screens.data->root), nullptr));
    if (reply == nullptr)
        return {};
    return {(reply->mask & XCB_KEY_BUT_MASK_CONTROL) != 0,
            (reply->mask & XCB_KEY_BUT_MASK_MOD_1) != 0,
            (reply->mask & XCB_KEY_BUT_MASK_SHIFT) != 0};
}

} // namespace

// Keys that were injected count like those of the display.
ModifierKeys HeldModifierKeys()
{
    ModifierKeys held = AskDisplay();
    held.control |= IsKeyDown(Key::kControl, KeyMoment::kNow);
    held.alt |= IsKeyDown(Key::kAlt, KeyMoment::kNow);
    held.shift |= IsKeyDown(Key::kShift, KeyMoment::kNow);
    return held;
}

bool IsKeyDown(Key key, KeyMoment moment)
{
    return Queue::Get().IsKeyDown(key, moment);
}

bool IsKeyOn(Key key)
{
    return Queue::Get().IsKeyOn(key);
}

} // namespace Platform
