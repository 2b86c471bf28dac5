#include "platform/windows/system_window.h"

#include "platform/system/win32/late_function.h"
#include "platform/system/win32/this_module.h"
#include "platform/system/win32/wide.h"
#include "platform/windows/win32/dpi.h"
#include "platform/windows/win32/window_record.h"
#include "platform/windows/win32/window_style.h"

#include <algorithm>

namespace Platform {
namespace {

std::wstring ClassNameOf(const WindowPlan& plan)
{
    const std::wstring name =
        plan.className.empty() ? L"Kesto_DefaultClass" : ToWide(plan.className);
    return plan.kind == WindowKind::kPopup ? name + L"_Popup" : name;
}

// A document of a frame is a child of the frame's client.
HWND ParentOf(const WindowPlan& plan)
{
    const WindowRecord* const owner = RecordOf(Handle(plan.owner));
    return plan.kind == WindowKind::kMDIDocument && owner != nullptr ? owner->documents
                                                                     : Handle(plan.owner);
}

HWND MakeDocumentsClient(HWND frame)
{
    CLIENTCREATESTRUCT plan{nullptr, 50000};
    return CreateWindowExW(0, L"MDICLIENT", nullptr,
                           WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | WS_CLIPSIBLINGS, 0, 0, 0, 0,
                           frame, nullptr, ThisModule(), &plan);
}

} // namespace

bool HasDisplay()
{
    return true;
}

NativeWindow MakeSystemWindow(const WindowPlan& plan, WindowProcedure& procedure)
{
    const std::wstring name = ClassNameOf(plan);
    if (!RegisterWindowClass(name, plan.kind))
        return nullptr;
    const DpiScope awareness((plan.features & WindowFeature::kResolutionIndependent) != 0);
    WindowStyle style = StyleOf(plan.kind, plan.features);
    HWND parent = ParentOf(plan);
    // Without a frame around it a document of a frame is a plain one.
    if (plan.kind == WindowKind::kMDIDocument && parent == nullptr)
        style = StyleOf(WindowKind::kDocument, plan.features);
    RECT rect{plan.content.left, plan.content.top, plan.content.right, plan.content.bottom};
    AdjustWindowRectEx(&rect, style.style, FALSE, style.extended);
    const HWND window = CreateWindowExW(
        style.extended, name.c_str(), ToWide(plan.title).c_str(), style.style, rect.left, rect.top,
        rect.right - rect.left, rect.bottom - rect.top, parent, nullptr, ThisModule(), nullptr);
    if (window == nullptr)
        return nullptr;
    WindowRecord record;
    record.kind = plan.kind == WindowKind::kMDIDocument && (style.style & WS_CHILD) == 0
                      ? WindowKind::kDocument
                      : plan.kind;
    record.features = plan.features;
    if (plan.kind == WindowKind::kMDIFrame) {
        record.documents = MakeDocumentsClient(window);
        if (record.documents == nullptr) {
            const DWORD refusal = GetLastError();
            DestroyWindow(window);
            SetLastError(refusal);
            return nullptr;
        }
    }
    record.procedure = &procedure;
    AddRecord(window, record);
    return Window(window);
}

void EndSystemWindow(NativeWindow window)
{
    WindowRecord* const record = RecordOf(Handle(window));
    if (record == nullptr)
        return;
    record->procedure = nullptr;
    DestroyWindow(Handle(window));
}

bool IsSystemWindow(NativeWindow window)
{
    return IsWindow(Handle(window)) != 0;
}

// Windows that never activate are shown by the commands that don't.
void ShowSystemWindow(NativeWindow window, ShowCommand command)
{
    const WindowRecord* const record = RecordOf(Handle(window));
    if (record == nullptr)
        return;
    int number = static_cast<int>(command);
    if (NeverActivates(record->kind) && command == ShowCommand::kShow)
        number = SW_SHOWNA;
    else if (NeverActivates(record->kind) && command == ShowCommand::kNormal)
        number = SW_SHOWNOACTIVATE;
    ShowWindow(Handle(window), number);
    ThrowStopped();
}

ShowCommand StartShowCommand()
{
    STARTUPINFOW info{};
    GetStartupInfoW(&info);
    return (info.dwFlags & STARTF_USESHOWWINDOW) != 0 ? static_cast<ShowCommand>(info.wShowWindow)
                                                      : ShowCommand::kNormal;
}

bool IsShown(NativeWindow window)
{
    return IsWindowVisible(Handle(window)) != 0;
}

bool IsMinimized(NativeWindow window)
{
    return IsIconic(Handle(window)) != 0;
}

bool IsMaximized(NativeWindow window)
{
    return IsZoomed(Handle(window)) != 0;
}

void EnableSystemWindow(NativeWindow window, bool enable)
{
    EnableWindow(Handle(window), enable ? TRUE : FALSE);
    ThrowStopped();
}

bool IsSystemWindowEnabled(NativeWindow window)
{
    return IsWindowEnabled(Handle(window)) != 0;
}

void ActivateWindow(NativeWindow window)
{
    const HWND handle = Handle(window);
    if (IsWindowEnabled(handle) == 0 || IsWindowVisible(handle) == 0)
        return;
    SetActiveWindow(handle);
    ThrowStopped();
}

void RaiseWindow(NativeWindow window)
{
    SetWindowPos(Handle(window), HWND_TOP, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_NOOWNERZORDER);
    ThrowStopped();
}

void SetWindowTitle(NativeWindow window, std::string_view title)
{
    SetWindowTextW(Handle(window), ToWide(title).c_str());
    ThrowStopped();
}

std::string WindowTitle(NativeWindow window)
{
    std::wstring title(static_cast<std::size_t>(GetWindowTextLengthW(Handle(window))), L'\0');
    const int length =
        GetWindowTextW(Handle(window), title.data(), static_cast<int>(title.size() + 1));
    title.resize(static_cast<std::size_t>(length));
    return FromWide(title);
}

NativeWindow OwnerOf(NativeWindow window)
{
    return Window(GetWindow(Handle(window), GW_OWNER));
}

NativeWindow TopWindowOf(NativeWindow window)
{
    HWND top = Handle(window);
    while (top != nullptr && RecordOf(top) == nullptr)
        top = GetAncestor(top, GA_PARENT);
    return Window(top != nullptr ? top : GetAncestor(Handle(window), GA_ROOT));
}

std::vector<NativeWindow> ThreadWindows()
{
    std::vector<NativeWindow> windows;
    EnumThreadWindows(
        GetCurrentThreadId(),
        [](HWND window, LPARAM list) -> BOOL {
            if (RecordOf(window) != nullptr)
                reinterpret_cast<std::vector<NativeWindow>*>(list)->push_back(Window(window));
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&windows));
    return windows;
}

void SetWindowFeatures(NativeWindow window, std::uint32_t features)
{
    WindowRecord* const record = RecordOf(Handle(window));
    if (record == nullptr)
        return;
    record->features = features;
    const WindowStyle style = StyleOf(record->kind, features);
    const LONG_PTR shown = GetWindowLongPtrW(Handle(window), GWL_STYLE) &
                           (WS_VISIBLE | WS_DISABLED | WS_MINIMIZE | WS_MAXIMIZE);
    SetWindowLongPtrW(Handle(window), GWL_STYLE, static_cast<LONG_PTR>(style.style) | shown);
    SetWindowLongPtrW(Handle(window), GWL_EXSTYLE, style.extended & ~DWORD{WS_EX_MDICHILD});
    SetWindowPos(Handle(window), nullptr, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
    ThrowStopped();
}

} // namespace Platform
