#include "platform/input/linux/key_message.h"

#include "platform/input/keyboard.h"
#include "platform/input/message_numbers.h"

namespace Platform {
namespace {

constexpr std::uint32_t kF10 = 0x79;

bool IsDown(Key key)
{
    return IsKeyDown(key, KeyMoment::kNow);
}

} // namespace

// Bits of the second parameter: one repeat, the scan code, Alt held (29), down before (30), goes
// up (31).
QueuedMessage KeyMessage(std::uint32_t key, std::uint32_t scan, bool down)
{
    const bool isAlt = key == static_cast<std::uint32_t>(Key::kAlt);
    const bool alt = IsDown(Key::kAlt) || (isAlt && down);
    const bool isOfSystem = (alt && !IsDown(Key::kControl)) || key == kF10;
    const bool before = IsDown(static_cast<Key>(key));
    const std::uint32_t bits = 1U | (scan & 0xFF) << 16 | (alt ? 1U << 29 : 0) |
                               (before ? 1U << 30 : 0) | (down ? 0 : 1U << 31);
    QueuedMessage message;
    message.number = (isOfSystem ? Number::kSysKeyDown : Number::kKeyDown) + (down ? 0 : 1);
    message.first = key;
    message.second = static_cast<std::int32_t>(bits);
    return message;
}

} // namespace Platform
