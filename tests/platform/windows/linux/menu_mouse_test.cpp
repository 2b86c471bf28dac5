// Where the menus lie that we draw, and what the mouse does there.
#include "platform/graphics/monitors.h"
#include "platform/input/injection.h"
#include "platform/windows/menu_parts.h"
#include "platform/windows/window_log.h"
#include "support/testing.h"

namespace {

using namespace Platform;

std::vector<MenuRow> ManyRows(int count)
{
    std::vector<MenuRow> rows;
    for (int i = 1; i <= count; ++i)
        rows.push_back(WindowTest::Row(i, "Row"));
    return rows;
}

// What is done is in the queue before the menu opens.
int RunMenu(const PixelRect& beside, const std::vector<MenuRow>& rows)
{
    WindowTest::Log log;
    const WindowTest::Window window("w", log);
    ShowSystemWindow(window.handle, ShowCommand::kShow);
    return RunPopupMenu(window.handle, beside, rows, WindowTest::SomeLook());
}

void Click(PixelPoint point)
{
    InjectMove(point);
    InjectButton(Key::kLeftButton, true);
    InjectButton(Key::kLeftButton, false);
}

TEST(MenuMouse, ChoosesWhereTheMenuLies)
{
    const PixelRect area = ListMonitors()[0].workArea;
    const MenuLook look = WindowTest::SomeLook();
    const std::int32_t row = Font(look.font).Metrics().height + 2 * look.padding;
    const PixelRect corner{area.right - 60, area.bottom - 30, area.right - 10, area.bottom - 10};
    std::vector<MenuRow> nested = ManyRows(3);
    nested[1].rows = {WindowTest::Row(21, "Sub")};
    const struct {
        const char* what;
        PixelRect beside;
        std::vector<MenuRow> rows;
        std::vector<PixelPoint> clicks;
        int chosen;
        int notches = 0; // of the wheel, before the clicks
    } kinds[] = {
        {"below", {100, 100, 150, 120}, nested, {{110, 122}}, 1},
        {"above, where there is no room below",
         corner,
         nested,
         {{area.right - 9, corner.top - 2}},
         3},
        {"a submenu",
         {100, 100, 150, 120},
         nested,
         {{110, 122 + row}, {100 + look.leastWidth + 5, 122 + row}},
         21},
        {"a submenu on the left, where there is no room on the right",
         corner,
         nested,
         {{area.right - 9, corner.top - 2 - row},
          {area.right - look.leastWidth - 5, corner.top - 2 - row}},
         21},
        {"an arrow of one that is scrolled", {100, 0, 150, 20}, ManyRows(500), {{110, 22}}, 0},
        {"a row that the wheel brings, three for each notch",
         {100, 0, 150, 20},
         ManyRows(500),
         {{110, 22 + 2 * row}},
         2 + 6,
         -2},
        {"beside it", {100, 100, 150, 120}, nested, {{90, 122}}, 0},
    };
    for (const auto& kind : kinds) {
        SCOPED_TRACE(kind.what);
        if (kind.notches != 0) {
            InjectMove(kind.clicks[0]);
            InjectWheel(0, kind.notches * 120);
        }
        for (const PixelPoint click : kind.clicks)
            Click(click);
        Click({1, area.bottom - 1}); // leaves a menu of which nothing was chosen
        EXPECT_EQ(RunMenu(kind.beside, kind.rows), kind.chosen);
        WindowTest::Pump();
    }
}

} // namespace
