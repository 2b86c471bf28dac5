#include "platform/windows/linux/xcb/atoms.h"

#include "platform/system/linux/xcb_reply.h"

#include <string_view>

namespace Platform {
namespace {

constexpr std::array<std::string_view, static_cast<std::size_t>(Atom::kCount)> kNames = {
    "WM_PROTOCOLS",
    "WM_DELETE_WINDOW",
    "_NET_WM_PING",
    "UTF8_STRING",
    "_NET_WM_NAME",
    "_NET_WM_WINDOW_TYPE",
    "_NET_WM_WINDOW_TYPE_NORMAL",
    "_NET_WM_WINDOW_TYPE_DIALOG",
    "_NET_WM_WINDOW_TYPE_UTILITY",
    "_NET_WM_WINDOW_TYPE_TOOLBAR",
    "_NET_WM_WINDOW_TYPE_POPUP_MENU",
    "_NET_WM_STATE",
    "_NET_WM_STATE_MODAL",
    "_NET_WM_STATE_MAXIMIZED_HORZ",
    "_NET_WM_STATE_MAXIMIZED_VERT",
    "_NET_WM_STATE_HIDDEN",
    "_NET_FRAME_EXTENTS",
    "_MOTIF_WM_HINTS",
    "WM_CHANGE_STATE",
    "CLIPBOARD",
    "TARGETS",
    "TEXT",
    "INCR",
    "KESTO_TRANSFER",
};

} // namespace

// All are asked for before the first answer is waited for.
Atoms::Atoms(xcb_connection_t* connection)
{
    std::array<xcb_intern_atom_cookie_t, kNames.size()> cookies{};
    for (std::size_t i = 0; i < kNames.size(); ++i)
        cookies[i] = xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(kNames[i].size()),
                                     kNames[i].data());
    for (std::size_t i = 0; i < kNames.size(); ++i) {
        const Reply<xcb_intern_atom_reply_t> reply(
            xcb_intern_atom_reply(connection, cookies[i], nullptr));
        fAtoms[i] = reply != nullptr ? reply->atom : XCB_NONE;
    }
}

} // namespace Platform
