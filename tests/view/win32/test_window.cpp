#include "view/test_window.h"

#include "platform/input/message_numbers.h"

#include <windows.h>

struct TestWindow::Native {
    static LRESULT CALLBACK Receive(HWND window, UINT number, WPARAM first, LPARAM second)
    {
        auto* const test = reinterpret_cast<TestWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
        const bool counts = (number >= WM_KEYFIRST && number <= WM_KEYLAST) || number == WM_TIMER ||
                            (number >= WM_MOUSEFIRST && number <= WM_MOUSELAST) ||
                            number >= WM_USER;
        if (test == nullptr || !counts)
            return DefWindowProcW(window, number, first, second);
        test->received.push_back(number);
        test->onMessage();
        return 0;
    }

    ~Native() { DestroyWindow(handle); }

    HWND handle = nullptr;
};

TestWindow::TestWindow() : fNative(std::make_unique<Native>())
{
    WNDCLASSW kind{};
    kind.lpfnWndProc = Native::Receive;
    kind.hInstance = GetModuleHandleW(nullptr);
    kind.lpszClassName = L"SidecarTestWindow";
    RegisterClassW(&kind);
    fNative->handle = CreateWindowExW(0, kind.lpszClassName, L"", 0, 0, 0, 0, 0, HWND_MESSAGE,
                                      nullptr, kind.hInstance, nullptr);
    SetWindowLongPtrW(fNative->handle, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

TestWindow::~TestWindow() = default;

Platform::NativeWindow TestWindow::Handle() const
{
    return reinterpret_cast<Platform::NativeWindow>(fNative->handle);
}

double ProcessorSeconds()
{
    FILETIME made{};
    FILETIME ended{};
    FILETIME kernel{};
    FILETIME user{};
    GetProcessTimes(GetCurrentProcess(), &made, &ended, &kernel, &user);
    const auto seconds = [](const FILETIME& time) {
        return (static_cast<double>(time.dwHighDateTime) * 4294967296.0 + time.dwLowDateTime) *
               1e-7;
    };
    return seconds(kernel) + seconds(user);
}
