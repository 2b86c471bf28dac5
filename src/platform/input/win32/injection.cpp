#include "platform/input/injection.h"

#include <windows.h>

namespace Platform {
namespace {

void SendMouse(DWORD flags, DWORD data, LONG x, LONG y)
{
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = flags;
    input.mi.mouseData = data;
    input.mi.dx = x;
    input.mi.dy = y;
    SendInput(1, &input, sizeof input);
}

void SendKey(WORD key, WORD scan, DWORD flags)
{
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.wScan = scan;
    input.ki.dwFlags = flags;
    SendInput(1, &input, sizeof input);
}

void LetGoOf(int key)
{
    switch (key) {
    case VK_LBUTTON:
        return SendMouse(MOUSEEVENTF_LEFTUP, 0, 0, 0);
    case VK_RBUTTON:
        return SendMouse(MOUSEEVENTF_RIGHTUP, 0, 0, 0);
    case VK_MBUTTON:
        return SendMouse(MOUSEEVENTF_MIDDLEUP, 0, 0, 0);
    case VK_XBUTTON1:
        return SendMouse(MOUSEEVENTF_XUP, XBUTTON1, 0, 0);
    case VK_XBUTTON2:
        return SendMouse(MOUSEEVENTF_XUP, XBUTTON2, 0, 0);
    default:
        return SendKey(static_cast<WORD>(key), 0, KEYEVENTF_KEYUP);
    }
}

// A program that ended within a press leaves the key held for the whole desktop. This one's first
// press of it would pass for a repeat, which closes no dialog, so all is let go before the first.
void BeginInput()
{
    static const bool begun = [] {
        for (int key = VK_LBUTTON; key < 0xFF; ++key)
            if ((GetAsyncKeyState(key) & 0x8000) != 0)
                LetGoOf(key);
        return true;
    }();
    static_cast<void>(begun);
}

void InjectMouse(DWORD flags, DWORD data = 0, LONG x = 0, LONG y = 0)
{
    BeginInput();
    SendMouse(flags, data, x, y);
}

void InjectKeyboard(WORD key, WORD scan, DWORD flags)
{
    BeginInput();
    SendKey(key, scan, flags);
}

} // namespace

void InjectMove(PixelPoint point)
{
    SetCursorPos(point.x, point.y);
    InjectMouse(MOUSEEVENTF_MOVE);
}

void InjectButton(Key button, bool down)
{
    switch (button) {
    case Key::kLeftButton:
        InjectMouse(down ? MOUSEEVENTF_LEFTDOWN : MOUSEEVENTF_LEFTUP);
        break;
    case Key::kRightButton:
        InjectMouse(down ? MOUSEEVENTF_RIGHTDOWN : MOUSEEVENTF_RIGHTUP);
        break;
    case Key::kMiddleButton:
        InjectMouse(down ? MOUSEEVENTF_MIDDLEDOWN : MOUSEEVENTF_MIDDLEUP);
        break;
    case Key::kBackwardButton:
        InjectMouse(down ? MOUSEEVENTF_XDOWN : MOUSEEVENTF_XUP, XBUTTON1);
        break;
    case Key::kForwardButton:
        InjectMouse(down ? MOUSEEVENTF_XDOWN : MOUSEEVENTF_XUP, XBUTTON2);
        break;
    default:
        break;
    }
}

void InjectWheel(std::int32_t right, std::int32_t up)
{
    if (up != 0)
        InjectMouse(MOUSEEVENTF_WHEEL, static_cast<DWORD>(up));
    if (right != 0)
        InjectMouse(MOUSEEVENTF_HWHEEL, static_cast<DWORD>(right));
}

// The keyboard's layout knows what the key types.
void InjectKey(std::uint32_t key, bool down, std::u16string_view)
{
    const UINT scan = MapVirtualKeyW(key, MAPVK_VK_TO_VSC);
    InjectKeyboard(static_cast<WORD>(key), static_cast<WORD>(scan), down ? 0 : KEYEVENTF_KEYUP);
}

void InjectCharacter(char32_t character)
{
    const auto type = [](char32_t unit) {
        InjectKeyboard(0, static_cast<WORD>(unit), KEYEVENTF_UNICODE);
        InjectKeyboard(0, static_cast<WORD>(unit), KEYEVENTF_UNICODE | KEYEVENTF_KEYUP);
    };
    if (character < 0x10000) {
        type(character);
        return;
    }
    type(0xD7C0 + (character >> 10));
    type(0xDC00 + (character & 0x3FF));
}

} // namespace Platform
