// What a window of Linux does by itself with a message.
#include "platform/input/message_numbers.h"
#include "platform/windows/focus.h"
#include "platform/windows/linux/activation.h"
#include "platform/windows/linux/display.h"

namespace Platform {
namespace {

using namespace Number;

// Tells of a new place, then of a new size.
std::intptr_t TellOfChange(LinuxWindow& window)
{
    const NativeWindow handle = window.Handle();
    const PixelRect now = window.fContent;
    const PixelRect before = std::exchange(window.fTold, now);
    if (now.left != before.left || now.top != before.top)
        window.Send(kMove, 0, PackPoint(now.left, now.top));
    const bool sized = now.right - now.left != before.right - before.left ||
                       now.bottom - now.top != before.bottom - before.top;
    if (sized && LinuxWindow::From(handle) != nullptr)
        window.Send(kSize, window.fExtent == LinuxWindow::Extent::kMaximized ? kSizedMaximized : 0,
                    PackPoint(now.right - now.left, now.bottom - now.top));
    return 0;
}

} // namespace

std::intptr_t DefaultAnswer(const WindowMessage& message)
{
    LinuxWindow* const window = LinuxWindow::From(message.window);
    if (window == nullptr)
        return 0;
    switch (message.number) {
    case kActivate:
        if (message.FirstLow() != 0 && window->fExtent != LinuxWindow::Extent::kMinimized)
            MakeFocused(message.window);
        return 0;
    case kMouseActivate:
        return NeverActivates(window->fKind) ? kMouseDoesNotActivate : kMouseActivates;
    case kSetCursor:
        Display::Get().ShowCursor(*window, window->fCursor);
        return 1;
    case kWindowPosChanged:
        return TellOfChange(*window);
    case kFrameActivate:
        return 1;
    case kPaint:
        window->Validate(window->Local());
        return 0;
    default:
        return 0;
    }
}

} // namespace Platform
