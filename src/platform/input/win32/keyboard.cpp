#include "platform/input/keyboard.h"

#include <windows.h>

namespace Platform {

bool IsKeyDown(Key key, KeyMoment moment)
{
    const int number = static_cast<int>(key);
    return (moment == KeyMoment::kNow ? GetAsyncKeyState(number) : GetKeyState(number)) < 0;
}

bool IsKeyOn(Key key)
{
    return (GetKeyState(static_cast<int>(key)) & 1) != 0;
}

ModifierKeys HeldModifierKeys()
{
    return {IsKeyDown(Key::kControl, KeyMoment::kNow), IsKeyDown(Key::kAlt, KeyMoment::kNow),
            IsKeyDown(Key::kShift, KeyMoment::kNow)};
}

} // namespace Platform
