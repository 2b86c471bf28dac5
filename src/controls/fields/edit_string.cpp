#include "controls/fields/edit_string.h"

#include "controls/base/child_place.h"
#include "foundation/alerts/reporter.h"
#include "foundation/base/text_characters.h"
#include "foundation/errors/system_checks.h"
#include "platform/system/errors.h"
#include "view/messages/message.h"
#include "view/tree/view_hold.h"

#include <algorithm>

namespace Kesto {
namespace {

// Seconds between two looks at a text that may have changed without a word: by an input method, or
// by a program that reads the screen to the blind.
constexpr double kLookPeriod = 3.0;

} // namespace

CEditString::CEditString(const Rect& frame, CObjID id, std::uint32_t options, std::uint32_t binding)
    : CSystemControl(frame, id, options, binding), CTimer(kLookPeriod)
{
    SetCursor(Platform::Cursor(Platform::CursorShape::kText), true);
}

CEditString::~CEditString()
{
    DropControl();
}

bool CEditString::CanUndo() const
{
    const Platform::EditControl* const edit = Edit();
    return edit != nullptr && edit->CanUndo();
}

Platform::EditControl* CEditString::Edit() const
{
    return static_cast<Platform::EditControl*>(GetControl());
}

std::unique_ptr<Platform::ChildControl> CEditString::MakeControl(Platform::NativeWindow window)
{
    const Platform::EditStyle style{.multiLine = HasTextOption(kEdit_MultiLine),
                                    .wraps = HasTextOption(kEdit_MultiLine) &&
                                             !HasTextOption(kEdit_CanScroll),
                                    .readOnly = HasTextOption(kEdit_ReadOnly),
                                    .password = HasTextOption(kEdit_Password),
                                    .side = Side()};
    Platform::SetLastError(0);
    auto edit = Platform::MakeEditControl(window, style, Look(), *this);
    OSThrowLastNull(edit.get(), __FILE__, __LINE__);
    edit->SetLimit(fMaxChars);
    edit->SetText(fText.View());
    edit->Select(fSelection);
    return edit;
}

void CEditString::WillDropControl()
{
    fText = GetText();
    fSelection = GetSelection();
}

CText CEditString::GetText() const
{
    return Edit() != nullptr ? CText(Edit()->Text()) : fText;
}

void CEditString::SetText(const CText& text)
{
    PutText(text);
    fSent = text;
}

// Afterwards the caret is at the start, whatever was selected.
void CEditString::PutText(const CText& text)
{
    fIsEdited = false;
    if (text == GetText())
        return;
    fText = text;
    fSelection = {};
    if (Edit() != nullptr)
        Edit()->SetText(text.View());
    Grow();
    InvalidateAll();
}

void CEditString::SelectAll()
{
    Select(0, GetText().CharCount());
}

void CEditString::Select(std::size_t from, std::size_t to)
{
    const std::size_t end = GetText().CharCount();
    fSelection = {std::min(from, end), std::min(to, end)};
    if (Edit() != nullptr)
        Edit()->Select(fSelection);
}

Platform::TextRange CEditString::GetSelection() const
{
    return Edit() != nullptr ? Edit()->Selection() : fSelection;
}

void CEditString::ReplaceSelection(const CText& text)
{
    if (Edit() != nullptr) {
        Edit()->ReplaceSelection(text.View());
        return;
    }
    const auto [from, to] = std::minmax(fSelection.from, fSelection.to);
    fText = ReplaceText(fText, from, to, text.View());
    fSelection.from = fSelection.to = from + text.CharCount();
    TextChanged();
}

void CEditString::SetTextOptions(std::uint32_t options)
{
    fTextFlags = (fTextFlags & ~kText_Options) | (options & kText_Options);
    if (Edit() != nullptr)
        Edit()->SetReadOnly(HasTextOption(kEdit_ReadOnly));
    LookChanged();
    InvalidateAll();
}

void CEditString::PutTextFlag(std::uint32_t flag, bool on)
{
    fTextFlags = on ? fTextFlags | flag : fTextFlags & ~flag;
}

void CEditString::SetMaxChars(std::size_t characters)
{
    fMaxChars = characters;
    if (Edit() != nullptr)
        Edit()->SetLimit(characters);
}

void CEditString::SetTextAlign(std::int32_t x, std::int32_t y)
{
    fAlignX = x;
    fAlignY = y;
    InvalidateAll();
}

void CEditString::SetFont(EFontKind font)
{
    fFont = font;
    LookChanged();
    InvalidateAll();
}

// A message may end the field.
void CEditString::TextChanged()
{
    const CViewHold hold(*this);
    fIsEdited = true;
    Grow();
    InvalidateAll();
    Handled([this] { TextWasEdited(); });
}

void CEditString::TextWasEdited()
{
    CheckLiveValue();
}

void CEditString::CheckLiveValue()
{
    const CText text = GetText();
    if (text == fSent)
        return;
    fSent = text;
    SendText(kPhase_Live);
}

bool CEditString::CommitWith(std::uint32_t phase, bool /*mayAlert*/)
{
    fSent = GetText();
    if (std::exchange(fIsEdited, false))
        SendText(phase);
    return true;
}

void CEditString::SendText(std::uint32_t phase)
{
    if (GetID().IsNone())
        return;
    CValueMessage message(this, GetID(), phase);
    Send(message);
}

void CEditString::DidBecomeBullseye()
{
    const CViewHold hold(*this);
    CSystemControl::DidBecomeBullseye();
    if (hold.IsOver())
        return;
    Start();
    InvalidateAll();
}

void CEditString::DidLoseBullseye()
{
    const CViewHold hold(*this);
    CSystemControl::DidLoseBullseye();
    Stop();
    InvalidateAll();
    if (!hold.IsOver())
        CommitWith(kPhase_Leave, false);
}

void CEditString::Fire(double, double)
{
    const CViewHold hold(*this);
    CheckLiveValue();
}

void CEditString::MouseEnter(const CMouseEvent&)
{
    fIsHot = true;
    InvalidateAll();
}

void CEditString::MouseExit()
{
    fIsHot = false;
    InvalidateAll();
}

} // namespace Kesto
