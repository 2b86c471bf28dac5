#include "platform/windows/win32/child_notices.h"

#include "platform/system/win32/this_module.h"
#include "platform/windows/win32/window_record.h"

#include <commctrl.h>
#include <map>
#include <utility>

namespace Platform {
namespace {

std::map<HWND, SystemChild*>& Children()
{
    static std::map<HWND, SystemChild*> children;
    return children;
}

SystemChild* ChildOf(HWND window)
{
    const auto found = Children().find(window);
    return found != Children().end() ? found->second : nullptr;
}

bool ComesToHandlerFirst(UINT number)
{
    return (number >= WM_KEYFIRST && number <= WM_KEYLAST) ||
           (number > WM_MOUSEMOVE && number <= WM_MOUSELAST);
}

} // namespace

SystemChild::SystemChild(ChildHandler& handler, NativeWindow parent, const wchar_t* className,
                         DWORD style)
    : fHandler(handler),
      fChild(CreateWindowExW(0, className, L"", style | WS_CHILD | WS_CLIPSIBLINGS, 0, 0, 0, 0,
                             Handle(parent), nullptr, ThisModule(), nullptr))
{
    if (fChild == nullptr) {
        fRefusal = GetLastError();
        return;
    }
    Children()[fChild] = this;
    // Without it nobody would hear of the child's end.
    if (SetWindowSubclass(fChild, Receive, 0, reinterpret_cast<DWORD_PTR>(this)) == 0) {
        Children().erase(fChild);
        DestroyWindow(std::exchange(fChild, nullptr));
        fRefusal = ERROR_NOT_ENOUGH_MEMORY;
    }
}

SystemChild::~SystemChild()
{
    if (const HWND child = std::exchange(fChild, nullptr)) {
        Children().erase(child);
        RemoveWindowSubclass(child, Receive, 0);
        DestroyWindow(child);
    }
}

void SystemChild::PlaceChild(const PixelRect& rect)
{
    if (fChild != nullptr)
        SetWindowPos(fChild, nullptr, rect.left, rect.top, rect.right - rect.left,
                     rect.bottom - rect.top, SWP_NOZORDER | SWP_NOACTIVATE);
    ThrowStopped();
}

void SystemChild::ShowChild(bool shown)
{
    if (fChild != nullptr)
        ShowWindow(fChild, shown ? SW_SHOWNA : SW_HIDE);
    ThrowStopped();
}

void SystemChild::EnableChild(bool enabled)
{
    if (fChild != nullptr)
        EnableWindow(fChild, enabled ? TRUE : FALSE);
    ThrowStopped();
}

LRESULT CALLBACK SystemChild::Receive(HWND child, UINT number, WPARAM first, LPARAM second,
                                      UINT_PTR, DWORD_PTR self)
{
    auto* const control = reinterpret_cast<SystemChild*>(self);
    if (number == WM_NCDESTROY) {
        Children().erase(child);
        control->fChild = nullptr;
        RemoveWindowSubclass(child, Receive, 0);
        return DefSubclassProc(child, number, first, second);
    }
    return WithExceptionsStopped([&] { return control->HandleOwn(number, first, second); });
}

// The control may be gone when its handler has answered.
LRESULT SystemChild::HandleOwn(UINT number, WPARAM first, LPARAM second)
{
    const HWND child = fChild;
    if (ComesToHandlerFirst(number) && fHandler.Intercept({Window(child), number, first, second}))
        return 0;
    if (ChildOf(child) == nullptr)
        return 0;
    if (number == WM_SYSKEYDOWN)
        ShowCuesOf(GetAncestor(child, GA_ROOT));
    if (IsKeptFromSystem(number, first))
        return 0;
    if (HandlePaint(number, first))
        return 0;
    BeforeSystem(number, first);
    const LRESULT answer = DefSubclassProc(child, number, first, second);
    if (ChildOf(child) == this)
        AfterSystem(number, first);
    if ((number == WM_SETFOCUS || number == WM_KILLFOCUS) && ChildOf(child) == this)
        fHandler.ChildFocused(number == WM_SETFOCUS);
    return answer;
}

bool SystemChild::HandlePaint(UINT number, WPARAM first)
{
    if (number != WM_PAINT && number != WM_PRINTCLIENT)
        return false;
    if (first != 0)
        return Paint(reinterpret_cast<HDC>(first));
    PAINTSTRUCT paint{};
    const HDC device = BeginPaint(fChild, &paint);
    const bool isPainted = device != nullptr && Paint(device);
    if (!isPainted)
        DefSubclassProc(fChild, number, reinterpret_cast<WPARAM>(device), 0);
    EndPaint(fChild, &paint);
    return true;
}

bool TellChild(UINT number, WPARAM first, LPARAM second, LRESULT& answer)
{
    // The system tells the parent of what its controls do and ask.
    switch (number) {
    case WM_COMMAND:
        if (SystemChild* const child = ChildOf(reinterpret_cast<HWND>(second))) {
            child->Notice(HIWORD(first));
            return true;
        }
        return false;
    case WM_DRAWITEM: {
        const auto& item = *reinterpret_cast<const DRAWITEMSTRUCT*>(second);
        SystemChild* const child = item.CtlType == ODT_BUTTON ? ChildOf(item.hwndItem) : nullptr;
        if (child == nullptr)
            return false;
        child->Draw(item);
        answer = TRUE;
        return true;
    }
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORSTATIC: {
        SystemChild* const child = ChildOf(reinterpret_cast<HWND>(second));
        const HBRUSH brush =
            child != nullptr ? child->Colours(reinterpret_cast<HDC>(first)) : nullptr;
        answer = reinterpret_cast<LRESULT>(brush);
        return brush != nullptr;
    }
    default:
        return false;
    }
}

} // namespace Platform
