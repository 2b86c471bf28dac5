#include "platform/windows/tip_window.h"

#include "platform/graphics/canvas.h"
#include "platform/graphics/monitors.h"
#include "platform/input/message_numbers.h"
#include "platform/windows/system_window.h"
#include "platform/windows/window_paint.h"
#include "platform/windows/window_place.h"

#include <algorithm>
#include <string>
#include <vector>

namespace Platform {
namespace {

void FillBitmap(const Bitmap& bitmap, const PixelRect& rect, Colour colour)
{
    for (std::int32_t y = rect.top; y < rect.bottom; ++y) {
        auto* const row = reinterpret_cast<std::uint32_t*>(bitmap.Bits() + y * bitmap.RowBytes());
        std::fill(row + rect.left, row + rect.right, PremultipliedPixel(colour));
    }
}

std::vector<std::string_view> LinesOf(std::string_view text)
{
    std::vector<std::string_view> lines;
    while (true) {
        const std::size_t feed = text.find('\n');
        lines.push_back(text.substr(0, feed));
        if (feed == text.npos)
            return lines;
        text.remove_prefix(feed + 1);
    }
}

// The text in its frame, as large as it needs to be; without pixels if there is no memory.
Bitmap DrawTip(std::string_view text, const TipLook& look)
{
    const Font font(look.font);
    const std::vector<std::string_view> lines = LinesOf(text);
    std::int32_t width = 0;
    for (const std::string_view line : lines)
        width = std::max(width, font.WidthOf(line));
    const std::int32_t around = look.margin + 1;
    const std::int32_t row = font.Metrics().height;
    Bitmap bitmap;
    const std::int32_t height = row * static_cast<std::int32_t>(lines.size());
    if (!bitmap.Make(width + 2 * around, height + 2 * around, 32, false))
        return bitmap;
    bitmap.BeginWriting();
    FillBitmap(bitmap, {0, 0, bitmap.Width(), bitmap.Height()}, look.edge);
    FillBitmap(bitmap, {1, 1, bitmap.Width() - 1, bitmap.Height() - 1}, look.ground);
    Canvas canvas(bitmap);
    std::int32_t base = around + font.Metrics().ascent;
    for (const std::string_view line : lines) {
        canvas.DrawTextLine(*font.Line(line), {around, base}, look.text);
        base += row;
    }
    bitmap.EndWriting();
    return bitmap;
}

// Below the place, or above it where the monitor ends; within the monitor on both sides.
PixelRect PlaceTip(const PixelRect& place, std::int32_t width, std::int32_t height)
{
    constexpr std::int32_t kGap = 4;
    const std::vector<Monitor> monitors = ListMonitors();
    const PixelRect& area = monitors[MonitorOf(monitors, place)].workArea;
    const std::int32_t left =
        std::clamp(place.left, area.left, std::max(area.right - width, area.left));
    const bool fitsBelow = place.bottom + kGap + height <= area.bottom;
    const std::int32_t top = fitsBelow ? place.bottom + kGap : place.top - kGap - height;
    return {left, top, left + width, top + height};
}

} // namespace

class TipWindow::Window final : public WindowProcedure {
public:
    Window(NativeWindow owner, const PixelRect& place, Bitmap picture)
        : fPicture(std::move(picture))
    {
        WindowPlan plan;
        plan.kind = WindowKind::kPopup;
        plan.owner = TopWindowOf(owner);
        plan.className = "Kesto_TipClass";
        plan.takesMouse = false;
        plan.content = PlaceTip(place, fPicture.Width(), fPicture.Height());
        fHandle = MakeSystemWindow(plan, *this);
        ShowSystemWindow(fHandle, ShowCommand::kShowInactive);
    }
    ~Window() { EndSystemWindow(fHandle); }
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;

    NativeWindow Handle() const { return fHandle; }

private:
    std::intptr_t Receive(const WindowMessage& message) override
    {
        if (message.number != Number::kPaint)
            return DefaultAnswer(message);
        const PaintScope scope(message.window);
        PresentBitmap(message.window, fPicture, scope.Rects());
        return 0;
    }

    Bitmap fPicture;
    NativeWindow fHandle = nullptr;
};

TipWindow::TipWindow() = default;

TipWindow::~TipWindow() = default;

void TipWindow::Show(NativeWindow owner, const PixelRect& place, std::string_view text,
                     const TipLook& look)
{
    Hide();
    Bitmap picture = DrawTip(text, look);
    if (picture.Bits() != nullptr)
        fWindow = std::make_unique<Window>(owner, place, std::move(picture));
}

void TipWindow::Hide()
{
    fWindow.reset();
}

bool TipWindow::IsShown() const
{
    return fWindow != nullptr && Platform::IsShown(fWindow->Handle());
}

} // namespace Platform
