// The scripts of this folder once more, on a display of their own: the windows are looked at from
// within, but another program moves the mouse and presses the keys.
#include "lumograph/window_requests.h"
#include "plugin/view_info/window_requests.h"
#include "robot/play_files.h"
#include "support/virtual_display.h"
#include "view/window/window.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <map>
#include <string>

namespace {

constexpr double kPatience = 0.1; // seconds for an event to come through the display

std::string KeyName(std::uint64_t key)
{
    static const std::map<std::uint64_t, std::string> names = {
        {0x08, "BackSpace"}, {0x09, "Tab"},   {0x0D, "Return"}, {0x10, "Shift_L"},
        {0x11, "Control_L"}, {0x12, "Alt_L"}, {0x1B, "Escape"}, {0x21, "Prior"},
        {0x22, "Next"},      {0x23, "End"},   {0x24, "Home"},   {0x25, "Left"},
        {0x26, "Up"},        {0x27, "Right"}, {0x28, "Down"},   {0x2E, "Delete"}};
    const auto found = names.find(key);
    if (found != names.end())
        return found->second;
    return {static_cast<char>(key >= 'A' && key <= 'Z' ? key - 'A' + 'a' : key)};
}

std::string MouseWords(const HostInputEvent& event)
{
    const Kesto::CWindow* const window = Kesto::FindWindowOf(event.window);
    if (window == nullptr)
        return "version";
    const Kesto::PixelRect content = window->GetWindowBounds();
    const int x = content.left + static_cast<std::int16_t>(event.second & 0xFFFF);
    const int y = content.top + static_cast<std::int16_t>(event.second >> 16 & 0xFFFF);
    const std::string move = "mousemove " + std::to_string(x) + ' ' + std::to_string(y);
    switch (event.message) {
    case 0x201:
        return move + " mousedown 1";
    case 0x202:
        return move + " mouseup 1";
    case 0x204:
        return move + " mousedown 3";
    case 0x205:
        return move + " mouseup 3";
    case 0x20A:
        return move + (static_cast<std::int16_t>(event.first >> 16) > 0 ? " click 4" : " click 5");
    default:
        return move;
    }
}

void DoFromOutside(const HostInputEvent& event)
{
    std::string words;
    if (event.message == kHostRequestType)
        words = "type -- '" + std::string(reinterpret_cast<const char*>(event.second)) + '\'';
    else if (event.message == 0x100 || event.message == 0x101)
        words = (event.message == 0x100 ? "keydown " : "keyup ") + KeyName(event.first);
    else
        words = MouseWords(event);
    ASSERT_EQ(std::system(("xdotool " + words).c_str()), 0) << words;
}

TEST(PlaysFromOutside, ComeOutAsExpected)
{
    VirtualDisplay display;
    ASSERT_TRUE(display.IsThere()) << "Xvfb is not installed";
    for (const std::string& name : PlayNames()) {
        SCOPED_TRACE(name);
        const Host::PlayOutcome outcome = PlayFile(name, {DoFromOutside, kPatience});
        EXPECT_EQ(outcome.words, "");
        EXPECT_EQ(outcome.status, Host::PlayOutcome::kPlayed);
    }
}

} // namespace
