#include "platform/windows/linux/display.h"

#include "platform/graphics/linux/cursor_record.h"
#include "platform/input/pointer.h"
#include "platform/windows/clipboard.h"
#include "platform/windows/linux/activation.h"
#include "platform/windows/linux/window.h"
#include "platform/windows/mouse_state.h"
#include "platform/windows/system_window.h"

#include <utility>

namespace Platform {
namespace {

std::unique_ptr<Display>& Current()
{
    static std::unique_ptr<Display> display = std::make_unique<Display>();
    return display;
}

} // namespace

Display& Display::Get()
{
    return *Current();
}

void Display::Connect()
{
    static bool tried = false;
    if (std::exchange(tried, true))
        return;
    if (std::unique_ptr<Display> found = ConnectDisplay())
        Current() = std::move(found);
}

bool HasDisplay()
{
    Display::Connect();
    return Display::Get().IsReal();
}

std::optional<std::string> ClipboardText()
{
    return Display::Get().ClipboardText();
}

bool SetClipboardText(std::string_view text)
{
    return Display::Get().SetClipboardText(text);
}

void SetWindowCursor(NativeWindow window, const Cursor& cursor)
{
    LinuxWindow* const found = LinuxWindow::From(window);
    if (found == nullptr)
        return;
    found->fCursor = cursor;
    Display::Get().ShowCursor(*found, cursor);
}

// Who has the mouse for itself keeps its cursor everywhere.
std::optional<CursorShape> ShownCursor()
{
    const LinuxWindow* const window =
        Captor() != nullptr ? Captor() : LinuxWindow::From(WindowAt(CursorPosition()));
    if (window == nullptr || !window->fCursor.GetRecord().pixels.empty())
        return std::nullopt;
    return window->fCursor.GetRecord().shape;
}

std::uint32_t DoubleClickTime()
{
    constexpr std::uint32_t kUsual = 500;
    return kUsual;
}

} // namespace Platform
