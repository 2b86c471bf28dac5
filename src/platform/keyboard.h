// The keys that are down at this moment, whichever window the keyboard writes to.
#pragma once

namespace Platform {

struct ModifierKeys {
    bool control = false;
    bool alt = false;
    bool shift = false;
};

// Without a keyboard to ask (a Linux session with no display) no key is down.
ModifierKeys HeldModifierKeys();

} // namespace Platform
