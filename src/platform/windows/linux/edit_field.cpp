#include "platform/windows/linux/edit_field.h"

#include "platform/graphics/canvas.h"
#include "platform/input/stopped_exception.h"
#include "platform/input/system_timer.h"
#include "platform/system/errors.h"
#include "platform/windows/clipboard.h"
#include "platform/windows/focus.h"

#include <algorithm>
#include <cerrno>
#include <cmath>

namespace Platform {
namespace {

constexpr std::uintptr_t kCaretTimer = 1;
constexpr std::uint32_t kCaretPeriod = 530;  // milliseconds that the caret is on, and off
constexpr int kCaretBlinks = 9;              // without a key, then it stays on and costs nothing
constexpr std::int32_t kPixelsPerCaret = 11; // of the font, for each of the caret's width

void FillRect(const Bitmap& picture, const PixelRect& rect, Colour colour)
{
    const PixelRect cut = Intersect(rect, {0, 0, picture.Width(), picture.Height()});
    const std::uint32_t pixel = PremultipliedPixel(colour);
    for (std::int32_t y = cut.top; y < cut.bottom; ++y) {
        auto* const row = reinterpret_cast<std::uint32_t*>(picture.Bits() + y * picture.RowBytes());
        std::fill(row + cut.left, row + std::max(cut.right, cut.left), pixel);
    }
}

} // namespace

EditField::EditField(LinuxWindow& parent, const EditStyle& style, const EditLook& look,
                     EditHandler& handler)
    : ChildWindow(parent, handler), fHandler(handler), fStyle(style), fLook(look)
{
    fCursor = Cursor(CursorShape::kText);
    Arrange();
}

EditField::~EditField() = default;

void EditField::Place(const PixelRect& rect)
{
    PlaceChild(rect);
    Arrange();
    RevealCaret();
}

void EditField::SetLook(const EditLook& look)
{
    fLook = look;
    Arrange();
    RevealCaret();
    if (IsVisible())
        Redraw();
}

void EditField::SetText(std::string_view text)
{
    fModel.SetText(text);
    fScroll = {};
    Changed(false);
}

void EditField::Select(TextRange range)
{
    fModel.Select(fModel.PositionOf(range.from), fModel.PositionOf(range.to));
    fWantedX.reset();
    RevealCaret();
    ShowCaret();
}

TextRange EditField::Selection() const
{
    return {fModel.CharacterOf(fModel.From()), fModel.CharacterOf(fModel.To())};
}

void EditField::ReplaceSelection(std::string_view text)
{
    Change(fModel.From(), fModel.To(), text, false);
    ThrowStopped();
}

// A password is never handed out.
void EditField::Copy()
{
    if (fModel.HasSelection() && !fStyle.password)
        SetClipboardText(fModel.Selected());
}

void EditField::Cut()
{
    if (fStyle.readOnly || fStyle.password || !fModel.HasSelection())
        return;
    Copy();
    Change(fModel.From(), fModel.To(), {}, false);
}

// A field of one line takes the first of several.
void EditField::Paste()
{
    std::optional<std::string> text = ClipboardText();
    if (fStyle.readOnly || !text)
        return;
    if (!fStyle.multiLine)
        text->resize(std::min(text->find_first_of("\r\n"), text->size()));
    Change(fModel.From(), fModel.To(), *text, false);
}

void EditField::Undo()
{
    if (!fStyle.readOnly && fModel.Undo())
        Changed(true);
}

void EditField::Redo()
{
    if (!fStyle.readOnly && fModel.Redo())
        Changed(true);
}

void EditField::Change(std::size_t from, std::size_t to, std::string_view text, bool isTyping)
{
    Changed(fModel.Replace(from, to, text, isTyping));
}

void EditField::Changed(bool tell)
{
    Arrange();
    fWantedX.reset();
    RevealCaret();
    ShowCaret();
    if (tell)
        fHandler.TextChanged();
}

void EditField::MoveCaret(std::size_t position, bool extend)
{
    fModel.MoveTo(position, extend);
    fWantedX.reset();
    RevealCaret();
    ShowCaret();
}

void EditField::Arrange()
{
    fLayout.Arrange(fModel.Text(), fStyle, Font(fLook.font), Local().right);
}

std::int32_t EditField::RowsShown() const
{
    return std::max(Local().bottom / std::max(fLayout.RowHeight(), 1), 1);
}

// The text is never scrolled further than to its end.
void EditField::RevealCaret()
{
    const PixelRect local = Local();
    const std::int32_t x = fLayout.XOf(fModel.Caret());
    const std::int32_t row = fLayout.RowHeight();
    const std::int32_t y = static_cast<std::int32_t>(fLayout.RowOf(fModel.Caret())) * row;
    fScroll.x = std::clamp(fScroll.x, std::min(x - local.right + 1, x), x);
    fScroll.y = std::clamp(fScroll.y, std::min(y + row - local.bottom, y), y);
    fScroll.x = std::clamp(fScroll.x, 0, std::max(fLayout.Width() + 1 - local.right, 0));
    fScroll.y = std::clamp(fScroll.y, 0, std::max(fLayout.Height() - local.bottom, 0));
}

// After a move the caret is seen at once. A selection has none.
void EditField::ShowCaret()
{
    fCaretIsOn = HasKeyboard();
    fBlinksLeft = kCaretBlinks;
    if (fCaretIsOn && !fModel.HasSelection())
        ArmTimer(ChildHandle(), kCaretTimer, kCaretPeriod);
    else
        EndBlinking();
    if (IsVisible())
        Redraw();
}

void EditField::HideCaret()
{
    fCaretIsOn = false;
    EndBlinking();
}

// Without a window the number would be that of one of the thread's timers.
void EditField::EndBlinking()
{
    if (const NativeWindow window = ChildHandle())
        DisarmTimer(window, kCaretTimer);
}

void EditField::BlinkCaret()
{
    fCaretIsOn = !fCaretIsOn && HasKeyboard();
    if (fCaretIsOn && --fBlinksLeft == 0)
        EndBlinking();
    if (IsVisible())
        Invalidate(CaretPlace());
}

void EditField::Draw(const Bitmap& picture)
{
    picture.BeginWriting();
    FillRect(picture, Local(), fLook.ground);
    for (std::size_t row = 0; row < fLayout.Rows().size(); ++row)
        DrawRow(picture, row);
    if (fCaretIsOn && !fModel.HasSelection())
        FillRect(picture, CaretPlace(), fLook.text);
    picture.EndWriting();
}

// The selection shows while the field has the keyboard.
void EditField::DrawRow(const Bitmap& picture, std::size_t number)
{
    const EditLayout::Row& row = fLayout.Rows()[number];
    const std::int32_t top = static_cast<std::int32_t>(number) * fLayout.RowHeight() - fScroll.y;
    if (top >= picture.Height() || top + fLayout.RowHeight() <= 0)
        return;
    const std::int32_t left = row.left - fScroll.x;
    const PixelPoint start{left, top + fLayout.Ascent()};
    Canvas canvas(picture);
    canvas.DrawTextLine(*row.line, start, fLook.text);
    if (!HasKeyboard())
        return;
    for (const TextExtent& extent : fLayout.ExtentsIn(number, fModel.From(), fModel.To())) {
        const PixelRect selected{left + static_cast<std::int32_t>(std::lround(extent.left)), top,
                                 left + static_cast<std::int32_t>(std::lround(extent.right)),
                                 top + fLayout.RowHeight()};
        FillRect(picture, selected, fLook.selectedGround);
        canvas.SetClip({&selected, 1});
        canvas.DrawTextLine(*row.line, start, fLook.selectedText);
    }
}

PixelRect EditField::CaretPlace() const
{
    const std::int32_t x = fLayout.XOf(fModel.Caret()) - fScroll.x;
    const std::int32_t y =
        static_cast<std::int32_t>(fLayout.RowOf(fModel.Caret())) * fLayout.RowHeight() - fScroll.y;
    const std::int32_t width = std::max(fLook.font.pixels / kPixelsPerCaret, 1);
    return {x, y, x + width, y + fLayout.RowHeight()};
}

// The condensed face that stands in for others makes ovals of them.
std::string DotFace(std::string_view)
{
    return "DejaVu Sans";
}

std::unique_ptr<EditControl> MakeEditControl(NativeWindow window, const EditStyle& style,
                                             const EditLook& look, EditHandler& handler)
{
    if (LinuxWindow* const parent = LinuxWindow::From(window))
        return std::make_unique<EditField>(*parent, style, look, handler);
    SetLastError(EINVAL);
    return nullptr;
}

} // namespace Platform
