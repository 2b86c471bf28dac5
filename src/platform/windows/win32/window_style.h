// The style bits and class names of windows by kind and features.
#pragma once

#include "platform/windows/window_kinds.h"

#include <string>
#include <windows.h>

namespace Platform {

struct WindowStyle {
    DWORD style;
    DWORD extended;
};

WindowStyle StyleOf(WindowKind kind, std::uint32_t features);

// Registers the class, if it isn't yet. False with the system's code if the system refuses.
bool RegisterWindowClass(const std::wstring& name, WindowKind kind);

} // namespace Platform
