#include "platform/windows/focus.h"

namespace Platform {

namespace {

NativeWindow gFocused = nullptr;

}

NativeWindow FocusedWindow()
{
    return gFocused;
}

void FocusWindow(NativeWindow window)
{
    gFocused = window;
}

NativeWindow FrontmostWindow()
{
    return gFocused;
}

bool IsProcessForeground()
{
    return true;
}

} // namespace Platform
