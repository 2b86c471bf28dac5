#include "platform/windows/window_paint.h"

#include "platform/input/message_numbers.h"
#include "platform/input/stopped_exception.h"
#include "platform/windows/linux/display.h"
#include "platform/windows/linux/window.h"

#include <cstring>

namespace Platform {
namespace {

void CopyRect(const Bitmap& from, const Bitmap& to, const PixelRect& rect, PixelPoint place)
{
    const auto bytes = std::size_t(rect.right - rect.left) * 4;
    for (std::int32_t y = rect.top; y < rect.bottom; ++y)
        std::memcpy(to.Bits() + (y - rect.top + place.y) * to.RowBytes() + place.x * 4,
                    from.Bits() + y * from.RowBytes() + rect.left * 4, bytes);
}

PixelRect BoundsOf(const Bitmap& bitmap)
{
    return {0, 0, bitmap.Width(), bitmap.Height()};
}

// A control's pixels over those of its window.
void CopyChildren(const LinuxWindow& window, const Bitmap& picture, PixelPoint origin)
{
    for (const LinuxWindow* const child : window.fChildren) {
        if (!child->fShown || child->fPicture.Bits() == nullptr)
            continue;
        const PixelPoint place{origin.x + child->fContent.left, origin.y + child->fContent.top};
        const PixelRect shown =
            Intersect(Offset(BoundsOf(child->fPicture), place.x, place.y), BoundsOf(picture));
        if (!shown.IsEmpty())
            CopyRect(child->fPicture, picture, Offset(shown, -place.x, -place.y),
                     {shown.left, shown.top});
        CopyChildren(*child, picture, place);
    }
}

} // namespace

void InvalidateWindow(NativeWindow window, std::span<const PixelRect> rects)
{
    if (LinuxWindow* const found = LinuxWindow::From(window);
        found != nullptr && found->IsVisible())
        for (const PixelRect& rect : rects)
            found->Invalidate(rect);
}

void InvalidateWindow(NativeWindow window)
{
    if (LinuxWindow* const found = LinuxWindow::From(window);
        found != nullptr && found->IsVisible())
        found->InvalidateAll();
}

void ValidateWindow(NativeWindow window, std::span<const PixelRect> rects)
{
    if (LinuxWindow* const found = LinuxWindow::From(window))
        for (const PixelRect& rect : rects)
            found->Validate(rect);
}

// Controls are painted after their window.
void UpdateWindowNow(NativeWindow window)
{
    LinuxWindow* const found = LinuxWindow::From(window);
    if (found == nullptr || !found->IsVisible())
        return;
    if (!found->fUpdate.empty())
        found->Send(Number::kPaint);
    if (LinuxWindow::From(window) != nullptr)
        for (LinuxWindow* const child : std::vector(found->fChildren))
            if (!child->fUpdate.empty() && child->IsVisible())
                child->Send(Number::kPaint);
    ThrowStopped();
}

PaintScope::PaintScope(NativeWindow window) : fWindow(window)
{
    if (LinuxWindow* const found = LinuxWindow::From(window)) {
        fRects = found->fUpdate;
        ClipRects(fRects, found->Local());
        found->Validate(found->Local());
    }
}

PaintScope::~PaintScope() = default;

void PresentBitmap(NativeWindow window, const Bitmap& bitmap, std::span<const PixelRect> rects)
{
    LinuxWindow* const found = LinuxWindow::From(window);
    if (found == nullptr || !found->ReadyPicture() || bitmap.PixelBits() != 32)
        return;
    std::vector<PixelRect> shown;
    for (const PixelRect& rect : rects)
        AddRect(shown, Intersect(Intersect(rect, BoundsOf(bitmap)), found->Local()));
    for (const PixelRect& rect : shown)
        CopyRect(bitmap, found->fPicture, rect, {rect.left, rect.top});
    Display::Get().Present(*found, shown);
}

bool PhotographWindow(NativeWindow window, Bitmap& picture)
{
    const LinuxWindow* const found = LinuxWindow::From(window);
    if (found == nullptr || found->fPicture.Bits() == nullptr ||
        !picture.Make(found->fPicture.Width(), found->fPicture.Height(), 32, false))
        return false;
    CopyRect(found->fPicture, picture, BoundsOf(picture), {0, 0});
    CopyChildren(*found, picture, {0, 0});
    return true;
}

} // namespace Platform
