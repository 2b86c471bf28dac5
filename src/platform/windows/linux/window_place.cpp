#include "platform/windows/window_place.h"

#include "platform/graphics/monitors.h"
#include "platform/input/message_numbers.h"
#include "platform/input/stopped_exception.h"
#include "platform/windows/linux/display.h"
#include "platform/windows/linux/window.h"

#include <algorithm>
#include <limits>

namespace Platform {
namespace {

constexpr std::int32_t kMostPixels = 32767; // a display can show no larger window

std::int32_t Limited(std::int32_t size, std::int32_t least, std::int32_t most)
{
    return std::clamp(size, std::max(least, 1), std::max({most, least, 1}));
}

// The rectangle with the limits of the window's procedure kept.
PixelRect WithinLimits(LinuxWindow& window, PixelRect content)
{
    const auto [least, most] = window.AskLimits();
    content.right = content.left + Limited(content.right - content.left, least.x, most.x);
    content.bottom = content.top + Limited(content.bottom - content.top, least.y, most.y);
    return content;
}

} // namespace

LinuxWindow::Limits LinuxWindow::AskLimits()
{
    const FrameInsets insets = Display::Get().Insets(*this);
    const PixelPoint frame{insets.left + insets.right, insets.top + insets.bottom};
    SizeRange range{{}, {}, {}, {1, 1}, {kMostPixels, kMostPixels}};
    if ((fFeatures & WindowFeature::kCanSize) != 0)
        Send(Number::kGetMinMaxInfo, 0, reinterpret_cast<std::intptr_t>(&range));
    return {{range.least.x - frame.x, range.least.y - frame.y},
            {range.most.x - frame.x, range.most.y - frame.y}};
}

PixelRect FrameOf(NativeWindow window)
{
    const FrameInsets insets = InsetsOf(window);
    const PixelRect content = ContentOf(window);
    return {content.left - insets.left, content.top - insets.top, content.right + insets.right,
            content.bottom + insets.bottom};
}

PixelRect ContentOf(NativeWindow window)
{
    const LinuxWindow* const found = LinuxWindow::From(window);
    return found != nullptr ? found->ScreenRect() : PixelRect{};
}

FrameInsets InsetsOf(NativeWindow window)
{
    const LinuxWindow* const found = LinuxWindow::From(window);
    return found != nullptr && found->IsTop() ? Display::Get().Insets(*found) : FrameInsets{};
}

void PlaceContent(NativeWindow window, const PixelRect& content)
{
    LinuxWindow* const found = LinuxWindow::From(window);
    if (found == nullptr || !found->IsTop() || content == found->fContent)
        return;
    const PixelRect wanted = WithinLimits(*found, content);
    if (LinuxWindow::From(window) != nullptr)
        found->PlaceAt(wanted);
    ThrowStopped();
}

PixelRect NormalContentOf(NativeWindow window)
{
    const LinuxWindow* const found = LinuxWindow::From(window);
    if (found == nullptr)
        return {};
    return found->fExtent == LinuxWindow::Extent::kNormal ? found->fContent : found->fNormal;
}

double ScaleOf(NativeWindow window)
{
    const std::vector<Monitor> monitors = ListMonitors();
    const LinuxWindow* const found = LinuxWindow::From(window);
    return monitors[found != nullptr ? MonitorOf(monitors, found->ScreenRect()) : 0].scale;
}

} // namespace Platform
