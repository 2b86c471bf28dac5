// The clipboard: text that this process owns is handed to others when they ask, and that of others
// is asked for.
#include "platform/system/linux/xcb_reply.h"
#include "platform/system/machine.h"
#include "platform/windows/linux/xcb/xcb_display.h"

#include <algorithm>
#include <cstdlib>
#include <poll.h>

namespace Platform {
namespace {

constexpr std::uint32_t kPatience = 1000; // milliseconds for another program to answer
constexpr std::uint32_t kMostWords = 4U << 20;

} // namespace

bool XcbDisplay::SetClipboardText(std::string_view text)
{
    fClipboard = text;
    fOwnsClipboard = true;
    xcb_set_selection_owner(fConnection, fHelper, fAtoms[Atom::kClipboard], XCB_CURRENT_TIME);
    xcb_flush(fConnection);
    return !fIsLost;
}

std::optional<std::string> XcbDisplay::ClipboardText()
{
    // Asking the server for what this process owns would wait for an answer that nobody sends
    // meanwhile.
    if (fOwnsClipboard || fIsLost)
        return fClipboard;
    xcb_convert_selection(fConnection, fHelper, fAtoms[Atom::kClipboard], fAtoms[Atom::kUTF8],
                          fAtoms[Atom::kTransfer], XCB_CURRENT_TIME);
    const Event notice = AwaitEvent([this](const xcb_generic_event_t& event) {
        return (event.response_type & 0x7F) == XCB_SELECTION_NOTIFY &&
               reinterpret_cast<const xcb_selection_notify_event_t&>(event).requestor == fHelper;
    });
    if (notice == nullptr ||
        reinterpret_cast<const xcb_selection_notify_event_t&>(*notice).property == XCB_NONE)
        return std::nullopt;
    xcb_atom_t type = XCB_NONE;
    std::string text = TakeTransfer(type);
    if (type == fAtoms[Atom::kIncremental])
        text = TakeInPieces();
    return text;
}

// Long texts come piece by piece; each one that is taken asks for the next, and an empty one ends
// them.
std::string XcbDisplay::TakeInPieces()
{
    std::string text;
    while (true) {
        const Event notice = AwaitEvent([this](const xcb_generic_event_t& event) {
            const auto& property = reinterpret_cast<const xcb_property_notify_event_t&>(event);
            return (event.response_type & 0x7F) == XCB_PROPERTY_NOTIFY &&
                   property.window == fHelper && property.atom == fAtoms[Atom::kTransfer] &&
                   property.state == XCB_PROPERTY_NEW_VALUE;
        });
        xcb_atom_t type = XCB_NONE;
        const std::string piece = notice != nullptr ? TakeTransfer(type) : std::string();
        if (piece.empty())
            return text;
        text += piece;
    }
}

std::string XcbDisplay::TakeTransfer(xcb_atom_t& type)
{
    const Reply<xcb_get_property_reply_t> reply(
        xcb_get_property_reply(fConnection,
                               xcb_get_property(fConnection, 1, fHelper, fAtoms[Atom::kTransfer],
                                                XCB_GET_PROPERTY_TYPE_ANY, 0, kMostWords),
                               nullptr));
    if (reply == nullptr)
        return {};
    type = reply->type;
    if (reply->format != 8)
        return {};
    return {static_cast<const char*>(xcb_get_property_value(reply.get())), reply->value_len};
}

// Other events wait for the next reading. Null when the answer doesn't come.
XcbDisplay::Event
XcbDisplay::AwaitEvent(const std::function<bool(const xcb_generic_event_t&)>& wanted)
{
    const std::uint32_t start = TickCount();
    xcb_flush(fConnection);
    while (TickCount() - start < kPatience && xcb_connection_has_error(fConnection) == 0) {
        Event event(xcb_poll_for_event(fConnection), std::free);
        if (event == nullptr) {
            pollfd descriptor{xcb_get_file_descriptor(fConnection), POLLIN, 0};
            poll(&descriptor, 1, 10);
        } else if (wanted(*event))
            return event;
        else if ((event->response_type & 0x7F) == XCB_SELECTION_REQUEST)
            AnswerRequest(reinterpret_cast<const xcb_selection_request_event_t&>(*event));
        else
            fPending.push_back(std::move(event));
    }
    return {nullptr, std::free};
}

// A refusal names no property.
void XcbDisplay::AnswerRequest(const xcb_selection_request_event_t& event)
{
    const xcb_atom_t property = event.property != XCB_NONE ? event.property : event.target;
    const xcb_atom_t kinds[] = {fAtoms[Atom::kUTF8], fAtoms[Atom::kText], XCB_ATOM_STRING};
    const bool isText =
        std::find(std::begin(kinds), std::end(kinds), event.target) != std::end(kinds);
    xcb_selection_notify_event_t answer{};
    answer.response_type = XCB_SELECTION_NOTIFY;
    answer.time = event.time;
    answer.requestor = event.requestor;
    answer.selection = event.selection;
    answer.target = event.target;
    answer.property = property;
    const std::size_t room = std::size_t{xcb_get_maximum_request_length(fConnection)} * 4 - 64;
    if (event.target == fAtoms[Atom::kTargets])
        SetAtoms(event.requestor, property, kinds);
    else if (isText && fClipboard && fClipboard->size() < room)
        SetText(event.requestor, property, fAtoms[Atom::kUTF8], *fClipboard);
    else
        answer.property = XCB_NONE;
    xcb_send_event(fConnection, 0, event.requestor, 0, reinterpret_cast<const char*>(&answer));
    xcb_flush(fConnection);
}

} // namespace Platform
