// The keys and mouse buttons that are down, whichever window the keyboard writes to.
#pragma once

namespace Platform {

// Numbers of keys and mouse buttons; those of Windows on every system.
enum class Key : int {
    kLeftButton = 0x01,
    kRightButton = 0x02,
    kMiddleButton = 0x04,
    kBackwardButton = 0x05,
    kForwardButton = 0x06,
    kShift = 0x10,
    kControl = 0x11,
    kAlt = 0x12,
    kCapsLock = 0x14,
    kEscape = 0x1B,
    kSpace = 0x20,
};

// Which moment a question is about.
enum class KeyMoment {
    kLastMessage, // when the message was made that this thread took last from its queue
    kNow,
};

bool IsKeyDown(Key key, KeyMoment moment);

// True when a lock key is on, as of the last message.
bool IsKeyOn(Key key);

struct ModifierKeys {
    bool control = false;
    bool alt = false;
    bool shift = false;
};

// At this moment. Without a keyboard to ask (a Linux session with no display) no key is down.
ModifierKeys HeldModifierKeys();

} // namespace Platform
