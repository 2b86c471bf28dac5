// What a field of Linux does with keys and the mouse.
#include "platform/input/keyboard.h"
#include "platform/input/message_numbers.h"
#include "platform/input/system_timer.h"
#include "platform/system/machine.h"
#include "platform/windows/focus.h"
#include "platform/windows/linux/activation.h"
#include "platform/windows/linux/display.h"
#include "platform/windows/linux/edit_field.h"
#include "platform/windows/linux/key_number.h"
#include "platform/windows/mouse_state.h"

#include <algorithm>
#include <cstdlib>

namespace Platform {
namespace {

using namespace Number;

// Characters that Control makes of letters, and others that are commands.
enum Character : std::uint32_t {
    kControlA = 1,
    kControlC = 3,
    kBackspace = 8,
    kReturn = 13,
    kControlV = 22,
    kControlX = 24,
    kControlY = 25,
    kControlZ = 26,
    kWordBackspace = 127,
};

bool IsHeld(Key key)
{
    return IsKeyDown(key, KeyMoment::kLastMessage);
}

std::string ToUTF8(char32_t c)
{
    std::string text;
    if (c < 0x80)
        return {static_cast<char>(c)};
    const int more = c < 0x800 ? 1 : c < 0x10000 ? 2 : 3;
    constexpr unsigned char kFirst[] = {0, 0xC0, 0xE0, 0xF0};
    text += static_cast<char>(kFirst[more] | (c >> (6 * more)));
    for (int i = more - 1; i >= 0; --i)
        text += static_cast<char>(0x80 | ((c >> (6 * i)) & 0x3F));
    return text;
}

} // namespace

std::intptr_t EditField::Act(const WindowMessage& message)
{
    switch (message.number) {
    case kKeyDown:
        HandleKey(static_cast<std::uint32_t>(message.first));
        return 0;
    case kKeyChar:
        HandleCharacter(static_cast<std::uint32_t>(message.first));
        return 0;
    case kLeftDown:
        Press(message.Point(), IsHeld(Key::kShift));
        return 0;
    case kMouseMove:
        if (Captor() == this)
            Drag(message.Point());
        return 0;
    case kLeftUp:
        if (Captor() == this)
            SetCaptor(nullptr);
        return 0;
    case kSetCursor:
        Display::Get().ShowCursor(*this, fCursor);
        return 1;
    case kSetFocus:
        ShowCaret();
        return 0;
    case kKillFocus:
        HideCaret();
        return 0;
    case kTimer:
        BlinkCaret();
        return 0;
    default:
        return 0;
    }
}

void EditField::HandleKey(std::uint32_t key)
{
    const bool shift = IsHeld(Key::kShift);
    const bool control = IsHeld(Key::kControl);
    if (key == kDeleteKey && shift && !control)
        Cut();
    else if (key == kDeleteKey)
        DeleteByKey(true, control);
    else if (key == kInsertKey && shift)
        Paste();
    else if (key == kInsertKey && control)
        Copy();
    else
        MoveByKey(key, control, shift);
}

// A move without Shift out of a selection goes to its end on that side.
bool EditField::MoveByKey(std::uint32_t key, bool byWord, bool extend)
{
    const std::size_t caret = fModel.Caret();
    const bool leaves = fModel.HasSelection() && !extend && !byWord;
    const EditLayout::Row& row = fLayout.Rows()[fLayout.RowOf(caret)];
    const bool isLast = row.end == fModel.Text().size();
    const bool isBroken = !isLast && fModel.Text()[row.end] != '\n';
    switch (key) {
    case kLeftKey:
        MoveCaret(leaves ? fModel.From()
                         : (byWord ? fLayout.PreviousWord(caret) : fLayout.Previous(caret)),
                  extend);
        return true;
    case kRightKey:
        MoveCaret(leaves ? fModel.To() : (byWord ? fLayout.NextWord(caret) : fLayout.Next(caret)),
                  extend);
        return true;
    case kHomeKey:
        MoveCaret(byWord ? 0 : row.start, extend);
        return true;
    case kEndKey:
        MoveCaret(byWord ? fModel.Text().size() : (isBroken ? fLayout.Previous(row.end) : row.end),
                  extend);
        return true;
    case kUpKey:
    case kDownKey:
        MoveVertically(key == kUpKey ? -1 : 1, extend);
        return true;
    case kPageUpKey:
    case kPageDownKey:
        MoveVertically(key == kPageUpKey ? -RowsShown() : RowsShown(), extend);
        return true;
    default:
        return false;
    }
}

void EditField::MoveVertically(std::int32_t rows, bool extend)
{
    if (!fStyle.multiLine)
        return;
    const std::int32_t x = fWantedX.value_or(fLayout.XOf(fModel.Caret()));
    const auto last = static_cast<std::int32_t>(fLayout.Rows().size()) - 1;
    const auto here = static_cast<std::int32_t>(fLayout.RowOf(fModel.Caret()));
    const std::int32_t row = std::clamp(here + rows, 0, last);
    MoveCaret(fLayout.PositionIn(static_cast<std::size_t>(row), x), extend);
    fWantedX = x;
}

void EditField::DeleteByKey(bool forward, bool byWord)
{
    if (fStyle.readOnly)
        return;
    std::size_t from = fModel.From();
    std::size_t to = fModel.To();
    if (!fModel.HasSelection() && forward)
        to = byWord ? fLayout.NextWord(to) : fLayout.Next(to);
    else if (!fModel.HasSelection())
        from = byWord ? fLayout.PreviousWord(from) : fLayout.Previous(from);
    Change(from, to, {}, false);
}

void EditField::HandleCharacter(std::uint32_t unit)
{
    // What is typed with Control comes as a control character.
    switch (unit) {
    case kControlA:
        fModel.Select(0, fModel.Text().size());
        ShowCaret();
        return;
    case kControlC:
        Copy();
        return;
    case kControlV:
        Paste();
        return;
    case kControlX:
        Cut();
        return;
    case kControlY:
        Redo();
        return;
    case kControlZ:
        IsHeld(Key::kShift) ? Redo() : Undo();
        return;
    case kBackspace:
    case kWordBackspace:
        DeleteByKey(false, unit == kWordBackspace || IsHeld(Key::kControl));
        return;
    case kReturn:
        if (fStyle.multiLine && !fStyle.readOnly)
            Change(fModel.From(), fModel.To(), "\n", true);
        return;
    default:
        break;
    }
    const auto half = static_cast<char16_t>(unit);
    if (unit >= 32 && !fStyle.readOnly)
        Type({&half, 1});
}

// A character may come as two units, one after the other.
void EditField::Type(std::u16string_view units)
{
    for (const char16_t unit : units) {
        char32_t character = unit;
        if ((unit & 0xFC00) == 0xD800) {
            fHighHalf = unit;
            continue;
        }
        if ((unit & 0xFC00) == 0xDC00) {
            if (fHighHalf == 0)
                continue;
            character = 0x10000 + ((char32_t{fHighHalf} & 0x3FF) << 10) + (unit & 0x3FF);
        }
        fHighHalf = 0;
        Change(fModel.From(), fModel.To(), ToUTF8(character), true);
    }
}

std::size_t EditField::PositionAtPoint(PixelPoint point) const
{
    return fLayout.PositionAt(point.x + fScroll.x, point.y + fScroll.y);
}

TextRange EditField::GrainAt(std::size_t position) const
{
    if (fGrain == Grain::kCharacter)
        return {position, position};
    if (fGrain == Grain::kWord)
        return fLayout.WordAt(position);
    const std::string& text = fModel.Text();
    const std::size_t before = position == 0 ? text.npos : text.rfind('\n', position - 1);
    return {before == text.npos ? 0 : before + 1, std::min(text.find('\n', position), text.size())};
}

// The second press at one place selects the word, the third the line.
void EditField::Press(PixelPoint point, bool extend)
{
    constexpr int kNear = 4; // pixels
    const std::uint32_t now = TickCount();
    const bool again = now - fLastPressTime <= DoubleClickTime() &&
                       std::abs(point.x - fLastPress.x) < kNear &&
                       std::abs(point.y - fLastPress.y) < kNear;
    fPressCount = again && fPressCount < 3 ? fPressCount + 1 : 1;
    fLastPress = point;
    fLastPressTime = now;
    fGrain = fPressCount == 1 ? Grain::kCharacter : fPressCount == 2 ? Grain::kWord : Grain::kLine;
    if (!HasKeyboard())
        MakeFocused(ChildHandle());
    SetCaptor(this);
    const std::size_t position = PositionAtPoint(point);
    if (extend) {
        MoveCaret(position, true);
        fPressed = {fModel.From() == position ? fModel.To() : fModel.From(), position};
        fPressed.to = fPressed.from;
        return;
    }
    fPressed = GrainAt(position);
    fModel.Select(fPressed.from, fPressed.to);
    fWantedX.reset();
    RevealCaret();
    ShowCaret();
}

void EditField::Drag(PixelPoint point)
{
    const TextRange here = GrainAt(PositionAtPoint(point));
    if (here.from < fPressed.from)
        fModel.Select(fPressed.to, here.from);
    else
        fModel.Select(fPressed.from, std::max(here.to, fPressed.to));
    RevealCaret();
    ShowCaret();
}

} // namespace Platform
