// Child controls of the system: what their windows are told about them, and the keys and presses
// that their handlers see first.
#pragma once

#include "platform/system/win32/handles.h"
#include "platform/windows/child_control.h"

#include <memory>
#include <windows.h>

namespace Platform {

// Owns one child window. When the parent takes it along, it has none any more.
class SystemChild {
public:
    SystemChild(ChildHandler& handler, NativeWindow parent, const wchar_t* className, DWORD style);
    virtual ~SystemChild();
    SystemChild(const SystemChild&) = delete;
    SystemChild& operator=(const SystemChild&) = delete;

    // Null: the system has refused, or the parent is gone.
    HWND Child() const { return fChild; }

    // The system's code, when it has refused.
    DWORD Refusal() const { return fRefusal; }

    void PlaceChild(const PixelRect& rect);
    void ShowChild(bool shown);
    void EnableChild(bool enabled);

    // What the parent was told: of a notice by its code, that it is to be drawn, that its colours
    // are to be set. The last answers with the brush of its ground, null for the system's.
    virtual void Notice(WORD code) = 0;
    virtual void Draw(const DRAWITEMSTRUCT&) {}
    // The system's part of the control is about to hear a message, and has heard it.
    virtual void BeforeSystem(UINT, WPARAM) {}
    virtual void AfterSystem(UINT, WPARAM) {}
    // Draws the control on a device. False leaves that to the system.
    virtual bool Paint(HDC) { return false; }
    virtual HBRUSH Colours(HDC) { return nullptr; }

private:
    static LRESULT CALLBACK Receive(HWND child, UINT number, WPARAM first, LPARAM second,
                                    UINT_PTR id, DWORD_PTR self);
    LRESULT HandleOwn(UINT number, WPARAM first, LPARAM second);
    bool HandlePaint(UINT number, WPARAM first);

    ChildHandler& fHandler;
    HWND fChild = nullptr;
    DWORD fRefusal = 0;
};

// A control that has its child; null for one that hasn't, with the system's code in LastError.
template <class Control>
std::unique_ptr<Control> IfNotRefused(std::unique_ptr<Control> control)
{
    if (control->Handle() != nullptr)
        return control;
    const DWORD refusal = control->Refusal();
    control.reset();
    SetLastError(refusal);
    return nullptr;
}

// Hands a message of a parent to the child that it is about. False: it is about none of these.
bool TellChild(UINT number, WPARAM first, LPARAM second, LRESULT& answer);

} // namespace Platform
