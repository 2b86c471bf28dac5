// Menus with submenus, used by keys and by the mouse.
#include "platform/input/injection.h"
#include "platform/windows/menu_parts.h"
#include "platform/windows/window_log.h"
#include "support/testing.h"

namespace {

using namespace Platform;
using WindowTest::Row;
using WindowTest::SomeLook;

enum MenuKey : std::uint32_t {
    kReturn = 0x0D,
    kEscape = 0x1B,
    kEnd = 0x23,
    kHome,
    kLeft,
    kUp,
    kRight,
    kDown
};

std::vector<MenuRow> SomeRows()
{
    std::vector<MenuRow> rows{
        Row(1, "Normal"), Row(2, ""), Row(3, "Blur", {Row(31, "Radial"), Row(32, "Motion & more")}),
        Row(5, "Sharpen", {Row(51, "Edges", {Row(511, "Thin")})}), Row(6, "Last")};
    rows[1].separator = true;
    return rows;
}

TEST(PopupMenu, KeysGoThroughSubmenus)
{
    const struct {
        const char* what;
        std::vector<std::uint32_t> keys;
        int chosen;
    } rows[] = {
        {"down over a separator and past submenus", {kDown, kDown, kDown, kDown, kReturn}, 6},
        {"up from the first goes round", {kHome, kUp, kReturn}, 6},
        {"into a submenu by the right arrow", {kDown, kDown, kRight, kDown, kReturn}, 32},
        {"into one by Return", {kDown, kDown, kReturn, kReturn}, 31},
        {"two levels deep", {kEnd, kUp, kRight, kRight, kReturn}, 511},
        {"back by the left arrow", {kDown, kDown, kRight, kLeft, kUp, kReturn}, 1},
        {"Escape leaves the submenu alone", {kDown, kDown, kRight, kEscape, kUp, kReturn}, 1},
        {"Escape leaves the menu", {kDown, kEscape}, 0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        WindowTest::Log log;
        const WindowTest::Window window("w", log);
        ShowSystemWindow(window.handle, ShowCommand::kShow);
        WindowTest::Pump();
        std::vector<std::uint32_t> keys = row.keys;
        keys.insert(keys.end(), 3, kEscape); // leaves what is open still
        for (const std::uint32_t key : keys) {
            InjectKey(key, true);
            InjectKey(key, false);
        }
        const std::vector<MenuRow> menu = SomeRows();
        EXPECT_EQ(RunPopupMenu(window.handle, {100, 100, 200, 124}, menu, SomeLook()), row.chosen);
        WindowTest::Pump(); // keys that are left
    }
}

} // namespace
