// What a window asks of the display that shows it. Without a display nobody is asked: the base
// class does nothing and knows of nothing.
//
// The windows keep their own state and send their messages by it; a display follows, and injects
// what the user and the window manager do.
#pragma once

#include "platform/graphics/bitmap.h"
#include "platform/graphics/cursors.h"
#include "platform/system/pixel_rect.h"
#include "platform/windows/window_place.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace Platform {

class LinuxWindow;

class Display {
public:
    Display() = default;
    virtual ~Display() = default;
    Display(const Display&) = delete;
    Display& operator=(const Display&) = delete;

    // Whether it shows anything.
    virtual bool IsReal() const { return false; }

    // False, with the code in LastError, if the display refuses.
    virtual bool AddWindow(LinuxWindow&) { return true; }
    virtual void RemoveWindow(LinuxWindow&) {}

    // The window's state has changed; called for top windows alone.
    virtual void Show(LinuxWindow&) {}
    virtual void Place(LinuxWindow&) {}
    virtual void Title(LinuxWindow&) {}
    virtual void Raise(LinuxWindow&) {}
    virtual void Focus(LinuxWindow&) {}
    virtual void ShowState(LinuxWindow&) {} // minimized, maximized
    virtual void Present(LinuxWindow&, std::span<const PixelRect>) {}
    virtual void ShowCursor(LinuxWindow&, const Cursor&) {}
    virtual void Capture(LinuxWindow*) {}

    virtual FrameInsets Insets(const LinuxWindow&) { return {}; }

    // True while the keyboard is with this process.
    virtual bool IsForeground() const { return true; }

    // True once the display has gone: no window can be made, and those there were hear of their
    // end.
    virtual bool IsLost() const { return false; }

    // Another program's window: whether it lives, and whether it gets input.
    virtual bool IsForeignWindow(std::uint32_t) { return false; }

    virtual std::optional<std::string> ClipboardText() { return fClipboard; }
    virtual bool SetClipboardText(std::string_view text)
    {
        fClipboard = text;
        return true;
    }

    // The one there is; the one without effect until Connect has found another.
    static Display& Get();

    // Looks for a display, the first time. Windows call it before they are made, so that nobody who
    // makes none is connected.
    static void Connect();

protected:
    std::optional<std::string> fClipboard; // what this process has put there
};

// Connects with the display that the environment names; null if there is none.
std::unique_ptr<Display> ConnectDisplay();

} // namespace Platform
