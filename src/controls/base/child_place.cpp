#include "controls/base/child_place.h"

#include "foundation/alerts/reporter.h"
#include "platform/input/message_numbers.h"
#include "platform/system/machine.h"
#include "view/tree/pane.h"
#include "view/tree/view_hold.h"
#include "view/window/window.h"

namespace Kesto {
namespace {

using namespace Platform::Number;
using Platform::WindowMessage;

CWindow* WindowOf(const CPane& pane)
{
    return dynamic_cast<CWindow*>(pane.GetContext());
}

CMouseEvent EventOf(const CWindow& window, const WindowMessage& message, const PixelPoint& screen)
{
    CMouseEvent event =
        CMouseEvent::Of({message.window, message.number, message.first, message.second,
                         Platform::TickCount(), screen.x, screen.y});
    const PixelPoint corner = window.GetScreenPosition();
    const double scale = window.GetScaleFactor();
    event.fPortPoint = {(screen.x - corner.x) / scale, (screen.y - corner.y) / scale};
    return event;
}

} // namespace

Platform::NativeWindow NativeWindowOf(const CPane& pane)
{
    const CWindow* const window = WindowOf(pane);
    return window != nullptr ? window->NativeHandle() : nullptr;
}

PixelRect ChildPixels(const CPane& pane, const Rect& local)
{
    return ToDevice(pane.LocalToPort(local), pane.GetScale());
}

bool IsWhollyInSight(const CPane& pane, const Rect& local)
{
    CBRVRegion hidden(local);
    hidden.Subtract(pane.GetVisibleLocalRegion());
    return hidden.IsEmpty();
}

bool SendChildKey(CPane& pane, const WindowMessage& message)
{
    CWindow* const window = WindowOf(pane);
    bool taken = true;
    Handled([&] { taken = window != nullptr && window->SendPlatformKey(message); });
    return taken;
}

bool SendChildPress(CPane& pane, const WindowMessage& message, const PixelPoint& corner)
{
    CWindow* const window = WindowOf(pane);
    if (window == nullptr)
        return true;
    const CViewHold hold(pane);
    const PixelPoint origin = window->GetScreenPosition();
    const PixelPoint point = message.Point();
    const bool hasWorked = Handled([&] {
        pane.MouseDown(EventOf(*window, message,
                               {origin.x + corner.x + point.x, origin.y + corner.y + point.y}));
    });
    return hasWorked && !hold.IsOver() && CView::LastMouseDownView() == &pane;
}

bool SendChildWheel(CPane& pane, const WindowMessage& message)
{
    CWindow* const window = WindowOf(pane);
    bool taken = true;
    Handled([&] {
        taken = window != nullptr && pane.SendWheel(EventOf(*window, message, message.Point()));
    });
    return taken;
}

bool IsKey(const WindowMessage& message)
{
    return message.number >= kKeyFirst && message.number <= kSysDeadChar;
}

bool IsSystemKey(const WindowMessage& message)
{
    return IsKey(message) && message.number >= kSysKeyDown;
}

bool IsPress(const WindowMessage& message)
{
    switch (message.number) {
    case kLeftDown:
    case kLeftDouble:
    case kRightDown:
    case kRightDouble:
    case kMiddleDown:
    case kMiddleDouble:
    case kExtraDown:
    case kExtraDouble:
        return true;
    default:
        return false;
    }
}

bool IsWheel(const WindowMessage& message)
{
    return message.number == kWheel || message.number == kSidewaysWheel;
}

} // namespace Kesto
