#include "platform/windows/linux/activation.h"

#include "platform/input/linux/queue.h"
#include "platform/input/message_numbers.h"
#include "platform/input/stopped_exception.h"
#include "platform/windows/focus.h"
#include "platform/windows/linux/display.h"
#include "platform/windows/mouse_state.h"

#include <utility>

namespace Platform {
namespace {

using namespace Number;

NativeWindow gActive = nullptr;
NativeWindow gFocused = nullptr;
NativeWindow gCaptor = nullptr;

NativeWindow IfAlive(NativeWindow window)
{
    return window != nullptr && Queue::Get().HasWindow(window) ? window : nullptr;
}

std::intptr_t SendTo(NativeWindow window, std::uint32_t number, std::uintptr_t first = 0,
                     std::intptr_t second = 0)
{
    LinuxWindow* const receiver = LinuxWindow::From(window);
    return receiver != nullptr ? receiver->Send(number, first, second) : 0;
}

std::intptr_t AsParameter(NativeWindow window)
{
    return reinterpret_cast<std::intptr_t>(window);
}

// In the order in which the messages tell of it: the old one is deactivated, then the program comes
// to the front or leaves it, then the new one comes.
void ChangeActive(NativeWindow window, bool byClick)
{
    const NativeWindow old = IfAlive(std::exchange(gActive, window));
    if (old == window)
        return;
    if (old != nullptr) {
        SendTo(old, kFrameActivate, 0);
        SendTo(old, kActivate, 0, AsParameter(window));
    }
    if (window == nullptr)
        SendTo(old, kActivateApp, 0);
    else if (old == nullptr)
        SendTo(window, kActivateApp, 1);
    if (window == nullptr || gActive != window)
        return;
    SendTo(window, kFrameActivate, 1);
    SendTo(window, kActivate, byClick ? kActivatedByClick : 1, AsParameter(old));
}

void ChangeFocus(NativeWindow window)
{
    const NativeWindow old = IfAlive(std::exchange(gFocused, window));
    if (old == window)
        return;
    if (old != nullptr)
        SendTo(old, kKillFocus, reinterpret_cast<std::uintptr_t>(window));
    if (gFocused == window && window != nullptr)
        SendTo(window, kSetFocus, reinterpret_cast<std::uintptr_t>(old));
}

bool CanBeActive(const LinuxWindow* window)
{
    return window != nullptr && window->IsTop() && window->fShown && window->fEnabled &&
           window->fExtent != LinuxWindow::Extent::kMinimized;
}

// Its owner, or else the one in front of all others.
LinuxWindow* NextAfter(const LinuxWindow& window)
{
    if (LinuxWindow* const owner = LinuxWindow::From(window.fOwner); CanBeActive(owner))
        return owner;
    for (const NativeWindow each : Queue::Get().Windows()) {
        LinuxWindow* const other = LinuxWindow::From(each);
        if (other != &window && CanBeActive(other) && !NeverActivates(other->fKind))
            return other;
    }
    return nullptr;
}

bool IsWithin(NativeWindow window, const LinuxWindow& outer)
{
    const LinuxWindow* inner = LinuxWindow::From(window);
    while (inner != nullptr && inner != &outer)
        inner = inner->fParent;
    return inner != nullptr;
}

} // namespace

void MakeActive(LinuxWindow* window, bool byClick)
{
    if (window != nullptr && !CanBeActive(window))
        return;
    const NativeWindow handle = window != nullptr ? window->Handle() : nullptr;
    if (window != nullptr) {
        RaiseWindow(handle);
        Display::Get().Focus(*window);
    }
    ChangeActive(handle, byClick);
    LinuxWindow* const still = LinuxWindow::From(handle);
    if (handle == nullptr)
        ChangeFocus(nullptr);
    else if (still != nullptr && gActive == handle && !IsWithin(IfAlive(gFocused), *still))
        ChangeFocus(handle);
}

void MakeFocused(NativeWindow window)
{
    if (LinuxWindow* const target = LinuxWindow::From(window)) {
        if (!target->IsUsable() || !target->IsVisible())
            return;
        if (gActive != target->Top().Handle())
            MakeActive(&target->Top(), false);
    }
    ChangeFocus(window);
}

void LeaveWindow(LinuxWindow& window)
{
    const NativeWindow handle = window.Handle();
    if (IsWithin(IfAlive(gCaptor), window))
        SetCaptor(nullptr);
    if (gActive == handle)
        MakeActive(NextAfter(window), false);
    else if (IsWithin(IfAlive(gFocused), window))
        ChangeFocus(window.fParent != nullptr ? window.Top().Handle() : nullptr);
}

LinuxWindow* Captor()
{
    return LinuxWindow::From(gCaptor);
}

void SetCaptor(LinuxWindow* window)
{
    const NativeWindow handle = window != nullptr ? window->Handle() : nullptr;
    const NativeWindow old = std::exchange(gCaptor, handle);
    if (old == handle)
        return;
    Display::Get().Capture(window);
    SendTo(old, kCaptureChanged, 0, AsParameter(handle));
}

LinuxWindow* ActiveLinuxWindow()
{
    return LinuxWindow::From(gActive);
}

LinuxWindow* ModalChildOf(LinuxWindow& window)
{
    for (const NativeWindow each : Queue::Get().Windows()) {
        LinuxWindow* const other = LinuxWindow::From(each);
        if (!CanBeActive(other) || NeverActivates(other->fKind))
            continue;
        NativeWindow owner = other->fOwner;
        while (owner != nullptr && owner != window.Handle())
            owner = OwnerOf(owner);
        if (owner != nullptr)
            return other;
    }
    return nullptr;
}

NativeWindow FocusedWindow()
{
    return IfAlive(gFocused);
}

void FocusWindow(NativeWindow window)
{
    if (window != nullptr && IfAlive(window) == nullptr)
        return;
    MakeFocused(window);
    ThrowStopped();
}

// A receiver of messages that is no window of ours counts as active while it has the keyboard.
NativeWindow FrontmostWindow()
{
    const NativeWindow active = IfAlive(gActive);
    return active != nullptr ? active : IfAlive(gFocused);
}

bool IsProcessForeground()
{
    return Display::Get().IsForeground();
}

void CaptureMouse(NativeWindow window)
{
    if (LinuxWindow* const captor = LinuxWindow::From(window))
        SetCaptor(captor);
    ThrowStopped();
}

void ReleaseMouse()
{
    SetCaptor(nullptr);
    ThrowStopped();
}

NativeWindow CapturingWindow()
{
    return IfAlive(gCaptor);
}

void ActivateWindow(NativeWindow window)
{
    if (LinuxWindow* const target = LinuxWindow::From(window); target != nullptr && target->IsTop())
        MakeActive(target, false);
    ThrowStopped();
}

} // namespace Platform
