// The keyboard of the display: which key is which, and what it types.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <xcb/xcb.h>
#include <xkbcommon/xkbcommon-compose.h>
#include <xkbcommon/xkbcommon.h>

namespace Platform {

class KeyboardMap {
public:
    explicit KeyboardMap(xcb_connection_t* connection);

    // Reads the map anew, after the user has changed it.
    void Reload();

    // The number of a key by its code and the modifiers of its event; 0 for keys that have none.
    std::uint32_t NumberOf(std::uint8_t code, std::uint16_t modifiers);

    // What a press types. A dead key, or one that begins a composition, types nothing; the one that
    // ends it types the result.
    std::u16string TextOf(std::uint8_t code, std::uint16_t modifiers);

private:
    struct Free {
        void operator()(xkb_context* context) const { xkb_context_unref(context); }
        void operator()(xkb_keymap* map) const { xkb_keymap_unref(map); }
        void operator()(xkb_state* state) const { xkb_state_unref(state); }
        void operator()(xkb_compose_table* table) const { xkb_compose_table_unref(table); }
        void operator()(xkb_compose_state* state) const { xkb_compose_state_unref(state); }
    };
    template <class T>
    using Owned = std::unique_ptr<T, Free>;

    void ReadMap();
    static void Follow(xkb_state* state, std::uint16_t modifiers);

    xcb_connection_t* fConnection; // not owned
    Owned<xkb_context> fContext;
    Owned<xkb_keymap> fMap;
    Owned<xkb_state> fState;
    Owned<xkb_keymap> fLatinMap; // for layouts whose letters have no numbers
    Owned<xkb_state> fLatinState;
    Owned<xkb_compose_table> fComposeTable;
    Owned<xkb_compose_state> fCompose;
};

} // namespace Platform
