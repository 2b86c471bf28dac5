// How windows come by their scale.
#pragma once

#include <windows.h>

namespace Platform {

// While it lives, windows that this thread makes scale themselves monitor by monitor. Without
// effect where it isn't wanted, and on systems that don't know of it.
class DpiScope {
public:
    explicit DpiScope(bool perMonitor);
    ~DpiScope();
    DpiScope(const DpiScope&) = delete;
    DpiScope& operator=(const DpiScope&) = delete;

private:
    HANDLE fBefore = nullptr;
};

// Dots per inch of a window.
UINT DpiOf(HWND window);

} // namespace Platform
