#include "platform/input/injection.h"

#include "platform/input/linux/input.h"
#include "platform/input/linux/key_message.h"
#include "platform/input/message_numbers.h"
#include "platform/input/pointer.h"
#include "platform/system/machine.h"

#include <string>

namespace Platform {
namespace {

using namespace Number;

// Which buttons are down, as the first parameter of a mouse message tells it.
std::uintptr_t HeldButtons()
{
    constexpr std::pair<Key, std::uintptr_t> kFlags[] = {
        {Key::kLeftButton, 1},      {Key::kRightButton, 2},     {Key::kShift, 4},
        {Key::kControl, 8},         {Key::kMiddleButton, 0x10}, {Key::kBackwardButton, 0x20},
        {Key::kForwardButton, 0x40}};
    std::uintptr_t flags = 0;
    for (const auto& [key, flag] : kFlags)
        flags |= IsKeyDown(key, KeyMoment::kNow) ? flag : 0;
    return flags;
}

void InjectMouse(std::uint32_t number, std::uintptr_t first, PixelPoint point)
{
    InjectInput({nullptr, number, first, 0, TickCount(), point.x, point.y});
}

// What a key types on any keyboard: letters and digits themselves, and with Control the letters'
// commands.
std::u16string UsualText(std::uint32_t key)
{
    const bool shift = IsKeyDown(Key::kShift, KeyMoment::kNow);
    const bool control = IsKeyDown(Key::kControl, KeyMoment::kNow);
    const auto unit = static_cast<char16_t>(key);
    if (key >= 'A' && key <= 'Z') {
        const int smaller = control ? 'A' - 1 : shift ? 0 : 'A' - 'a';
        return {static_cast<char16_t>(unit - smaller)};
    }
    constexpr std::uint32_t kBackspace = 0x08;
    constexpr char16_t kWordBackspace = 0x7F;
    if (key == kBackspace)
        return {control ? kWordBackspace : unit};
    const bool isItself = key == u'\t' || key == u'\r' || key == 0x1B || key == u' ' ||
                          (key >= '0' && key <= '9' && !shift);
    return isItself && !control ? std::u16string{unit} : std::u16string();
}

} // namespace

void InjectMove(PixelPoint point)
{
    InjectMouse(kMouseMove, HeldButtons(), point);
}

void InjectButton(Key button, bool down)
{
    const PixelPoint point = CursorPosition();
    const std::uint32_t release = down ? 0 : 1;
    const std::uintptr_t held = HeldButtons();
    switch (button) {
    case Key::kLeftButton:
        InjectMouse(kLeftDown + release, down ? held | 1 : held & ~std::uintptr_t{1}, point);
        break;
    case Key::kRightButton:
        InjectMouse(kRightDown + release, down ? held | 2 : held & ~std::uintptr_t{2}, point);
        break;
    case Key::kMiddleButton:
        InjectMouse(kMiddleDown + release, down ? held | 0x10 : held & ~std::uintptr_t{0x10},
                    point);
        break;
    case Key::kBackwardButton:
        // The upper word tells which of the extra buttons it is.
        InjectMouse(kExtraDown + release, held | 1U << 16, point);
        break;
    case Key::kForwardButton:
        InjectMouse(kExtraDown + release, held | 2U << 16, point);
        break;
    default:
        break;
    }
}

void InjectWheel(std::int32_t right, std::int32_t up)
{
    const auto inject = [](std::uint32_t number, std::int32_t turn) {
        const auto high = static_cast<std::uintptr_t>(static_cast<std::uint16_t>(turn)) << 16;
        if (turn != 0)
            InjectMouse(number, HeldButtons() | high, CursorPosition());
    };
    inject(kWheel, up);
    inject(kSidewaysWheel, right);
}

void InjectKey(std::uint32_t key, bool down, std::u16string_view text)
{
    const std::u16string usual = down && text.empty() ? UsualText(key) : std::u16string(text);
    const PixelPoint point = CursorPosition();
    const QueuedMessage message = KeyMessage(key, 0, down);
    InjectInput(
        {nullptr, message.number, message.first, message.second, TickCount(), point.x, point.y},
        usual);
}

// As a key that types a character and does nothing else.
void InjectCharacter(char32_t character)
{
    std::u16string text;
    if (character < 0x10000)
        text = static_cast<char16_t>(character);
    else
        text = {static_cast<char16_t>(0xD7C0 + (character >> 10)),
                static_cast<char16_t>(0xDC00 + (character & 0x3FF))};
    InjectKey(kPacketKey, true, text);
    InjectKey(kPacketKey, false);
}

} // namespace Platform
