#include "platform/keyboard.h"

#include <windows.h>

namespace Platform {
namespace {

bool IsDown(int key)
{
    return GetAsyncKeyState(key) < 0;
}

} // namespace

ModifierKeys HeldModifierKeys()
{
    return {IsDown(VK_CONTROL), IsDown(VK_MENU), IsDown(VK_SHIFT)};
}

} // namespace Platform
