#include "platform/windows/system_window.h"

#include "platform/input/linux/queue.h"
#include "platform/input/message_numbers.h"
#include "platform/input/stopped_exception.h"
#include "platform/system/errors.h"
#include "platform/windows/focus.h"
#include "platform/windows/linux/activation.h"
#include "platform/windows/linux/display.h"
#include "platform/windows/linux/route.h"

#include <cerrno>
#include <cstdint>
#include <map>
#include <memory>

namespace Platform {
namespace {

using namespace Number;

std::map<NativeWindow, std::unique_ptr<TopWindow>>& TopWindows()
{
    static std::map<NativeWindow, std::unique_ptr<TopWindow>> windows;
    return windows;
}

std::vector<NativeWindow> OwnedBy(NativeWindow owner)
{
    std::vector<NativeWindow> owned;
    for (const auto& [handle, window] : TopWindows())
        if (window->fOwner == owner)
            owned.push_back(handle);
    return owned;
}

bool Activates(ShowCommand command)
{
    return command != ShowCommand::kNormalInactive && command != ShowCommand::kShowInactive &&
           command != ShowCommand::kMinimizedInactive && command != ShowCommand::kMinimize;
}

} // namespace

NativeWindow MakeSystemWindow(const WindowPlan& plan, WindowProcedure& procedure)
{
    constexpr std::size_t kLongestClassName = 255; // as everywhere
    if (plan.className.size() > kLongestClassName) {
        SetLastError(ENAMETOOLONG);
        return nullptr;
    }
    Display::Connect();
    SetInputRouter(RouteInput);
    auto window = std::make_unique<TopWindow>(plan, procedure);
    if (!Display::Get().AddWindow(*window))
        return nullptr;
    const NativeWindow handle = window->Handle();
    TopWindows().emplace(handle, std::move(window));
    return handle;
}

// Those that it owns are closed first, then the keyboard and the mouse leave it.
void EndSystemWindow(NativeWindow window)
{
    const auto found = TopWindows().find(window);
    if (found == TopWindows().end())
        return;
    found->second->Silence();
    for (const NativeWindow owned : OwnedBy(window)) {
        if (LinuxWindow* const other = LinuxWindow::From(owned))
            other->Send(kFrameDestroyed);
        EndSystemWindow(owned);
    }
    const auto still = TopWindows().find(window); // a handler may have ended it as well
    if (still == TopWindows().end())
        return;
    const std::unique_ptr<TopWindow> goes = std::move(still->second);
    TopWindows().erase(still);
    goes->fShown = false;
    LeaveWindow(*goes);
    Display::Get().RemoveWindow(*goes);
}

bool IsSystemWindow(NativeWindow window)
{
    return LinuxWindow::From(window) != nullptr ||
           Display::Get().IsForeignWindow(
               static_cast<std::uint32_t>(reinterpret_cast<std::uintptr_t>(window)));
}

ShowCommand StartShowCommand()
{
    return ShowCommand::kNormal;
}

bool IsShown(NativeWindow window)
{
    const LinuxWindow* const found = LinuxWindow::From(window);
    return found != nullptr && found->IsVisible();
}

bool IsMinimized(NativeWindow window)
{
    const LinuxWindow* const found = LinuxWindow::From(window);
    return found != nullptr && found->fExtent == LinuxWindow::Extent::kMinimized;
}

bool IsMaximized(NativeWindow window)
{
    const LinuxWindow* const found = LinuxWindow::From(window);
    return found != nullptr && found->fExtent == LinuxWindow::Extent::kMaximized;
}

// A window that can get no input has neither the mouse nor the keyboard, but may stay active.
void EnableSystemWindow(NativeWindow window, bool enable)
{
    LinuxWindow* const found = LinuxWindow::From(window);
    if (found == nullptr || found->fEnabled == enable)
        return;
    if (!enable)
        found->Send(kCancelMode);
    if (LinuxWindow::From(window) == nullptr)
        return;
    found->fEnabled = enable;
    if (!enable && FocusedWindow() == window)
        MakeFocused(nullptr);
    found->Send(kEnable, enable ? 1 : 0);
    ThrowStopped();
}

bool IsSystemWindowEnabled(NativeWindow window)
{
    const LinuxWindow* const found = LinuxWindow::From(window);
    return found != nullptr && found->fEnabled;
}

void RaiseWindow(NativeWindow window)
{
    LinuxWindow* const found = LinuxWindow::From(window);
    if (found == nullptr)
        return;
    Queue::Get().BringToFront(window);
    for (LinuxWindow* const child : found->fChildren)
        Queue::Get().BringToFront(child->Handle());
    Display::Get().Raise(*found);
    for (const NativeWindow owned : OwnedBy(window))
        RaiseWindow(owned);
}

void SetWindowTitle(NativeWindow window, std::string_view title)
{
    LinuxWindow* const found = LinuxWindow::From(window);
    if (found == nullptr)
        return;
    found->fTitle = title;
    Display::Get().Title(*found);
}

std::string WindowTitle(NativeWindow window)
{
    const LinuxWindow* const found = LinuxWindow::From(window);
    return found != nullptr ? found->fTitle : std::string();
}

NativeWindow OwnerOf(NativeWindow window)
{
    const LinuxWindow* const found = LinuxWindow::From(window);
    return found != nullptr ? found->fOwner : nullptr;
}

NativeWindow TopWindowOf(NativeWindow window)
{
    LinuxWindow* const found = LinuxWindow::From(window);
    return found != nullptr ? found->Top().Handle() : window;
}

std::vector<NativeWindow> ThreadWindows()
{
    std::vector<NativeWindow> windows = Queue::Get().Windows();
    std::erase_if(windows, [](NativeWindow window) { return !TopWindows().contains(window); });
    return windows;
}

void SetWindowFeatures(NativeWindow window, std::uint32_t features)
{
    LinuxWindow* const found = LinuxWindow::From(window);
    if (found == nullptr)
        return;
    found->fFeatures = features;
    Display::Get().Place(*found);
}

namespace {

void HideWindow(LinuxWindow& window)
{
    const NativeWindow handle = window.Handle();
    if (!window.fShown)
        return;
    window.Send(kShowWindow, 0);
    if (LinuxWindow::From(handle) == nullptr)
        return;
    window.fShown = false;
    window.ForgetUpdates();
    Display::Get().Show(window);
    window.Send(kWindowPosChanged);
    if (LinuxWindow::From(handle) != nullptr)
        LeaveWindow(window);
}

// Windows with the frame of a document hear of their size and place when they are first shown;
// others know them from the start.
bool HearsOfFirstPlace(WindowKind kind)
{
    return kind == WindowKind::kDocument || kind == WindowKind::kMDIFrame;
}

void AppearWindow(LinuxWindow& window, bool activate)
{
    const NativeWindow handle = window.Handle();
    const auto lives = [handle] { return LinuxWindow::From(handle) != nullptr; };
    // Each message may end the window.
    window.Send(kShowWindow, 1);
    if (!lives())
        return;
    window.fShown = true;
    RaiseWindow(handle);
    Display::Get().Show(window);
    if (activate)
        MakeActive(&window, false);
    if (!lives())
        return;
    window.Send(kEraseBackground);
    if (lives()) {
        window.InvalidateTree();
        window.Send(kWindowPosChanged);
    }
    // The first time a window is told where it is and how large, as if it had been moved there.
    if (!lives() || std::exchange(window.fWasShown, true) || !HearsOfFirstPlace(window.fKind))
        return;
    const PixelRect local = window.Local();
    window.Send(kSize, 0, PackPoint(local.right, local.bottom));
    if (lives())
        window.Send(kMove, 0, PackPoint(window.fContent.left, window.fContent.top));
}

void SetExtent(LinuxWindow& window, LinuxWindow::Extent extent)
{
    using Extent = LinuxWindow::Extent;
    if (window.fExtent == extent)
        return;
    if (window.fExtent == Extent::kNormal)
        window.fNormal = window.fContent;
    window.fExtent = extent;
    Display::Get().ShowState(window);
    const NativeWindow handle = window.Handle();
    if (extent == Extent::kMinimized) {
        // Whoever hears of it may end the window.
        window.Send(kSize, kSizedMinimized);
        if (LinuxWindow::From(handle) != nullptr)
            LeaveWindow(window);
        return;
    }
    window.PlaceAt(extent == Extent::kMaximized ? MaximizedContent(window) : window.fNormal);
}

} // namespace

void ShowSystemWindow(NativeWindow window, ShowCommand command)
{
    using Extent = LinuxWindow::Extent;
    LinuxWindow* const found = LinuxWindow::From(window);
    if (found == nullptr || !found->IsTop())
        return;
    const bool activate = Activates(command) && !NeverActivates(found->fKind);
    if (command == ShowCommand::kHide)
        HideWindow(*found);
    else if (command == ShowCommand::kMaximized)
        SetExtent(*found, Extent::kMaximized);
    else if (command == ShowCommand::kMinimized || command == ShowCommand::kMinimize ||
             command == ShowCommand::kMinimizedInactive)
        SetExtent(*found, Extent::kMinimized);
    else if (command != ShowCommand::kShow && command != ShowCommand::kShowInactive)
        SetExtent(*found, Extent::kNormal);
    // The messages of the change may have destroyed it.
    if (command != ShowCommand::kHide && LinuxWindow::From(window) != nullptr) {
        if (!found->fShown)
            AppearWindow(*found, activate);
        else if (activate)
            MakeActive(found, false);
    }
    ThrowStopped();
}

} // namespace Platform
