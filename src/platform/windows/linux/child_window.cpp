#include "platform/windows/linux/child_window.h"

#include "platform/input/linux/queue.h"
#include "platform/input/message_numbers.h"
#include "platform/input/stopped_exception.h"
#include "platform/windows/focus.h"
#include "platform/windows/linux/activation.h"
#include "platform/windows/window_paint.h"

namespace Platform {
namespace {

using namespace Number;

bool ComesToHandlerFirst(std::uint32_t number)
{
    return (number >= kKeyFirst && number <= kKeyLast) ||
           (number > kMouseMove && number <= kMouseLast);
}

} // namespace

ChildWindow::ChildWindow(LinuxWindow& parent, ChildHandler& handler) : fHandler(handler)
{
    fIsChild = true;
    fParent = &parent;
    parent.fChildren.push_back(this);
    Queue::Get().BringToFront(Handle());
}

ChildWindow::~ChildWindow()
{
    Silence();
    fShown = false;
    LeaveWindow(*this);
}

void ChildWindow::PlaceChild(const PixelRect& rect)
{
    if (fParent == nullptr || rect == fContent)
        return;
    const PixelRect before = std::exchange(fContent, rect);
    fUpdate.clear();
    if (!IsVisible())
        return;
    fParent->Invalidate(before);
    InvalidateAll();
}

// What lay under it is the parent's to paint.
void ChildWindow::ShowChild(bool shown)
{
    if (fShown == shown || fParent == nullptr)
        return;
    fShown = shown;
    if (shown) {
        InvalidateAll();
        return;
    }
    ForgetUpdates();
    if (fParent->IsVisible())
        fParent->Invalidate(fContent);
    LeaveWindow(*this);
    ThrowStopped();
}

void ChildWindow::EnableChild(bool enabled)
{
    if (fEnabled == enabled)
        return;
    fEnabled = enabled;
    if (!enabled)
        LeaveWindow(*this);
    if (IsVisible())
        InvalidateAll();
    ThrowStopped();
}

bool ChildWindow::HasKeyboard()
{
    return FocusedWindow() == Handle();
}

// The control may be gone when its handler has answered.
std::intptr_t ChildWindow::Answer(const WindowMessage& message)
{
    if (ComesToHandlerFirst(message.number) &&
        (fHandler.Intercept(message) || From(message.window) == nullptr))
        return 0;
    switch (message.number) {
    case kPaint:
        Paint();
        return 0;
    case kSetFocus:
    case kKillFocus:
        Act(message);
        InvalidateAll();
        fHandler.ChildFocused(message.number == kSetFocus);
        return 0;
    default:
        return Act(message);
    }
}

void ChildWindow::Paint()
{
    const PixelRect local = Local();
    const PaintScope scope(Handle());
    Bitmap picture;
    if (scope.Rects().empty() || !picture.Make(local.right, local.bottom, 32, false))
        return;
    Draw(picture);
    PresentBitmap(Handle(), picture, scope.Rects());
}

} // namespace Platform
