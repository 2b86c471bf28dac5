// Menus of Linux: popups that draw themselves and pump until something is chosen.
#include "platform/windows/popup_menu.h"

#include "platform/graphics/canvas.h"
#include "platform/graphics/monitors.h"
#include "platform/input/message_numbers.h"
#include "platform/input/message_queue.h"
#include "platform/input/stopped_exception.h"
#include "platform/windows/foreign_loop.h"
#include "platform/windows/linux/foreign_turn.h"
#include "platform/windows/linux/rect_list.h"
#include "platform/windows/mouse_state.h"
#include "platform/windows/system_window.h"
#include "platform/windows/window_paint.h"
#include "platform/windows/window_place.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <optional>

namespace Platform {
namespace {

using namespace Number;

enum KeyNumber : std::uintptr_t {
    kReturnKey = 0x0D,
    kEscapeKey = 0x1B,
    kLeftKey = 0x25,
    kUpKey = 0x26,
    kRightKey = 0x27,
    kDownKey = 0x28,
};

void FillRect(const Bitmap& bitmap, const PixelRect& rect, Colour colour)
{
    const PixelRect cut = Intersect(rect, {0, 0, bitmap.Width(), bitmap.Height()});
    for (std::int32_t y = cut.top; y < cut.bottom; ++y) {
        auto* const row = reinterpret_cast<std::uint32_t*>(bitmap.Bits() + y * bitmap.RowBytes());
        std::fill(row + cut.left, row + std::max(cut.right, cut.left), PremultipliedPixel(colour));
    }
}

// One level of the menu, with the submenu that is open on it.
class Level final : public WindowProcedure {
public:
    // Rows and look outlive it.
    Level(NativeWindow owner, PixelPoint corner, std::span<const MenuRow> rows,
          const MenuLook& look, std::int32_t leastWidth)
        : fOwner(owner), fRows(rows), fLook(look), fFont(look.font)
    {
        const PixelPoint size = Measure(leastWidth);
        const std::vector<Monitor> monitors = ListMonitors();
        const PixelRect& area =
            monitors[MonitorOf(monitors, {corner.x, corner.y, corner.x + 1, corner.y + 1})]
                .workArea;
        const std::int32_t left = std::max(std::min(corner.x, area.right - size.x), area.left);
        const std::int32_t top = std::max(std::min(corner.y, area.bottom - size.y), area.top);
        WindowPlan plan;
        plan.kind = WindowKind::kPopup;
        plan.owner = owner;
        plan.className = "Kesto_MenuClass";
        plan.content = {left, top, left + size.x, top + size.y};
        fHandle = MakeSystemWindow(plan, *this);
        ShowSystemWindow(fHandle, ShowCommand::kShowInactive);
    }
    ~Level() { EndSystemWindow(fHandle); }
    Level(const Level&) = delete;
    Level& operator=(const Level&) = delete;

    // The row's id once there is one, 0 when the menu was left.
    std::optional<int> Chosen() const
    {
        return fSub != nullptr && fSub->Chosen() ? fSub->Chosen() : fChosen;
    }
    bool IsAlive() const { return IsSystemWindow(fHandle); }

    // A key goes to the innermost level. False: it isn't one of the menu's.
    bool Key(std::uintptr_t key)
    {
        if (fSub != nullptr && key == kLeftKey)
            fSub.reset();
        else if (fSub != nullptr)
            return fSub->Key(key);
        else if (key == kUpKey || key == kDownKey)
            Step(key == kUpKey ? -1 : 1);
        else if (key == kRightKey)
            OpenSub();
        else if (key == kReturnKey)
            Choose();
        else
            return false;
        return true;
    }

    bool Covers(PixelPoint point) const
    {
        return Contains(ContentOf(fHandle), point) || (fSub != nullptr && fSub->Covers(point));
    }

private:
    std::int32_t HeightOf(const MenuRow& row) const
    {
        return row.separator ? fLook.separatorHeight : fFont.Metrics().height + 2 * fLook.padding;
    }

    PixelPoint Measure(std::int32_t leastWidth) const
    {
        PixelPoint size{std::max(leastWidth, 2), 2};
        for (const MenuRow& row : fRows) {
            size.x = std::max(size.x, fFont.WidthOf(row.text) + 2 * fLook.markWidth + 2);
            size.y += HeightOf(row);
        }
        return size;
    }

    std::intptr_t Receive(const WindowMessage& message) override
    {
        switch (message.number) {
        case kPaint:
            Paint();
            return 0;
        case kMouseMove:
            Light(RowAt(message.Point()));
            return 0;
        case kLeftUp:
            if (fLit && RowAt(message.Point()) == fLit)
                Choose();
            return 0;
        default:
            return DefaultAnswer(message);
        }
    }

