// Which keys edit, and which go on to the window.
#include "controls/fields/edit_string.h"
#include "platform/input/message_numbers.h"
#include "view/messages/key_codes.h"
#include "view/messages/message_ids.h"
#include "view/tree/view_hold.h"

#include <algorithm>
#include <array>
#include <utility>

namespace Kesto {
namespace {

constexpr std::uint32_t kTab = '\t';
constexpr std::uint32_t kEscape = 0x1B;
constexpr std::uint32_t kLineFeed = '\n';
constexpr std::uint32_t kReturn = '\r';
constexpr std::uint32_t kDelete = 0x7F;
constexpr std::uint32_t kLastFunctionKey = 0x87; // F24

bool IsControlCharacter(std::uint32_t character)
{
    return character < ' ' || character == kDelete;
}

// Characters beyond the first plane come as two units of UTF-16.
bool IsSecondHalf(std::uint32_t unit)
{
    return (unit & 0xFFFFFC00) == 0xDC00;
}

bool IsVertical(std::uint32_t key)
{
    return key == kKeyCode_Up || key == kKeyCode_Down || key == kKeyCode_PageUp ||
           key == kKeyCode_PageDown;
}

// What edits with Control: select all, copy, paste, cut, redo, undo; and moves by words.
bool EditsWithControl(std::uint32_t key)
{
    constexpr std::array<std::uint32_t, 14> kKeys{'A',
                                                  'C',
                                                  'V',
                                                  'X',
                                                  'Y',
                                                  'Z',
                                                  kKeyCode_Left,
                                                  kKeyCode_Right,
                                                  kKeyCode_Home,
                                                  kKeyCode_End,
                                                  kKeyCode_Delete,
                                                  kKeyCode_Backspace,
                                                  kKeyCode_Insert,
                                                  0x11};
    return std::find(kKeys.begin(), kKeys.end(), key) != kKeys.end();
}

} // namespace

// What the field lets through to its text ends here for all others.
bool CEditString::Intercept(const Platform::WindowMessage& message)
{
    using namespace Platform::Number;
    const CViewHold hold(*this);
    fGoesToControl = false;
    const bool taken = InterceptMessage(message);
    if (hold.IsOver() || message.number < kKeyFirst || message.number > kSysDeadChar)
        return taken;
    if (std::exchange(fGoesToControl, false))
        return false;
    return taken || message.number < kSysKeyDown;
}

void CEditString::ChildFocused(bool)
{
    InvalidateAll();
}

bool CEditString::HandleKey(CKeyboardMessage& message)
{
    if (!IsBullseye())
        return CSystemControl::HandleKey(message);
    const CViewHold hold(*this);
    bool eaten = HandleEditKey(message);
    if (!eaten && !hold.IsOver())
        HandleFieldKey(message, eaten);
    if (eaten || hold.IsOver())
        return true;
    switch (UseOf(message)) {
    case Use::kText:
        fGoesToControl = true;
        return true;
    case Use::kNobody:
        return true;
    case Use::kWindow:
        break;
    }
    return CSystemControl::HandleKey(message);
}

// Return takes over what was typed before the window's default button hears of it.
void CEditString::HandleFieldKey(CKeyboardMessage& message, bool& eaten)
{
    if (message.fID != kMessage_KeyDown || message.fKeyCode != kKeyCode_Return || IsNewLine())
        return;
    eaten = message.fRepeated != 0 || !CommitWith(kPhase_Return, true);
}

bool CEditString::IsNewLine() const
{
    return HasTextOption(kEdit_MultiLine) && !HasTextOption(kEdit_ReturnIsEnter);
}

CEditString::Use CEditString::UseOf(const CKeyboardMessage& message) const
{
    const std::uint32_t key = message.fKeyCode;
    if (message.fID == kMessage_KeyChar) {
        const std::uint32_t character = message.fChar;
        const bool isReturn = character == kReturn || character == kLineFeed;
        if (character == kTab || character == kEscape || (isReturn && !IsNewLine()))
            return Use::kWindow;
        return FilterKey(message) ? Use::kText : Use::kNobody;
    }
    if (message.fID == kMessage_KeyDeadChar)
        return Use::kText;
    if (message.fID != kMessage_KeyDown && message.fID != kMessage_KeyUp)
        return Use::kWindow;
    if (key == kKeyCode_Tab || key == kKeyCode_Escape || (key == kKeyCode_Return && !IsNewLine()) ||
        (IsVertical(key) && !HasTextOption(kEdit_MultiLine)))
        return Use::kWindow;
    if (key >= kKeyCode_F1 && key <= kLastFunctionKey)
        return HasTextOption(kEdit_IgnoreFKeys) ? Use::kNobody : Use::kWindow;
    // With Control and Alt together some layouts type characters.
    constexpr std::uint32_t kBoth = CMessage::kModifier_Control | CMessage::kModifier_Alt;
    if ((message.fModifiers & kBoth) == CMessage::kModifier_Control)
        return EditsWithControl(key) ? Use::kText : Use::kWindow;
    return Use::kText;
}

bool CEditString::FilterKey(const CKeyboardMessage& message) const
{
    if (IsControlCharacter(message.fChar))
        return true;
    if (HasTextOption(kEdit_ReadOnly))
        return false;
    if (IsSecondHalf(message.fChar))
        return true; // of a character that was let in
    const Platform::TextRange selection = GetSelection();
    return fMaxChars == 0 || selection.from != selection.to || GetText().CharCount() < fMaxChars;
}

} // namespace Kesto
