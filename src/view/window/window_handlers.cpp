// What the window does with each message.
#include "foundation/alerts/reporter.h"
#include "foundation/base/service.h"
#include "platform/input/message_numbers.h"
#include "platform/system/machine.h"
#include "platform/windows/mouse_state.h"
#include "platform/windows/window_paint.h"
#include "platform/windows/window_place.h"
#include "view/messages/message_ids.h"
#include "view/messages/process_link.h"
#include "view/process/process.h"
#include "view/process/tracker.h"
#include "view/process/ui_scale.h"
#include "view/tree/pane.h"
#include "view/tree/view_hold.h"
#include "view/window/window.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <exception>
#include <memory>
#include <utility>

namespace Kesto {

using Platform::WindowMessage;

namespace {

// A flag that is set for a scope.
class CFlagScope {
public:
    explicit CFlagScope(bool& flag) : fFlag(flag) { fFlag = true; }
    ~CFlagScope() { fFlag = false; }
    CFlagScope(const CFlagScope&) = delete;
    CFlagScope& operator=(const CFlagScope&) = delete;

private:
    bool& fFlag;
};

} // namespace

std::intptr_t CWindow::OnMove(const WindowMessage& message)
{
    const Platform::PixelRect content = GetWindowBounds();
    SetScreenPosition({content.left, content.top});
    if (!HasWindowState(kWindow_Popup))
        CServiceT<CDesktop>::Get(true)->ClosePopups();
    if (!Platform::IsMinimized(fWindow))
        PortOffsetChild();
    return DefaultProc(message);
}

// The size in units follows the pixels, unless they follow it after a change of the scale.
std::intptr_t CWindow::OnSize(const WindowMessage& message)
{
    if (message.first == Platform::kSizedMinimized)
        return DefaultProc(message);
    const PixelPoint pixels = message.Point();
    const Rect& bounds = GetBounds();
    const double scale = GetScaleFactor();
    const bool isThatAlready =
        ToDevice(bounds.Width(), scale) == pixels.x && ToDevice(bounds.Height(), scale) == pixels.y;
    if (!fScaling && !isThatAlready)
        SetContextSize({pixels.x / scale, pixels.y / scale});
    return DefaultProc(message);
}

std::intptr_t CWindow::OnActivate(const WindowMessage& message)
{
    const CViewHold hold(*this);
    CDesktop& desktop = *CServiceT<CDesktop>::Get(true);
    const bool comes = message.FirstLow() != 0;
    if (comes) {
        desktop.BringToFront(*this);
        desktop.SetActiveWindow(this);
        TakeFocusBack();
        Activate();
    } else {
        // The system may have activated the next window before.
        if (desktop.ActiveWindow() == this)
            desktop.SetActiveWindow(nullptr);
        Deactivate();
        desktop.ClosePopups();
    }
    return hold.IsOver() ? 0 : DefaultProc(message);
}

std::intptr_t CWindow::OnFrameActivate(const WindowMessage& message)
{
    return DefaultProc(message);
}

std::intptr_t CWindow::OnActivateApp(const WindowMessage& message)
{
    if (CProcess* const process = CProcess::Current())
        process->PropagateActive(message.first != 0);
    return DefaultProc(message);
}

std::intptr_t CWindow::OnSetFocus(const WindowMessage& message)
{
    MirrorFocus();
    return DefaultProc(message);
}

std::intptr_t CWindow::OnKillFocus(const WindowMessage& message)
{
    fDroppedKey = 0;
    return DefaultProc(message);
}

// The views stay as they are: a window that waits for its modal one keeps its bullseye, unasked.
std::intptr_t CWindow::OnEnable(const WindowMessage& message)
{
    if (message.first == 0)
        PointerGone();
    return DefaultProc(message);
}

std::intptr_t CWindow::OnShowWindow(const WindowMessage& message)
{
    return DefaultProc(message);
}

std::intptr_t CWindow::OnEraseBackground(const WindowMessage&)
{
    return 1;
}

namespace {

// The report of a paint that failed, which waits until no painting is on the stack.
class CFailureEvent final : public CProcessEvent {
public:
    explicit CFailureEvent(std::exception_ptr failure)
        : CProcessEvent(0), fFailure(std::move(failure))
    {
    }
    void Dispatch() override
    {
        Reported([this] { std::rethrow_exception(fFailure); });
    }

private:
    std::exception_ptr fFailure;
};

} // namespace

// A paint that fails counts as done, or it would come again for ever.
std::intptr_t CWindow::OnPaint(const WindowMessage&)
{
    const Platform::PaintScope scope(fWindow);
    CDeviceRegion update;
    for (const Platform::PixelRect& rect : scope.Rects())
        update.Union(CDeviceRegion(rect));
    CContext::AddInvalid(update);
    try {
        CContext::UpdateNow();
    } catch (...) {
        if (!std::exchange(fPaintFailed, true))
            CProcessLink::Post(std::make_unique<CFailureEvent>(std::current_exception()));
    }
    return 0;
}

std::intptr_t CWindow::OnClose(const WindowMessage&)
{
    DoClose();
    return 0;
}

std::intptr_t CWindow::OnScaleMayHaveChanged(const WindowMessage& message)
{
    const double scale = WantedScale(fWindow);
    if (scale != GetScaleFactor()) {
        ChangeScale(scale);
        SizeWindow({GetBounds().Width(), GetBounds().Height()});
    }
    return DefaultProc(message);
}

// The system suggests the rectangle in which the size in units stays.
std::intptr_t CWindow::OnScaleChanged(const WindowMessage& message)
{
    const CViewHold hold(*this);
    const double scale = (message.first & 0xFFFF) / 96.0 * GetUiScale();
    {
        const CFlagScope scaling(fScaling);
        SetScaleFactor(scale);
        DefaultProc(message);
    }
    if (!hold.IsOver())
        ChangeScale(scale);
    return 0;
}

std::intptr_t CWindow::OnCancelMode(const WindowMessage& message)
{
    const CViewHold hold(*this);
    CTracker* const tracker = CTracker::Active();
    if (!BreakOffTracker() && tracker != nullptr)
        tracker->Finish();
    return hold.IsOver() ? 0 : DefaultProc(message);
}

// Somebody else has taken the mouse, another program perhaps: what is dragged here can't go on.
std::intptr_t CWindow::OnCaptureChanged(const WindowMessage& message)
{
    const CViewHold hold(*this);
    if (!fLetsGoOfMouse && message.second != reinterpret_cast<std::intptr_t>(fWindow))
        BreakOffTracker();
    return hold.IsOver() ? 0 : DefaultProc(message);
}

std::intptr_t CWindow::OnGetMinMaxInfo(const WindowMessage& message)
{
    auto* const range = reinterpret_cast<Platform::SizeRange*>(message.second);
    if (range == nullptr)
        return DefaultProc(message);
    const Platform::FrameInsets insets = Platform::InsetsOf(fWindow);
    const PixelPoint frame{insets.left + insets.right, insets.top + insets.bottom};
    const CSizeLimits limits = GetSizeLimits();
    const double scale = GetScaleFactor();
    const auto pixels = [scale](double units) {
        return ToDevice(std::min(units, 30000.0), scale); // displays have no larger windows
    };
    range->least = PixelPoint{std::max(range->least.x, pixels(limits.minimum.x) + frame.x),
                              std::max(range->least.y, pixels(limits.minimum.y) + frame.y)};
    range->most = PixelPoint{std::min(range->most.x, pixels(limits.maximum.x) + frame.x),
                             std::min(range->most.y, pixels(limits.maximum.y) + frame.y)};
    return 0;
}

// Texts of tool tips are asked for in wide characters.
std::intptr_t CWindow::OnNotifyFormat(const WindowMessage& message)
{
    constexpr std::intptr_t kQuery = 3;
    constexpr std::intptr_t kWide = 2;
    return message.second == kQuery ? kWide : DefaultProc(message);
}

std::intptr_t CWindow::OnKey(const WindowMessage& message)
{
    fTips.Dismiss();
    const CViewHold hold(*this);
    if (SendPlatformKey(message) || hold.IsOver())
        return 0;
    return DefaultProc(message);
}

// Loops of the system's own dispatch what the pump would have taken.
std::intptr_t CWindow::OnTimer(const WindowMessage& message)
{
    Platform::QueuedMessage timer{message.window, message.number, message.first, message.second};
    return CTimer::FireSystemTimer(timer, Platform::TickCount() / 1000.0) ? 0
                                                                          : DefaultProc(message);
}

CMouseEvent CWindow::EventOf(const WindowMessage& message) const
{
    Platform::QueuedMessage queued{message.window, message.number, message.first, message.second,
                                   Platform::TickCount()};
    const PixelPoint corner = GetScreenPosition();
    const bool isOfScreen = message.number == Platform::Number::kWheel ||
                            message.number == Platform::Number::kSidewaysWheel;
    const PixelPoint point = message.Point();
    queued.x = point.x + (isOfScreen ? 0 : corner.x);
    queued.y = point.y + (isOfScreen ? 0 : corner.y);
    CMouseEvent event = CMouseEvent::Of(queued);
    event.fPortPoint = {(queued.x - corner.x) / GetScaleFactor(),
                        (queued.y - corner.y) / GetScaleFactor()};
    if (const CProcess* const process = CProcess::Current())
        event.fPressure = process->Pressure();
    return event;
}

// The pump has led the move through the desktop already; with the mouse captured it may be outside.
std::intptr_t CWindow::OnMouseMove(const WindowMessage& message)
{
    if (Platform::CapturingWindow() == fWindow)
        PointerMoved(EventOf(message));
    return DefaultProc(message);
}

std::intptr_t CWindow::OnButtonDown(const WindowMessage& message)
{
    fTips.Dismiss();
    Platform::CaptureMouse(fWindow);
    DispatchMouse(EventOf(message));
    return 0;
}

namespace {

bool IsAnyButtonHeld()
{
    using Platform::Key;
    constexpr std::array kButtons = {Key::kLeftButton, Key::kRightButton, Key::kMiddleButton,
                                     Key::kBackwardButton, Key::kForwardButton};
    return std::ranges::any_of(kButtons, [](Key button) {
        return Platform::IsKeyDown(button, Platform::KeyMoment::kLastMessage);
    });
}

} // namespace

// The mouse stays here while another button is held. What is dragged hears of the release after
// that.
std::intptr_t CWindow::OnButtonUp(const WindowMessage& message)
{
    const CViewHold hold(*this);
    if (!IsAnyButtonHeld() && Platform::CapturingWindow() == fWindow) {
        const CFlagScope lettingGo(fLetsGoOfMouse);
        Platform::ReleaseMouse();
    }
    if (!hold.IsOver())
        DispatchMouse(EventOf(message));
    return 0;
}

std::intptr_t CWindow::OnWheel(const WindowMessage& message)
{
    const CViewHold hold(*this);
    const CMouseEvent event = EventOf(message);
    for (CPane* const pane : GetClients(CPane::kClient_Wheel))
        if (!hold.IsOver() && pane->IsVisible() && pane->IsUsable() && pane->SendWheel(event))
            return 0;
    if (!hold.IsOver())
        DispatchMouse(event);
    return 0;
}

std::intptr_t CWindow::OnEnterSizeMove(const WindowMessage& message)
{
    CCommandMessage begins(this, kMessage_SizeBoxBegin);
    Broadcast(&begins, true);
    return DefaultProc(message);
}

std::intptr_t CWindow::OnExitSizeMove(const WindowMessage& message)
{
    CCommandMessage ends(this, kMessage_SizeBoxEnd);
    Broadcast(&ends, false);
    return DefaultProc(message);
}

// The owner has taken the native window along; the run ends without anybody being asked.
std::intptr_t CWindow::OnFrameDestroyed(const WindowMessage&)
{
    const CViewHold hold(*this);
    ForgetSystemWindow();
    fOwnerWindow = nullptr;
    CContext::Hide();
    if (hold.IsOver())
        return 0;
    LeavePath();
    if (!hold.IsOver() && IsStarted())
        SetDone(true);
    return 0;
}

void CWindow::PointerMoved(const CMouseEvent& event)
{
    CMouseEvent here = event;
    const PixelPoint corner = GetScreenPosition();
    here.fID = kMessage_MouseMoved;
    here.fButton = {};
    here.fWheel = {};
    here.fPortPoint = {(event.fPoint.x - corner.x) / GetScaleFactor(),
                       (event.fPoint.y - corner.y) / GetScaleFactor()};
    if (!Platform::IsSystemWindowEnabled(fWindow))
        return;
    const CViewHold hold(*this);
    DispatchMouse(here);
    if (!hold.IsOver())
        fTips.MouseMoved(here);
}

void CWindow::PointerGone()
{
    fTips.Dismiss();
    LeaveMouseView();
}

} // namespace Kesto
