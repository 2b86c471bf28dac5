// From the seam's windows to those of the system and back.
#pragma once

#include "platform/system/native_window.h"

#include <windows.h>

namespace Platform {

inline HWND Handle(NativeWindow window)
{
    return reinterpret_cast<HWND>(window);
}

inline NativeWindow Window(HWND handle)
{
    return reinterpret_cast<NativeWindow>(handle);
}

} // namespace Platform
