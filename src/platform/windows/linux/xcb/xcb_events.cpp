// What the display tells: input goes into the queue, all else is posted to the window that it is
// about.
#include "platform/input/keyboard.h"
#include "platform/input/linux/input.h"
#include "platform/input/linux/key_message.h"
#include "platform/input/linux/queue.h"
#include "platform/input/message_numbers.h"
#include "platform/system/linux/xcb_reply.h"
#include "platform/system/machine.h"
#include "platform/windows/linux/activation.h"
#include "platform/windows/linux/display_message.h"
#include "platform/windows/linux/window.h"
#include "platform/windows/linux/xcb/xcb_display.h"

#include <algorithm>
#include <cstdlib>

namespace Platform {
namespace {

using namespace Number;

template <class T>
const T& As(const xcb_generic_event_t& event)
{
    return reinterpret_cast<const T&>(event);
}

constexpr std::uint8_t kOfManager = 0x80; // an event that another program has sent

// Buttons, Shift and Control of an event's word, as mouse messages tell of them.
std::uintptr_t HeldFlags(std::uint16_t word)
{
    constexpr std::pair<std::uint16_t, std::uintptr_t> kFlags[] = {
        {XCB_KEY_BUT_MASK_BUTTON_1, 1},
        {XCB_KEY_BUT_MASK_BUTTON_3, 2},
        {XCB_KEY_BUT_MASK_SHIFT, 4},
        {XCB_KEY_BUT_MASK_CONTROL, 8},
        {XCB_KEY_BUT_MASK_BUTTON_2, 0x10}};
    std::uintptr_t flags = 0;
    for (const auto& [bit, flag] : kFlags)
        flags |= (word & bit) != 0 ? flag : 0;
    return flags;
}

void Inject(std::uint32_t number, std::uintptr_t first, std::int16_t x, std::int16_t y)
{
    InjectInput({nullptr, number, first, 0, TickCount(), x, y});
}

} // namespace

XcbDisplay::Known* XcbDisplay::Find(std::uint32_t number)
{
    const auto found = fWindows.find(number);
    return found != fWindows.end() ? &found->second : nullptr;
}

void XcbDisplay::Read()
{
    // What came while somebody awaited an answer is older than what is read now.
    while (!fPending.empty()) {
        const Event event = std::move(fPending.front());
        fPending.pop_front();
        Take(*event);
    }
    while (true) {
        const Event event(xcb_poll_for_event(fConnection), std::free);
        if (event == nullptr)
            break;
        Take(*event);
    }
    // After all is read: focus that goes from one of our windows to another comes as two events.
    TellFocus();
    xcb_flush(fConnection);
    if (xcb_connection_has_error(fConnection) != 0)
        Lose();
}

// All windows have gone with it, and none is asked: nobody can answer a question any more.
void XcbDisplay::Lose()
{
    if (std::exchange(fIsLost, true))
        return;
    SetInputSource(-1, nullptr);
    for (const auto& [number, known] : fWindows)
        PostToQueue(known.window->Handle(), kFrameDestroyed);
}

void XcbDisplay::Take(const xcb_generic_event_t& event)
{
    switch (event.response_type & ~kOfManager) {
    case XCB_KEY_PRESS:
    case XCB_KEY_RELEASE:
        TakeKey(As<xcb_key_press_event_t>(event), (event.response_type & 0x7F) == XCB_KEY_PRESS);
        break;
    case XCB_BUTTON_PRESS:
    case XCB_BUTTON_RELEASE:
        TakeButton(As<xcb_button_press_event_t>(event),
                   (event.response_type & 0x7F) == XCB_BUTTON_PRESS);
        break;
    case XCB_MOTION_NOTIFY: {
        const auto& motion = As<xcb_motion_notify_event_t>(event);
        Inject(kMouseMove, HeldFlags(motion.state), motion.root_x, motion.root_y);
        break;
    }
    case XCB_LEAVE_NOTIFY: {
        const auto& leave = As<xcb_leave_notify_event_t>(event);
        Inject(kMouseMove, HeldFlags(leave.state), leave.root_x, leave.root_y);
        break;
    }
    case XCB_FOCUS_IN:
    case XCB_FOCUS_OUT:
        TakeFocus(As<xcb_focus_in_event_t>(event), (event.response_type & 0x7F) == XCB_FOCUS_IN);
        break;
    case XCB_EXPOSE:
        TakeExpose(As<xcb_expose_event_t>(event));
        break;
    case XCB_MAP_NOTIFY:
    case XCB_UNMAP_NOTIFY:
        TakeMap(As<xcb_map_notify_event_t>(event).window,
                (event.response_type & 0x7F) == XCB_MAP_NOTIFY);
        break;
    case XCB_CONFIGURE_NOTIFY:
        TakeConfigure(As<xcb_configure_notify_event_t>(event),
                      (event.response_type & kOfManager) != 0);
        break;
    case XCB_DESTROY_NOTIFY: // of those that go by our own hand we know nothing any more
        if (const Known* const known = Find(As<xcb_destroy_notify_event_t>(event).window))
            PostToQueue(known->window->Handle(), kFrameDestroyed);
        break;
    case XCB_CLIENT_MESSAGE:
        TakeClient(As<xcb_client_message_event_t>(event));
        break;
    case XCB_PROPERTY_NOTIFY:
        TakeProperty(As<xcb_property_notify_event_t>(event));
        break;
    case XCB_SELECTION_REQUEST:
        AnswerRequest(As<xcb_selection_request_event_t>(event));
        break;
    case XCB_SELECTION_CLEAR:
        fOwnsClipboard = false;
        break;
    case XCB_MAPPING_NOTIFY:
        fKeyboard.Reload();
        break;
    default:
        break;
    }
}

// The keyboard is refused to a window that isn't mapped.
void XcbDisplay::TakeMap(std::uint32_t number, bool isMapped)
{
    Known* const known = Find(number);
    if (known == nullptr)
        return;
    known->isMapped = isMapped;
    if (isMapped && ActiveLinuxWindow() == known->window)
        Focus(*known->window);
}

void XcbDisplay::TakeKey(const xcb_key_press_event_t& event, bool down)
{
    const std::uint32_t key = fKeyboard.NumberOf(event.detail, event.state);
    std::u16string text = down ? fKeyboard.TextOf(event.detail, event.state) : std::u16string();
    const QueuedMessage message = KeyMessage(key != 0 ? key : kPacketKey, event.detail, down);
    InjectInput({nullptr, message.number, message.first, message.second, TickCount(), event.root_x,
                 event.root_y},
                std::move(text));
}

// Buttons 4 to 7 are notches of the wheel, 8 and 9 those at the mouse's side.
void XcbDisplay::TakeButton(const xcb_button_press_event_t& event, bool down)
{
    struct Row {
        std::uint32_t number;
        std::uintptr_t flag;
    };
    constexpr Row kRows[] = {{kLeftDown, 1}, {kMiddleDown, 0x10}, {kRightDown, 2}};
    const std::uintptr_t held = HeldFlags(event.state);
    const std::uint32_t release = down ? 0 : 1;
    const auto turn = [&](std::uint32_t number, std::int32_t notches) {
        const auto high =
            static_cast<std::uintptr_t>(static_cast<std::uint16_t>(notches * kWheelStep)) << 16;
        if (down)
            Inject(number, held | high, event.root_x, event.root_y);
    };
    switch (event.detail) {
    case 1:
    case 2:
    case 3: {
        const Row& row = kRows[event.detail - 1];
        Inject(row.number + release, down ? held | row.flag : held & ~row.flag, event.root_x,
               event.root_y);
        break;
    }
    case 4:
    case 5:
        turn(kWheel, event.detail == 4 ? 1 : -1);
        break;
    case 6:
    case 7:
        turn(kSidewaysWheel, event.detail == 7 ? 1 : -1);
        break;
    case 8:
    case 9:
        Inject(kExtraDown + release, held | std::uintptr_t(event.detail - 7) << 16, event.root_x,
               event.root_y);
        break;
    default:
        break;
    }
}

// Focus that comes or goes with a grab, or by the pointer alone, is none.
void XcbDisplay::TakeFocus(const xcb_focus_in_event_t& event, bool in)
{
    if (event.mode == XCB_NOTIFY_MODE_GRAB || event.mode == XCB_NOTIFY_MODE_UNGRAB ||
        event.detail == XCB_NOTIFY_DETAIL_POINTER || event.detail == XCB_NOTIFY_DETAIL_INFERIOR)
        return;
    if (in)
        fFocused = event.event;
    else if (fFocused == event.event)
        fFocused = 0;
}

// Once all that has come is read: that it went from one window to another is one change.
void XcbDisplay::TellFocus()
{
    if (fFocused == fToldFocus)
        return;
    const Known* const before = Find(fToldFocus);
    const Known* const now = Find(fFocused);
    fToldFocus = fFocused;
    if (now != nullptr)
        PostToQueue(now->window->Handle(), kDisplayFocus, 1);
    else if (before != nullptr)
        PostToQueue(before->window->Handle(), kDisplayFocus, 0);
}

// What was shown is kept, so nobody is asked to paint.
void XcbDisplay::TakeExpose(const xcb_expose_event_t& event)
{
    const Known* const known = Find(event.window);
    if (known == nullptr)
        return;
    const PixelRect exposed{event.x, event.y, event.x + event.width, event.y + event.height};
    const auto present = [this](LinuxWindow& window, const PixelRect& rect) {
        const PixelRect kept =
            Intersect(rect, {0, 0, window.fPicture.Width(), window.fPicture.Height()});
        if (!kept.IsEmpty())
            Present(window, {&kept, 1});
    };
    present(*known->window, exposed);
    for (LinuxWindow* const child : known->window->fChildren)
        if (child->fShown)
            present(*child, Offset(exposed, -child->fContent.left, -child->fContent.top));
}

// Its size, or the desktop's settings, the scale among them.
void XcbDisplay::TellOfScreen()
{
    for (const auto& [number, known] : fWindows)
        PostToQueue(known.window->Handle(), kDisplayChange);
}

// Within a frame the display tells the place in the frame; the window manager tells it of the
// screen. What was meant before our own last request doesn't count any more.
void XcbDisplay::TakeConfigure(const xcb_configure_notify_event_t& event, bool isOfManager)
{
    if (event.window == fScreen->root)
        TellOfScreen();
    Known* const known = Find(event.window);
    if (known == nullptr)
        return;
    const auto sequence = reinterpret_cast<const xcb_generic_event_t&>(event).full_sequence;
    if (static_cast<std::int32_t>(sequence - known->placed) < 0)
        return;
    PixelPoint place{event.x, event.y};
    if (!isOfManager) {
        const Reply<xcb_translate_coordinates_reply_t> reply(xcb_translate_coordinates_reply(
            fConnection, xcb_translate_coordinates(fConnection, event.window, fScreen->root, 0, 0),
            nullptr));
        if (reply != nullptr)
            place = {reply->dst_x, reply->dst_y};
    }
    known->window->fServerContent = {place.x, place.y, place.x + event.width,
                                     place.y + event.height};
    PostToQueue(known->window->Handle(), kDisplayMoved);
}

void XcbDisplay::TakeClient(const xcb_client_message_event_t& event)
{
    const Known* const known = Find(event.window);
    if (known == nullptr || event.type != fAtoms[Atom::kProtocols])
        return;
    const xcb_atom_t protocol = event.data.data32[0];
    if (protocol == fAtoms[Atom::kPing])
        SendToRoot(fScreen->root, event.type, {protocol, event.data.data32[1], event.window, 0, 0});
    else if (protocol == fAtoms[Atom::kDeleteWindow])
        PostToQueue(known->window->Handle(), kDisplayClose);
}

void XcbDisplay::TakeProperty(const xcb_property_notify_event_t& event)
{
    if (event.window == fScreen->root && event.atom == XCB_ATOM_RESOURCE_MANAGER)
        TellOfScreen();
    Known* const known = Find(event.window);
    const bool isExtents = event.atom == fAtoms[Atom::kFrameExtents];
    if (known == nullptr || (!isExtents && event.atom != fAtoms[Atom::kState]))
        return;
    const Reply<xcb_get_property_reply_t> reply(
        xcb_get_property_reply(fConnection,
                               xcb_get_property(fConnection, 0, event.window, event.atom,
                                                XCB_GET_PROPERTY_TYPE_ANY, 0, 64),
                               nullptr));
    if (reply == nullptr || reply->format != 32)
        return;
    const auto* const values =
        static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
    const std::span<const std::uint32_t> all(values, reply->value_len);
    if (isExtents && all.size() >= 4) { // left, right, top, bottom
        const auto side = [&all](std::size_t i) { return static_cast<std::int32_t>(all[i]); };
        known->insets = {side(0), side(2), side(1), side(3)};
    } else if (!isExtents) {
        const auto has = [&](Atom atom) {
            return std::find(all.begin(), all.end(), fAtoms[atom]) != all.end();
        };
        const auto extent = has(Atom::kStateHidden)       ? LinuxWindow::Extent::kMinimized
                            : has(Atom::kStateMaximizedX) ? LinuxWindow::Extent::kMaximized
                                                          : LinuxWindow::Extent::kNormal;
        PostToQueue(known->window->Handle(), kDisplayExtent, static_cast<std::uintptr_t>(extent));
    }
}

} // namespace Platform