    std::optional<std::size_t> RowAt(PixelPoint point) const
    {
        std::int32_t top = 1;
        for (std::size_t i = 0; i < fRows.size(); ++i) {
            const std::int32_t bottom = top + HeightOf(fRows[i]);
            if (point.y >= top && point.y < bottom && Contains(ContentOfSelf(), point))
                return CanBeLit(i) ? std::optional(i) : std::nullopt;
            top = bottom;
        }
        return std::nullopt;
    }

    PixelRect ContentOfSelf() const
    {
        const PixelRect content = ContentOf(fHandle);
        return Offset(content, -content.left, -content.top);
    }

    bool CanBeLit(std::size_t row) const { return fRows[row].enabled && !fRows[row].separator; }

    void Light(std::optional<std::size_t> row)
    {
        if (row == fLit)
            return;
        fLit = row;
        fSub.reset();
        InvalidateWindow(fHandle);
        if (fLit && !fRows[*fLit].rows.empty())
            OpenSub();
    }

    void Step(int by)
    {
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

    void OpenSub()
    {
        if (!fLit || fRows[*fLit].rows.empty() || fSub != nullptr)
            return;
        const PixelRect content = ContentOf(fHandle);
        std::int32_t top = content.top;
        for (std::size_t i = 0; i < *fLit; ++i)
            top += HeightOf(fRows[i]);
        fSub = std::make_unique<Level>(fOwner, PixelPoint{content.right - 1, top},
                                       fRows[*fLit].rows, fLook, 0);
    }

    void Choose()
    {
        if (fLit && fRows[*fLit].rows.empty() && fRows[*fLit].id > 0)
            fChosen = fRows[*fLit].id;
        else
            OpenSub();
    }

    void Paint()
    {
        const PaintScope scope(fHandle);
        const PixelRect all = ContentOfSelf();
        Bitmap bitmap;
        if (!bitmap.Make(std::max(all.right, 1), std::max(all.bottom, 1), 32, false))
            return;
        bitmap.BeginWriting();
        FillRect(bitmap, all, fLook.edge);
        FillRect(bitmap, {1, 1, all.right - 1, all.bottom - 1}, fLook.ground);
        std::int32_t top = 1;
        for (std::size_t i = 0; i < fRows.size(); ++i) {
            DrawRow(bitmap, i, {1, top, all.right - 1, top + HeightOf(fRows[i])});
            top += HeightOf(fRows[i]);
        }
        bitmap.EndWriting();
        PresentBitmap(fHandle, bitmap, scope.Rects());
    }

    void DrawRow(const Bitmap& bitmap, std::size_t number, const PixelRect& rect) const
    {
        const MenuRow& row = fRows[number];
        if (row.separator) {
            const std::int32_t middle = (rect.top + rect.bottom) / 2;
            FillRect(bitmap,
                     {rect.left + fLook.padding, middle, rect.right - fLook.padding, middle + 1},
                     fLook.dimText);
            return;
        }
        const bool lit = fLit == number;
        if (lit)
            FillRect(bitmap, rect, fLook.lit);
        const Colour colour = lit ? fLook.litText : row.enabled ? fLook.text : fLook.dimText;
        const std::int32_t base = rect.top + fLook.padding + fFont.Metrics().ascent;
        Canvas canvas(bitmap);
        canvas.DrawTextLine(*fFont.Line(row.text), {rect.left + fLook.markWidth, base}, colour);
        if (row.checked)
            canvas.DrawTextLine(*fFont.Line("\xE2\x9C\x93"), {rect.left + fLook.padding, base},
                                colour);
        if (!row.rows.empty())
            canvas.DrawTextLine(*fFont.Line("\xE2\x96\xB8"),
                                {rect.right - fLook.markWidth + fLook.padding, base}, colour);
    }

    NativeWindow fOwner;
    std::span<const MenuRow> fRows;
    const MenuLook& fLook;
    Font fFont;
    NativeWindow fHandle = nullptr;
    std::optional<std::size_t> fLit;
    std::optional<int> fChosen;
    std::unique_ptr<Level> fSub;
};

} // namespace

// A press outside leaves the menu and does nothing else; keys are the menu's alone.
int RunPopupMenu(NativeWindow window, PixelPoint corner, std::span<const MenuRow> rows,
                 const MenuLook& look)
{
    const ForeignLoop turns;
    Level level(TopWindowOf(window), corner, rows, look, look.leastWidth);
    while (level.IsAlive() && !level.Chosen()) {
        const std::optional<QueuedMessage> message = AwaitMessage();
        if (!message)
            return 0;
        const bool isKey = message->number >= kKeyFirst && message->number <= kKeyLast;
        const bool isEscape = message->number == kKeyDown && message->first == kEscapeKey;
        if (isEscape || (IsPress(message->number) && !level.Covers({message->x, message->y})))
            return 0;
        if (isKey && message->number == kKeyDown)
            level.Key(message->first);
        else if (!isKey)
            DispatchToWindow(*message);
        if (message->number == kTimer)
            TakeForeignTurn();
    }
    return level.Chosen().value_or(0);
}

} // namespace Platform
