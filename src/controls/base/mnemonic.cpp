#include "controls/base/mnemonic.h"

#include "controls/base/child_place.h"
#include "drawing/ports/drawing_state.h"
#include "foundation/base/unicode.h"
#include "platform/windows/keyboard_cues.h"
#include "view/messages/message_ids.h"

#include <optional>

namespace Kesto {
namespace {

std::optional<std::uint32_t> MnemonicOf(std::string_view label)
{
    while (!label.empty()) {
        if (TakeCharacter(label) != '&' || label.empty())
            continue;
        const std::uint32_t character = TakeCharacter(label);
        if (character != '&')
            return character;
    }
    return std::nullopt;
}

// What capitals and small letters have in common, for the letters of western alphabets.
std::uint32_t Folded(std::uint32_t character)
{
    const bool isSmallAscii = character >= 'a' && character <= 'z';
    const bool isSmallLatin = character >= 0xE0 && character <= 0xFE && character != 0xF7;
    const bool isSmallGreekOrCyrillic =
        (character >= 0x3B1 && character <= 0x3C9) || (character >= 0x430 && character <= 0x44F);
    return isSmallAscii || isSmallLatin || isSmallGreekOrCyrillic ? character - 0x20 : character;
}

} // namespace

bool HasMnemonic(std::string_view label)
{
    return MnemonicOf(label).has_value();
}

bool IsMnemonicOf(std::string_view label, const CKeyboardMessage& message)
{
    if (message.fID != kMessage_SysKeyChar || message.fRepeated != 0)
        return false;
    const std::optional<std::uint32_t> mnemonic = MnemonicOf(label);
    return mnemonic && Folded(*mnemonic) == Folded(message.fChar);
}

std::uint32_t MnemonicFlag(const CPane& pane)
{
    return Platform::ShowsKeyboardCues(NativeWindowOf(pane)) ? kText_Mnemonic : kText_HideMnemonic;
}

} // namespace Kesto
