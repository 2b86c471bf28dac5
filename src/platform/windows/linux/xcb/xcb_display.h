// The display that is reached over XCB.
//
// Requests are sent, and events taken in, when the queue is looked into next. What the window
// manager or the user does to a window is posted to it as a message of its own and acted on when
// that is dispatched, since handlers must not run while the queue is read.
#pragma once

#include "platform/windows/linux/display.h"
#include "platform/windows/linux/xcb/atoms.h"
#include "platform/windows/linux/xcb/keyboard_map.h"

#include <deque>
#include <functional>
#include <map>
#include <vector>

namespace Platform {

class XcbDisplay final : public Display {
public:
    // Takes over the connection.
    XcbDisplay(xcb_connection_t* connection, xcb_screen_t* screen);
    ~XcbDisplay() override;

    bool IsReal() const override { return true; }
    bool AddWindow(LinuxWindow& window) override;
    void RemoveWindow(LinuxWindow& window) override;
    void Show(LinuxWindow& window) override;
    void Place(LinuxWindow& window) override;
    void Title(LinuxWindow& window) override;
    void Raise(LinuxWindow& window) override;
    void Focus(LinuxWindow& window) override;
    void ShowState(LinuxWindow& window) override;
    void Present(LinuxWindow& window, std::span<const PixelRect> rects) override;
    void ShowCursor(LinuxWindow& window, const Cursor& cursor) override;
    FrameInsets Insets(const LinuxWindow& window) override;
    bool IsForeground() const override { return !fIsLost && fFocused != 0; }
    bool IsLost() const override { return fIsLost; }
    bool IsForeignWindow(std::uint32_t number) override;
    std::optional<std::string> ClipboardText() override;
    bool SetClipboardText(std::string_view text) override;

private:
    using Event = std::unique_ptr<xcb_generic_event_t, void (*)(void*)>;

    struct Known {
        LinuxWindow* window = nullptr;
        FrameInsets insets;
        std::uint32_t placed = 0; // the sequence of the last request that placed it
        bool isMapped = false;
        xcb_cursor_t cursor = XCB_NONE;
    };

    // Making and describing windows (xcb_windows.cpp).
    void Describe(LinuxWindow& window);
    void DescribeLimits(LinuxWindow& window);
    void DescribeFrame(const LinuxWindow& window);
    void GrabMouse();
    void SetAtoms(std::uint32_t number, xcb_atom_t property, std::span<const xcb_atom_t> values);
    void SetText(std::uint32_t number, xcb_atom_t property, xcb_atom_t type, std::string_view text);
    void SendToRoot(std::uint32_t number, xcb_atom_t type, std::array<std::uint32_t, 5> data);
    void PutRect(const LinuxWindow& window, const Bitmap& picture, const PixelRect& rect,
                 PixelPoint place);
    xcb_cursor_t CursorOf(const Cursor& cursor);

    // Reading events (xcb_events.cpp).
    void Read();
    void Lose();
    void Take(const xcb_generic_event_t& event);
    void TakeMap(std::uint32_t number, bool isMapped);
    void TakeKey(const xcb_key_press_event_t& event, bool down);
    void TakeButton(const xcb_button_press_event_t& event, bool down);
    void TakeConfigure(const xcb_configure_notify_event_t& event, bool isOfManager);
    void TakeFocus(const xcb_focus_in_event_t& event, bool in);
    void TakeExpose(const xcb_expose_event_t& event);
    void TakeClient(const xcb_client_message_event_t& event);
    void TakeProperty(const xcb_property_notify_event_t& event);
    void TellFocus();
    void TellOfScreen();
    Known* Find(std::uint32_t number);

    // The clipboard (xcb_clipboard.cpp).
    void AnswerRequest(const xcb_selection_request_event_t& event);
    Event AwaitEvent(const std::function<bool(const xcb_generic_event_t&)>& wanted);
    std::string TakeTransfer(xcb_atom_t& type);
    std::string TakeInPieces();

    xcb_connection_t* fConnection;
    xcb_screen_t* fScreen;
    Atoms fAtoms;
    KeyboardMap fKeyboard;
    std::uint32_t fHelper; // an unseen window that speaks for the process
    std::uint32_t fTools;  // what pictures are put with
    std::map<std::uint32_t, Known> fWindows;
    std::map<const Cursor::Record*, std::pair<Cursor, xcb_cursor_t>> fCursors;
    std::deque<Event> fPending; // that came while something else was waited for
    std::uint32_t fFocused = 0; // the window of ours that has the keyboard
    std::uint32_t fToldFocus = 0;
    bool fOwnsClipboard = false;
    bool fIsLost = false;
};

} // namespace Platform
