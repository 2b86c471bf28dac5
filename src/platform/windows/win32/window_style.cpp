#include "platform/windows/win32/window_style.h"

#include "platform/system/win32/this_module.h"
#include "platform/windows/win32/window_record.h"

#include <set>

namespace Platform {
namespace {

DWORD FrameBits(std::uint32_t features)
{
    DWORD bits = WS_CAPTION;
    if ((features & WindowFeature::kCanClose) != 0)
        bits |= WS_SYSMENU;
    if ((features & WindowFeature::kCanSize) != 0)
        bits |= WS_THICKFRAME;
    if ((features & WindowFeature::kCanMaximize) != 0)
        bits |= WS_SYSMENU | WS_MAXIMIZEBOX;
    if ((features & WindowFeature::kCanMinimize) != 0)
        bits |= WS_SYSMENU | WS_MINIMIZEBOX;
    return bits;
}

// The classes that this module has registered, which must be gone before its code is.
class WindowClasses {
public:
    ~WindowClasses()
    {
        for (const std::wstring& name : fNames)
            UnregisterClassW(name.c_str(), ThisModule());
    }

    bool Register(const std::wstring& name, WindowKind kind)
    {
        if (fNames.contains(name))
            return true;
        constexpr std::size_t kLongestName = 255; // not every system looks
        if (name.size() > kLongestName) {
            SetLastError(ERROR_INVALID_PARAMETER);
            return false;
        }
        WNDCLASSW kept{};
        kept.style = kind == WindowKind::kPopup ? CS_DROPSHADOW | CS_SAVEBITS : 0;
        kept.lpfnWndProc = ReceiveMessage;
        kept.hInstance = ThisModule();
        kept.lpszClassName = name.c_str();
        if (RegisterClassW(&kept) == 0 && GetLastError() != ERROR_CLASS_ALREADY_EXISTS)
            return false;
        fNames.insert(name);
        return true;
    }

private:
    std::set<std::wstring> fNames;
};

} // namespace

WindowStyle StyleOf(WindowKind kind, std::uint32_t features)
{
    // Children paint themselves: a parent that painted over them would make them flicker.
    constexpr DWORD kAll = WS_CLIPCHILDREN | WS_CLIPSIBLINGS;
    DWORD extended = (features & WindowFeature::kDropFiles) != 0 ? WS_EX_ACCEPTFILES : 0;
    const DWORD frame = FrameBits(features);
    switch (kind) {
    case WindowKind::kAlert:
    case WindowKind::kDialog:
        return {kAll | WS_POPUP | frame, extended | WS_EX_DLGMODALFRAME};
    case WindowKind::kPalette:
    case WindowKind::kToolbar:
        return {kAll | WS_POPUP | frame, extended | WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE};
    case WindowKind::kPopup:
        return {kAll | WS_POPUP, extended | WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE};
    case WindowKind::kMDIDocument:
        return {kAll | WS_CHILD | frame, extended | WS_EX_MDICHILD};
    case WindowKind::kDocumentSeamless:
        return {kAll | WS_POPUP, extended};
    case WindowKind::kMDIFrame:
    case WindowKind::kDocument:
        break;
    }
    return {kAll | WS_OVERLAPPED | frame, extended};
}

bool RegisterWindowClass(const std::wstring& name, WindowKind kind)
{
    static WindowClasses classes;
    return classes.Register(name, kind);
}

} // namespace Platform
