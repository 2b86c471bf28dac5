#include "platform/windows/linux/route.h"

#include "platform/graphics/monitors.h"
#include "platform/input/message_numbers.h"
#include "platform/input/pointer.h"
#include "platform/windows/focus.h"
#include "platform/windows/linux/activation.h"
#include "platform/windows/linux/display.h"

namespace Platform {

using namespace Number;

void RouteInput(QueuedMessage& message)
{
    if (message.number >= kKeyFirst && message.number <= kKeyLast) {
        const NativeWindow focused = FocusedWindow();
        message.window = focused != nullptr ? focused : FrontmostWindow();
        return;
    }
    if (message.number < kMouseFirst || message.number > kMouseLast)
        return;
    // A window that has captured the mouse gets all of it, wherever the pointer is.
    LinuxWindow* const captor = Captor();
    message.window = captor != nullptr ? captor->Handle() : WindowAt({message.x, message.y});
    const LinuxWindow* const window = LinuxWindow::From(message.window);
    // A turn of the wheel carries screen coordinates, everything else those of the window.
    if (window == nullptr || message.number == kWheel || message.number == kSidewaysWheel) {
        message.second = PackPoint(message.x, message.y);
        return;
    }
    const PixelRect rect = window->ScreenRect();
    message.second = PackPoint(message.x - rect.left, message.y - rect.top);
}

PixelRect MaximizedContent(LinuxWindow& window)
{
    const std::vector<Monitor> monitors = ListMonitors();
    const PixelRect area = monitors[MonitorOf(monitors, window.fContent)].workArea;
    const FrameInsets insets = Display::Get().Insets(window);
    return {area.left + insets.left, area.top + insets.top, area.right - insets.right,
            area.bottom - insets.bottom};
}

} // namespace Platform
