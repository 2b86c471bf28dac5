#include "platform/windows/linux/menu_level.h"
#include "platform/windows/linux/key_number.h"

#include "platform/graphics/canvas.h"
#include "platform/graphics/monitors.h"
#include "platform/input/message_numbers.h"
#include "platform/input/system_timer.h"
#include "platform/windows/linux/rect_list.h"
#include "platform/windows/system_window.h"
#include "platform/windows/window_paint.h"
#include "platform/windows/window_place.h"

#include <algorithm>

namespace Platform {
namespace {

using namespace Number;

enum MenuTimer : std::uintptr_t { kSubTimer = 1, kScrollTimer = 2 };
constexpr std::uint32_t kSubDelay = 250; // milliseconds
constexpr std::uint32_t kScrollPeriod = 50;
constexpr std::int32_t kRowsOfNotch = 3;
constexpr std::int32_t kEdge = 1;

void FillMenuRect(const Bitmap& bitmap, const PixelRect& rect, Colour colour)
{
    const PixelRect cut = Intersect(rect, {0, 0, bitmap.Width(), bitmap.Height()});
    for (std::int32_t y = cut.top; y < cut.bottom; ++y) {
        auto* const row = reinterpret_cast<std::uint32_t*>(bitmap.Bits() + y * bitmap.RowBytes());
        std::fill(row + cut.left, row + std::max(cut.right, cut.left), PremultipliedPixel(colour));
    }
}

PixelRect WorkAreaAt(const PixelRect& rect)
{
    const std::vector<Monitor> monitors = ListMonitors();
    return monitors[MonitorOf(monitors, rect)].workArea;
}

PixelRect PlaceMenu(const PixelRect& beside, PixelPoint size)
{
    const PixelRect area = WorkAreaAt(beside);
    const std::int32_t below = area.bottom - beside.bottom;
    const std::int32_t above = beside.top - area.top;
    const bool isBelow = size.y <= below || below >= above;
    const std::int32_t height = std::clamp(size.y, 0, std::max(isBelow ? below : above, 0));
    const std::int32_t left = std::max(std::min(beside.left, area.right - size.x), area.left);
    const std::int32_t top = isBelow ? beside.bottom : beside.top - height;
    return {left, top, left + size.x, top + height};
}

// The first row beside the one it belongs to. The edges of both menus lie on each other.
PixelRect PlaceSubmenu(const PixelRect& parent, std::int32_t rowTop, PixelPoint size)
{
    const PixelRect area = WorkAreaAt({parent.left, rowTop, parent.right, rowTop + 1});
    const bool isRight = parent.right - kEdge + size.x <= area.right;
    const std::int32_t left =
        isRight ? parent.right - kEdge : std::max(parent.left + kEdge - size.x, area.left);
    const std::int32_t height = std::min(size.y, area.bottom - area.top);
    const std::int32_t top = std::max(std::min(rowTop - kEdge, area.bottom - height), area.top);
    return {left, top, left + size.x, top + height};
}

char Capital(char letter)
{
    return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}

} // namespace

MenuLevel::MenuLevel(NativeWindow owner, const PixelRect& beside, std::span<const MenuRow> rows,
                     const MenuLook& look)
    : fOwner(owner), fRows(rows), fLook(look), fFont(look.font)
{
    Open(PlaceMenu(beside, Measure(look.leastWidth)));
    for (std::size_t i = 0; i < fRows.size(); ++i)
        if (fRows[i].checked)
            ShowRow(i);
}

MenuLevel::MenuLevel(MenuLevel& parent, std::size_t row)
    : fOwner(parent.fOwner), fParent(&parent), fRows(parent.fRows[row].rows), fLook(parent.fLook),
      fFont(parent.fFont)
{
    const PixelRect content = ContentOf(parent.fHandle);
    Open(PlaceSubmenu(content, content.top + parent.RowRect(row).top, Measure(0)));
}

MenuLevel::~MenuLevel()
{
    CloseSub();
    EndSystemWindow(fHandle);
}

void MenuLevel::Open(const PixelRect& content)
{
    fScrolls = content.Height() < HeightOfAll(fRows.size()) + 2 * kEdge;
    WindowPlan plan;
    plan.kind = WindowKind::kPopup;
    plan.owner = fOwner;
    plan.className = "Kesto_MenuClass";
    plan.content = content;
    fHandle = MakeSystemWindow(plan, *this);
    ShowSystemWindow(fHandle, ShowCommand::kShowInactive);
}

bool MenuLevel::IsAlive() const
{
    return IsSystemWindow(fHandle);
}

std::optional<int> MenuLevel::Chosen() const
{
    return fSub != nullptr && fSub->Chosen() ? fSub->Chosen() : fChosen;
}

bool MenuLevel::Covers(PixelPoint point) const
{
    return Contains(ContentOf(fHandle), point) || (fSub != nullptr && fSub->Covers(point));
}

// -------------------------------------------------------------------------------------- Measures

std::int32_t MenuLevel::RowHeight() const
{
    return fFont.Metrics().height + 2 * fLook.padding;
}

std::int32_t MenuLevel::HeightOf(const MenuRow& row) const
{
    return row.separator ? fLook.separatorHeight : RowHeight();
}

std::int32_t MenuLevel::HeightOfAll(std::size_t count) const
{
    std::int32_t height = 0;
    for (const MenuRow& row : fRows.first(count))
        height += HeightOf(row);
    return height;
}

PixelPoint MenuLevel::Measure(std::int32_t leastWidth) const
{
    std::int32_t width = std::max(leastWidth, 2 * kEdge);
    for (const MenuRow& row : fRows)
        width = std::max(width, fFont.WidthOf(row.text) + 2 * fLook.markWidth + 2 * kEdge);
    return {width, HeightOfAll(fRows.size()) + 2 * kEdge};
}

PixelRect MenuLevel::Local() const
{
    const PixelRect content = ContentOf(fHandle);
    return Offset(content, -content.left, -content.top);
}

PixelRect MenuLevel::RowsArea() const
{
    const PixelRect all = Local();
    const std::int32_t around = kEdge + (fScrolls ? RowHeight() : 0);
    return {kEdge, around, all.right - kEdge, std::max(all.bottom - around, around)};
}

PixelRect MenuLevel::RowRect(std::size_t row) const
{
    const PixelRect area = RowsArea();
    const std::int32_t top = area.top - fScrolled + HeightOfAll(row);
    return {area.left, top, area.right, top + HeightOf(fRows[row])};
}

std::optional<std::size_t> MenuLevel::RowAt(PixelPoint point) const
{
    if (Contains(RowsArea(), point))
        for (std::size_t i = 0; i < fRows.size(); ++i)
            if (Contains(RowRect(i), point))
                return CanBeLit(i) ? std::optional(i) : std::nullopt;
    return std::nullopt;
}

// ----------------------------------------------------------------------------------------- Mouse

std::intptr_t MenuLevel::Receive(const WindowMessage& message)
{
    const PixelRect content = ContentOf(fHandle);
    const auto notches = static_cast<std::int16_t>(message.FirstHigh()) / kWheelStep;
    switch (message.number) {
    case kPaint:
        Paint();
        return 0;
    case kMouseMove:
        MouseAt(message.Point());
        return 0;
    case kWheel:
        Scroll(-notches * kRowsOfNotch * RowHeight());
        MouseAt({message.Point().x - content.left, message.Point().y - content.top});
        return 0;
    case kLeftUp:
        if (fLit && RowAt(message.Point()) == fLit)
            Choose();
        return 0;
    case kTimer:
        TakeTimer(message.first);
        return 0;
    default:
        return DefaultAnswer(message);
    }
}

void MenuLevel::MouseAt(PixelPoint point)
{
    if (fParent != nullptr && fParent->fLit != fParent->fSubRow) { // it has come the short way
        fParent->fLit = fParent->fSubRow;
        InvalidateWindow(fParent->fHandle);
    }
    const PixelRect area = RowsArea();
    const int arrow = point.y < area.top ? -1 : point.y >= area.bottom ? 1 : 0;
    if (fScrolls && arrow != fPointedArrow) {
        DisarmTimer(fHandle, kScrollTimer);
        if (arrow != 0)
            ArmTimer(fHandle, kScrollTimer, kScrollPeriod);
        fPointedArrow = arrow;
    }
    const std::optional<std::size_t> row = RowAt(point);
    if (row == fLit && (fSub != nullptr || !row))
        return;
    Light(row);
    if (fSub == nullptr)
        OpenSub();
    else
        ArmTimer(fHandle, kSubTimer, kSubDelay);
}

void MenuLevel::TakeTimer(std::uintptr_t timer)
{
    if (timer == kScrollTimer) {
        Scroll(fPointedArrow * RowHeight());
        return;
    }
    DisarmTimer(fHandle, kSubTimer);
    if (fSub != nullptr && fLit == fSubRow)
        return;
    CloseSub();
    OpenSub();
}

void MenuLevel::MouseLeft()
{
    DisarmTimer(fHandle, kScrollTimer);
    fPointedArrow = 0;
    if (fSub != nullptr) {
        Light(fSubRow);
        fSub->MouseLeft();
    } else {
        Light(std::nullopt);
    }
}

void MenuLevel::Scroll(std::int32_t by)
{
    const std::int32_t most =
        std::max(HeightOfAll(fRows.size()) - RowsArea().Height(), std::int32_t{0});
    const std::int32_t scrolled = std::clamp(fScrolled + by, 0, most);
    if (scrolled == fScrolled)
        return;
    CloseSub();
    fScrolled = scrolled;
    InvalidateWindow(fHandle);
}

// ------------------------------------------------------------------------------------------ Rows

void MenuLevel::Light(std::optional<std::size_t> row)
{
    if (row == fLit)
        return;
    fLit = row;
    InvalidateWindow(fHandle);
    if (row)
        ShowRow(*row);
}

void MenuLevel::ShowRow(std::size_t row)
{
    if (!fScrolls)
        return;
    const PixelRect area = RowsArea();
    const PixelRect rect = RowRect(row);
    Scroll(std::min(rect.top - area.top, 0) + std::max(rect.bottom - area.bottom, 0));
}

void MenuLevel::OpenSub()
{
    if (!fLit || fRows[*fLit].rows.empty() || fSub != nullptr)
        return;
    fSubRow = *fLit;
    fSub = std::make_unique<MenuLevel>(*this, fSubRow);
}

void MenuLevel::CloseSub()
{
    fSub.reset();
}

void MenuLevel::Choose()
{
    if (fLit && fRows[*fLit].rows.empty() && fRows[*fLit].id > 0)
        fChosen = fRows[*fLit].id;
    else if (fLit != fSubRow || fSub == nullptr) {
        CloseSub();
        OpenSub();
    }
}

// ------------------------------------------------------------------------------------------ Keys

bool MenuLevel::TakeKey(std::uintptr_t key)
{
    if (fSub != nullptr && fSub->fLit) {
        if (fSub->TakeKey(key))
            return true;
        CloseSub(); // Escape and Left leave the innermost level
        return true;
    }
    switch (key) {
    case kEscapeKey:
        return false;
    case kLeftKey:
        return fParent == nullptr;
    case kUpKey:
    case kDownKey:
        Step(key == kUpKey ? -1 : 1);
        return true;
    case kHomeKey:
    case kEndKey:
        Light(std::nullopt);
        Step(key == kEndKey ? -1 : 1);
        return true;
    case kReturnKey:
    case kSpaceKey:
        Choose();
        break;
    case kRightKey:
        OpenSub();
        break;
    default:
        LightByLetter(key);
        return true;
    }
    if (fSub != nullptr)
        fSub->Step(1);
    return true;
}

void MenuLevel::Step(int by)
{
    CloseSub();
    const auto count = static_cast<int>(fRows.size());
    int row = fLit ? static_cast<int>(*fLit) : (by > 0 ? -1 : count);
    for (int tried = 0; tried < count; ++tried) {
        row = (row + by + count) % count;
        if (CanBeLit(static_cast<std::size_t>(row))) {
            Light(static_cast<std::size_t>(row));
            return;
        }
    }
}

// The next row that begins so.
void MenuLevel::LightByLetter(std::uintptr_t letter)
{
    const std::size_t count = fRows.size();
    const std::size_t first = fLit ? *fLit + 1 : 0;
    for (std::size_t step = 0; step < count; ++step) {
        const std::size_t row = (first + step) % count;
        const std::string& text = fRows[row].text;
        if (CanBeLit(row) && !text.empty() && Capital(text.front()) == static_cast<char>(letter)) {
            CloseSub();
            Light(row);
            return;
        }
    }
}

// --------------------------------------------------------------------------------------- Drawing

void MenuLevel::Paint()
{
    const PaintScope scope(fHandle);
    const PixelRect all = Local();
    Bitmap bitmap;
    if (!bitmap.Make(std::max(all.right, 1), std::max(all.bottom, 1), 32, false))
        return;
    bitmap.BeginWriting();
    FillMenuRect(bitmap, all, fLook.ground);
    const PixelRect area = RowsArea();
    for (std::size_t i = 0; i < fRows.size(); ++i)
        if (!Intersect(RowRect(i), area).IsEmpty())
            DrawRow(bitmap, i);
    if (fScrolls) {
        const bool isAtEnd = RowRect(fRows.size() - 1).bottom <= area.bottom;
        DrawArrow(bitmap, {area.left, 0, area.right, area.top}, "\xE2\x96\xB4", fScrolled > 0);
        DrawArrow(bitmap, {area.left, area.bottom, area.right, all.bottom}, "\xE2\x96\xBE",
                  !isAtEnd);
    }
    FillMenuRect(bitmap, {0, 0, all.right, kEdge}, fLook.edge);
    FillMenuRect(bitmap, {0, all.bottom - kEdge, all.right, all.bottom}, fLook.edge);
    FillMenuRect(bitmap, {0, 0, kEdge, all.bottom}, fLook.edge);
    FillMenuRect(bitmap, {all.right - kEdge, 0, all.right, all.bottom}, fLook.edge);
    bitmap.EndWriting();
    PresentBitmap(fHandle, bitmap, scope.Rects());
}

void MenuLevel::DrawRow(const Bitmap& bitmap, std::size_t number) const
{
    const MenuRow& row = fRows[number];
    const PixelRect rect = RowRect(number);
    if (row.separator) {
        const std::int32_t middle = (rect.top + rect.bottom) / 2;
        FillMenuRect(bitmap,
                     {rect.left + fLook.padding, middle, rect.right - fLook.padding, middle + 1},
                     fLook.dimText);
        return;
    }
    const bool lit = fLit == number;
    if (lit)
        FillMenuRect(bitmap, rect, fLook.lit);
    const Colour colour = lit ? fLook.litText : row.enabled ? fLook.text : fLook.dimText;
    const std::int32_t base = rect.top + fLook.padding + fFont.Metrics().ascent;
    Canvas canvas(bitmap);
    canvas.DrawTextLine(*fFont.Line(row.text), {rect.left + fLook.markWidth, base}, colour);
    if (row.checked)
        canvas.DrawTextLine(*fFont.Line("\xE2\x9C\x93"), {rect.left + fLook.padding, base}, colour);
    if (!row.rows.empty())
        canvas.DrawTextLine(*fFont.Line("\xE2\x96\xB8"),
                            {rect.right - fLook.markWidth + fLook.padding, base}, colour);
}

// Over the rows that are partly hidden.
void MenuLevel::DrawArrow(const Bitmap& bitmap, const PixelRect& rect, const char* arrow,
                          bool on) const
{
    FillMenuRect(bitmap, rect, fLook.ground);
    const auto line = fFont.Line(arrow);
    const std::int32_t base = rect.top + fLook.padding + fFont.Metrics().ascent;
    Canvas(bitmap).DrawTextLine(*line, {(rect.left + rect.right - line->Width()) / 2, base},
                                on ? fLook.text : fLook.dimText);
}

} // namespace Platform
