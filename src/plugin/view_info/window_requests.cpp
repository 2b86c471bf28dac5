#include "plugin/view_info/window_requests.h"

#include "drawing/tools/draw_tools.h"
#include "foundation/base/service.h"
#include "foundation/localization/localize.h"
#include "lumograph/window_requests.h"
#include "platform/graphics/monitors.h"
#include "platform/input/injection.h"
#include "platform/input/message_numbers.h"
#include "platform/system/machine.h"
#include "platform/system/unicode.h"
#include "platform/windows/clipboard.h"
#include "platform/windows/mouse_state.h"
#include "platform/windows/popup_menu.h"
#include "platform/windows/window_paint.h"
#include "platform/windows/window_place.h"
#include "plugin/view_info/message_log.h"
#include "view/process/ui_scale.h"
#include "view/window/window.h"

#include <cmath>
#include <span>
#include <utility>
#include <vector>

namespace Kesto {
namespace {

using namespace Platform::Number;

template <class Record>
const Record* RecordOf(const HostInputEvent& event)
{
    return reinterpret_cast<const Record*>(static_cast<std::uintptr_t>(event.second));
}

template <class Visit>
void VisitWindows(Visit visit)
{
    CDesktop* const desktop = CServiceT<CDesktop>::Get(false);
    for (CDesktopWindow* at = desktop != nullptr ? desktop->FrontWindow() : nullptr; at != nullptr;
         at = at->fNext) {
        auto* const window = dynamic_cast<CWindow*>(at);
        if (window != nullptr && window->IsInSight() && visit(*window))
            return;
    }
}

// ----------------------------------------------------------------------------------------- Input

PixelPoint ScreenPoint(CWindow& window, const HostInputEvent& event)
{
    const PixelRect content = window.GetWindowBounds();
    return {content.left + static_cast<std::int16_t>(event.second & 0xFFFF),
            content.top + static_cast<std::int16_t>((event.second >> 16) & 0xFFFF)};
}

struct ButtonRow {
    std::uint32_t message;
    Platform::Key button;
    bool down;
};

constexpr ButtonRow kButtons[] = {
    {kLeftDown, Platform::Key::kLeftButton, true},
    {kLeftUp, Platform::Key::kLeftButton, false},
    {kRightDown, Platform::Key::kRightButton, true},
    {kRightUp, Platform::Key::kRightButton, false},
    {kMiddleDown, Platform::Key::kMiddleButton, true},
    {kMiddleUp, Platform::Key::kMiddleButton, false},
};

bool IsOfMouse(const HostInputEvent& event)
{
    return event.message >= kMouseFirst && event.message <= kMouseLast;
}

// A button is let go wherever the mouse is, if the window has gone.
void PutMouse(CWindow* window, const HostInputEvent& event)
{
    if (window != nullptr) {
        const PixelPoint point = ScreenPoint(*window, event);
        if (event.message == kMouseMove || !(Platform::CursorPosition() == point))
            Platform::InjectMove(point);
    }
    for (const ButtonRow& row : kButtons)
        if (row.message == event.message && (window != nullptr || !row.down))
            Platform::InjectButton(row.button, row.down);
    if (window == nullptr)
        return;
    const auto turn = static_cast<std::int16_t>((event.first >> 16) & 0xFFFF);
    if (event.message == kWheel)
        Platform::InjectWheel(0, turn);
    if (event.message == kSidewaysWheel)
        Platform::InjectWheel(turn, 0);
}

bool PutKey(const HostInputEvent& event)
{
    switch (event.message) {
    case kKeyDown:
    case kSysKeyDown:
        Platform::InjectKey(static_cast<std::uint32_t>(event.first), true);
        return true;
    case kKeyUp:
    case kSysKeyUp:
        Platform::InjectKey(static_cast<std::uint32_t>(event.first), false);
        return true;
    case kKeyChar:
        Platform::InjectCharacter(static_cast<char32_t>(event.first));
        return true;
    default:
        return false;
    }
}

// -------------------------------------------------------------------------------------- Requests

void ListWindows(const HostWindowList& list)
{
    VisitWindows([&list](CWindow& window) {
        const HostWindow entry{window.NativeHandle(), window.GetTitle().CStr(),
                               window.GetScaleFactor()};
        list.Add(list.context, &entry);
        return false;
    });
    VisitWindows([&list](CWindow& window) {
        CText text = window.Tips().Text();
        Localize(text);
        const HostWindow entry{nullptr, text.CStr(), window.GetScaleFactor()};
        if (window.Tips().IsShown())
            list.Add(list.context, &entry);
        return false;
    });
}

void Photograph(CWindow& window, const HostPhotograph& photograph)
{
    window.UpdateNow();
    Platform::Bitmap picture;
    if (!Platform::PhotographWindow(window.NativeHandle(), picture))
        return;
    photograph.Take(photograph.context, picture.Width(), picture.Height(), picture.Bits(),
                    picture.RowBytes());
}

void Focus(CWindow& window, const char* id)
{
    auto* const view = dynamic_cast<CView*>(window.FindMessenger(CObjID(id)));
    if (view != nullptr && CMessenger::Surrender(false) && view->BecomeBullseye(false))
        view->SelectContents();
}

void Type(std::string_view text)
{
    while (!text.empty())
        Platform::InjectCharacter(Platform::TakeCharacter(text));
}

// By the key command, so that it goes the way that a user's pasting goes.
void Paste(const char* text)
{
    if (!Platform::SetClipboardText(text))
        return;
    constexpr auto kControl = static_cast<std::uint32_t>(Platform::Key::kControl);
    Platform::InjectKey(kControl, true);
    Platform::InjectKey('V', true);
    Platform::InjectKey('V', false);
    Platform::InjectKey(kControl, false);
}

void TellOfDisplayChange()
{
    VisitWindows([](CWindow& each) {
        Platform::PostToQueue(each.NativeHandle(), kDisplayChange);
        return false;
    });
}

// Each window asks for its scale anew, as after a change of the display.
void Scale(CWindow& window, double scale)
{
    if (!(scale > 0.0) || !std::isfinite(scale))
        return;
    SetUiScale(GetUiScale() * scale / window.GetScaleFactor());
    TellOfDisplayChange();
}

void Place(CWindow& window, const HostUnits& corner)
{
    const PixelRect frame = window.GetWindowFrame();
    const PixelRect content = window.GetWindowBounds();
    window.MoveWindow({RoundHalfAway(corner.x) - content.left + frame.left,
                       RoundHalfAway(corner.y) - content.top + frame.top});
}

void UseMonitors(const HostMonitors& wanted)
{
    std::vector<Platform::Monitor> monitors;
    for (const HostMonitor& each :
         std::span(wanted.monitors, static_cast<std::size_t>(wanted.count))) {
        const PixelRect bounds{each.left, each.top, each.right, each.bottom};
        monitors.push_back({bounds, bounds, 1.0});
    }
    if (Platform::MakeUpMonitors(std::move(monitors)))
        TellOfDisplayChange();
    for (const auto& [bounds, workArea, scale] : Platform::ListMonitors()) {
        const HostMonitor there{bounds.left, bounds.top, bounds.right, bounds.bottom};
        wanted.Add(wanted.context, &there);
    }
}

constexpr const char* kShapeNames[Platform::kCursorShapes] = {
    "arrow",       "text",  "cross",           "hand",         "wait",         "arrow-wait",
    "not-allowed", "help",  "size-left-right", "size-up-down", "size-falling", "size-rising",
    "size-all",    "hidden"};

void TellCursor(const HostCursor& cursor)
{
    const auto shape = Platform::ShownCursor();
    cursor.Take(cursor.context, shape ? kShapeNames[static_cast<int>(*shape)] : "");
}

void SetTheme(std::int32_t theme)
{
    if (theme < 0 || theme >= CDrawTools::kTheme_System)
        return;
    CDrawTools::Get().SetTheme(theme);
    VisitWindows([](CWindow& window) {
        window.InvalidateAll();
        return false;
    });
}

void Dismiss(CWindow& window)
{
    Platform::LeavePopupMenu();
    if (window.IsPopup()) {
        window.ClosePopup();
        return;
    }
    window.ResignBullseyeToParent(true);
    window.SetDoneFlag(true);
}

void AskWindow(CWindow& window, const HostInputEvent& event)
{
    switch (event.message) {
    case kClose:
        Platform::PostToQueue(window.NativeHandle(), kClose);
        break;
    case kHostRequestPhotograph:
        Photograph(window, *RecordOf<HostPhotograph>(event));
        break;
    case kHostRequestFocus:
        Focus(window, RecordOf<char>(event));
        break;
    case kHostRequestPaste:
        Paste(RecordOf<char>(event));
        break;
    case kHostRequestSize:
        window.SizeWindow({RecordOf<HostUnits>(event)->x, RecordOf<HostUnits>(event)->y});
        break;
    case kHostRequestScale:
        Scale(window, RecordOf<HostUnits>(event)->x);
        break;
    case kHostRequestPlace:
        Place(window, *RecordOf<HostUnits>(event));
        break;
    case kHostRequestDismiss:
        Dismiss(window);
        break;
    default:
        break;
    }
}

} // namespace

CWindow* FindWindowOf(void* native)
{
    CWindow* found = nullptr;
    VisitWindows([native, &found](CWindow& window) {
        const bool isIt = native == nullptr || window.NativeHandle() == native;
        found = isIt ? &window : nullptr;
        return isIt;
    });
    return found;
}

bool IsInput(const HostInputEvent& event)
{
    return IsOfMouse(event) || event.message == kHostRequestType ||
           (event.message >= kKeyFirst && event.message <= kKeyLast);
}

void CarryOut(const HostInputEvent& event)
{
    switch (event.message) {
    case kHostRequestWindows:
        ListWindows(*RecordOf<HostWindowList>(event));
        return;
    case kHostRequestMessages:
        StartMessageLog(RecordOf<HostMessageLog>(event));
        return;
    case kHostRequestTheme:
        SetTheme(static_cast<std::int32_t>(event.first));
        return;
    case kHostRequestMonitors:
        UseMonitors(*RecordOf<HostMonitors>(event));
        return;
    case kHostRequestCursor:
        TellCursor(*RecordOf<HostCursor>(event));
        return;
    case kHostRequestOwnTime:
        if (!Platform::HasDisplay())
            Platform::HoldClock();
        return;
    default:
        break;
    }
    // From here on somebody must be there to take it; what finds nobody is dropped.
    if (event.message == kHostRequestType)
        Type(RecordOf<char>(event));
    if (PutKey(event))
        return;
    CWindow* const window = FindWindowOf(event.window);
    if (IsOfMouse(event))
        PutMouse(window, event);
    else if (window != nullptr)
        AskWindow(*window, event);
}

} // namespace Kesto
