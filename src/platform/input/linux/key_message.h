// Messages of keys as they leave the keyboard.
#pragma once

#include "platform/input/message_queue.h"

#include <cstdint>

namespace Platform {

// The number of a key that types what no key is marked with.
inline constexpr std::uint32_t kPacketKey = 0xE7;

// A press or release by the key's number and what `scan` the keyboard calls it, with the states of
// keys as they are now: with Alt and without Control it is one of the system's numbers, and a press
// of a key that is down already says so.
QueuedMessage KeyMessage(std::uint32_t key, std::uint32_t scan, bool down);

} // namespace Platform
