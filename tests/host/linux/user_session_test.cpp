// A person's whole session with lumohost, on a display and at a terminal of their own: another
// program types and clicks.
#include "host/program.h"
#include "support/virtual_display.h"

#include <nlohmann/json.hpp>

#include <future>

namespace {

// The middle of a button, in pixels of the dialog's content.
std::string MiddleOf(const nlohmann::json& dialog, const nlohmann::json& view, const char* id)
{
    if (view.value("id", "") == id) {
        const auto& at = view["globalBounds"];
        const auto& window = dialog["globalBounds"];
        const auto middle = [&](int from) {
            return std::to_string((at[from].get<int>() + at[from + 2].get<int>()) / 2 -
                                  window[from].get<int>());
        };
        return middle(0) + ' ' + middle(1);
    }
    std::string found;
    for (const auto& child : view.value("subViews", nlohmann::json::array()))
        if (found.empty())
            found = MiddleOf(dialog, child, id);
    return found;
}

using UserSession = LumohostTest;

TEST_F(UserSession, AFrameIsTypedAndOpened)
{
    const VirtualDisplay display;
    ASSERT_TRUE(display.IsThere()) << "Xvfb is not installed";
    const std::string film = Argument(SourceFile("samples/five-frames.ei"));
    ASSERT_EQ(film.find('\''), std::string::npos) << "the shell would end its argument there";
    const auto dialog = nlohmann::json::parse(RunLumohost({"open", film, "--describe"}).output);
    const std::string ok = MiddleOf(dialog, dialog, "Project/Dialog/OKButton");
    ASSERT_NE(ok, "");

    fFolder.Put("session", "'" LUMOHOST "' open '" + film + "' -o typed.png\n");
    const std::string atTerminal = "cd '" + Argument(fFolder.Path()) +
                                   "' && script -qec 'sh session' /dev/null </dev/null >said 2>&1";
    auto session = std::async(std::launch::async, [&] { return std::system(atTerminal.c_str()); });
    const std::string hands =
        "timeout 60 xdotool search --sync --onlyvisible --name '^ElectricImage$' sleep 0.3 "
        "key 4 key Tab mousemove --window %1 " +
        ok + " click 1";
    EXPECT_EQ(std::system(hands.c_str()), 0) << hands;
    EXPECT_EQ(session.get(), 0) << fFolder.Get("said");

    RunLumohost({"open", film, "--frame", "4", "-o", Path("robot.png")});
    const std::string typed = fFolder.Get("typed.png");
    EXPECT_NE(typed, "none");
    EXPECT_TRUE(typed == fFolder.Get("robot.png")) << "the frame that was typed isn't the one";
}

} // namespace
