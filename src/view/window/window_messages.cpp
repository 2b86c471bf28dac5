// The table of the platform's messages, and how a message gets to its row.
#include "foundation/alerts/reporter.h"
#include "platform/input/message_numbers.h"
#include "platform/system/machine.h"
#include "view/process/process.h"
#include "view/process/tracker.h"
#include "view/tree/view_hold.h"
#include "view/window/window.h"

#include <algorithm>
#include <iterator>

namespace Kesto {

using Platform::WindowMessage;
namespace Number = Platform::Number;

// In the order in which the handlers are declared; those of the pen, which only passes, come before
// all of them. Messages without a row, those of menus, scroll
// bars, owner-drawn items, tool tips, keyboard cues and colours of controls among them, are the
// default's.
const CWindow::CMessageRow CWindow::kMessageRows[] = {
    {Number::kMove, &CWindow::OnMove},
    {Number::kSize, &CWindow::OnSize},
    {Number::kActivate, &CWindow::OnActivate},
    {Number::kFrameActivate, &CWindow::OnFrameActivate},
    {Number::kActivateApp, &CWindow::OnActivateApp},
    {Number::kSetFocus, &CWindow::OnSetFocus},
    {Number::kKillFocus, &CWindow::OnKillFocus},
    {Number::kEnable, &CWindow::OnEnable},
    {Number::kShowWindow, &CWindow::OnShowWindow},
    {Number::kPaint, &CWindow::OnPaint},
    {Number::kEraseBackground, &CWindow::OnEraseBackground},
    {Number::kClose, &CWindow::OnClose},
    {Number::kSettingChange, &CWindow::OnScaleMayHaveChanged},
    {Number::kDisplayChange, &CWindow::OnScaleMayHaveChanged},
    {Number::kScaleChanged, &CWindow::OnScaleChanged},
    {Number::kCancelMode, &CWindow::OnCancelMode},
    {Number::kCaptureChanged, &CWindow::OnCaptureChanged},
    {Number::kGetMinMaxInfo, &CWindow::OnGetMinMaxInfo},
    {Number::kNotifyFormat, &CWindow::OnNotifyFormat},
    {Number::kKeyDown, &CWindow::OnKey},
    {Number::kKeyUp, &CWindow::OnKey},
    {Number::kKeyChar, &CWindow::OnKey},
    {Number::kDeadChar, &CWindow::OnKey},
    {Number::kSysKeyDown, &CWindow::OnKey},
    {Number::kSysKeyUp, &CWindow::OnKey},
    {Number::kSysKeyChar, &CWindow::OnKey},
    {Number::kSysDeadChar, &CWindow::OnKey},
    {Number::kTimer, &CWindow::OnTimer},
    {Number::kMouseMove, &CWindow::OnMouseMove},
    {Number::kLeftDown, &CWindow::OnButtonDown},
    {Number::kRightDown, &CWindow::OnButtonDown},
    {Number::kMiddleDown, &CWindow::OnButtonDown},
    {Number::kExtraDown, &CWindow::OnButtonDown},
    {Number::kLeftUp, &CWindow::OnButtonUp},
    {Number::kRightUp, &CWindow::OnButtonUp},
    {Number::kMiddleUp, &CWindow::OnButtonUp},
    {Number::kExtraUp, &CWindow::OnButtonUp},
    {Number::kWheel, &CWindow::OnWheel},
    {Number::kSidewaysWheel, &CWindow::OnWheel},
    {Number::kEnterSizeMove, &CWindow::OnEnterSizeMove},
    {Number::kExitSizeMove, &CWindow::OnExitSizeMove},
    {Number::kFrameDestroyed, &CWindow::OnFrameDestroyed},
};

namespace {

// A message as it would lie in the queue.
Platform::QueuedMessage QueuedNow(const WindowMessage& message)
{
    const PixelPoint cursor = Platform::CursorPosition();
    return {message.window,        message.number, message.first, message.second,
            Platform::TickCount(), cursor.x,       cursor.y};
}

} // namespace

std::size_t CWindow::MessageRowCount()
{
    return std::size(kMessageRows);
}

// What a handler throws is reported here, and the message counts as dealt with; but for what is to
// leave all handlers, which the platform hands on to whoever dispatched.
std::intptr_t CWindow::Receive(const WindowMessage& message)
{
    const CViewHold hold(*this);
    std::intptr_t answer = 0;
    Handled([&] { answer = WindowProc(message); });
    return answer;
}

// Messages that the system's own loops dispatch don't pass the pump, where pens and trackers see
// them.
std::intptr_t CWindow::WindowProc(const WindowMessage& message)
{
    CProcess* const process = CProcess::Current();
    if (process != nullptr && CProcess::IsOfPen(message.number))
        process->NotePen(QueuedNow(message));
    CTracker* const tracker = CTracker::Active();
    if (tracker != nullptr && (tracker->State() & CTracker::kState_CapturesMessages) != 0 &&
        tracker->PreTranslate(QueuedNow(message)))
        return 0;
    const CMessageRow* const end = kMessageRows + MessageRowCount();
    const CMessageRow* const row =
        std::find_if(kMessageRows, end,
                     [&message](const CMessageRow& each) { return each.number == message.number; });
    return row != end ? (this->*row->handler)(message) : DefaultProc(message);
}

std::intptr_t CWindow::DefaultProc(const WindowMessage& message)
{
    return Platform::DefaultAnswer(message);
}

} // namespace Kesto
