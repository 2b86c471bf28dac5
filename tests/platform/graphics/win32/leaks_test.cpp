// The graphics system's own count of what this process holds.

#include "platform/graphics/canvas.h"
#include "platform/graphics/cursors.h"
#include "platform/graphics/win32/gdi_objects.h"
#include "support/testing.h"

#include <windows.h>

namespace {

struct Held {
    int graphics = CountGdiObjects();
    DWORD cursors = GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS);
};

void DrawSomething(int round)
{
    Platform::Bitmap bitmap;
    ASSERT_TRUE(bitmap.Make(20, 20, 32, false));
    Platform::Canvas canvas(bitmap);
    Platform::Path path;
    path.AddOval({1, 1, 19, 19});
    canvas.Fill(path, {});
    const Platform::Font font({"Tahoma", 8 + round % 20});
    canvas.DrawTextLine(*font.Line(std::to_string(round)), {2, 14}, {});
    const std::vector<std::uint32_t> pixels(32 * 32, 0x80808080);
    const Platform::Cursor made(pixels, 32, 32, {3, 4});
    const Platform::Cursor shape(Platform::CursorShape::kText);
}

TEST(GraphicsObjects, TenThousandCanvasesLeaveNoneBehind)
{
    DrawSomething(0);
    Platform::DropKeptFonts();
    const Held before;
    for (int round = 0; round < 10000; ++round)
        DrawSomething(round);
    Platform::DropKeptFonts();
    const Held after;
    EXPECT_EQ(after.graphics, before.graphics);
    EXPECT_EQ(after.cursors, before.cursors);
}

} // namespace
