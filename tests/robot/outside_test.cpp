// The scripts of this folder once more, on a display of their own: the windows are looked at from
// within, but another program moves the mouse and presses the keys. On Windows it does so by way of
// Wine's display.
#include "lumograph/window_requests.h"
#include "plugin/view_info/window_requests.h"
#include "robot/outside_hands.h"
#include "robot/play_files.h"
#include "support/testing.h"
#include "view/window/window.h"

namespace {

std::string KeyName(std::uint64_t key)
{
    static const std::map<std::uint64_t, std::string> names = {
        {0x08, "BackSpace"}, {0x09, "Tab"},   {0x0D, "Return"}, {0x10, "Shift_L"},
        {0x11, "Control_L"}, {0x12, "Alt_L"}, {0x1B, "Escape"}, {0x21, "Prior"},
        {0x20, "space"},     {0x22, "Next"},  {0x23, "End"},    {0x24, "Home"},
        {0x25, "Left"},      {0x26, "Up"},    {0x27, "Right"},  {0x28, "Down"},
        {0x2E, "Delete"}};
    const auto found = names.find(key);
    if (found != names.end())
        return found->second;
    return {static_cast<char>(key >= 'A' && key <= 'Z' ? key - 'A' + 'a' : key)};
}

using Words = std::vector<std::string>;

Words MouseWords(const HostInputEvent& event)
{
    static const std::map<std::uint32_t, Words> acts = {{0x201, {"mousedown", "1"}},
                                                        {0x202, {"mouseup", "1"}},
                                                        {0x204, {"mousedown", "3"}},
                                                        {0x205, {"mouseup", "3"}}};
    const auto act = acts.find(event.message);
    const Kesto::CWindow* const window = Kesto::FindWindowOf(event.window);
    if (window == nullptr) // what is held is let go all the same
        return act != acts.end() && act->second.front() == "mouseup" ? act->second
                                                                     : Words{"version"};
    const Kesto::PixelRect content = window->GetWindowBounds();
    const int x = content.left + static_cast<std::int16_t>(event.second & 0xFFFF);
    const int y = content.top + static_cast<std::int16_t>(event.second >> 16 & 0xFFFF);
    const bool isUpward = static_cast<std::int16_t>(event.first >> 16) > 0;
    Words words = {"mousemove", std::to_string(x), std::to_string(y)};
    if (act != acts.end())
        words.insert(words.end(), act->second.begin(), act->second.end());
    if (event.message == 0x20A)
        words.insert(words.end(), {"click", isUpward ? "4" : "5"});
    return words;
}

Words WordsFor(const HostInputEvent& event)
{
    if (event.message == kHostRequestType)
        return {"type", "--delay", "40", "--", reinterpret_cast<const char*>(event.second)};
    if (event.message == 0x100 || event.message == 0x101)
        return {event.message == 0x100 ? "keydown" : "keyup", KeyName(event.first)};
    return MouseWords(event);
}

class PlaysFromOutside : public testing::TestWithParam<std::string> {
protected:
    // The program connects with one display.
    static void SetUpTestSuite() { gHands = std::make_unique<OutsideHands>(); }
    static void TearDownTestSuite() { gHands.reset(); }

    static inline std::unique_ptr<OutsideHands> gHands;
};

TEST_P(PlaysFromOutside, ComeOutAsExpected)
{
    ASSERT_TRUE(gHands->AreThere()) << "Xvfb, xrandr or xdotool is not installed";
    const auto deliver = [](const HostInputEvent& event) {
        EXPECT_TRUE(gHands->Do(WordsFor(event)));
    };
    ExpectPlays(GetParam(), {deliver, OutsideHands::Patience()});
}

INSTANTIATE_TEST_SUITE_P(All, PlaysFromOutside, testing::ValuesIn(PlayNames()),
                         [](const auto& row) { return row.param; });

} // namespace
