#include "platform/graphics/canvas.h"

#include "platform/graphics/blend.h"
#include "platform/graphics/sheet.h"
#include "support/testing.h"

#include <numbers>

namespace {

using namespace Platform;
using Tests::Sheet;

constexpr Colour kBlack{0, 0, 0, 255};

Path Lines(std::initializer_list<PathPoint> points, bool closed)
{
    Path path;
    for (const auto& point : points)
        path.LineTo(point);
    if (closed)
        path.Close();
    return path;
}

TEST(Canvas, CoversAsMuchAsTheShapeHas)
{
    constexpr double kPi = std::numbers::pi;
    struct Row {
        const char* words;
        std::function<void(Canvas&)> draw;
        double area, tolerance;
    };
    const auto filled = [](const Path& path, FillRule rule = FillRule::kNonZero) {
        return [path, rule](Canvas& canvas) { canvas.Fill(path, kBlack, rule); };
    };
    const auto stroked = [](const Path& path, double width) {
        return [path, width](Canvas& canvas) { canvas.Stroke(path, width, kBlack); };
    };
    const auto shape = [](auto add, auto... numbers) {
        Path path;
        (path.*add)(numbers...);
        return path;
    };
    const auto rectangle = [&](const PathRect& rect) { return shape(&Path::AddRectangle, rect); };
    const auto oval = [&](const PathRect& rect) { return shape(&Path::AddOval, rect); };
    const auto rounded = [&](const PathRect& rect, double radius) {
        return shape(&Path::AddRoundedRectangle, rect, radius, radius);
    };
    Path two = rectangle({0, 0, 40, 40});
    two.AddRectangle({20, 20, 60, 50});
    const Row rows[] = {
        {"a rectangle of fractions", filled(rectangle({2.25, 3.5, 10.75, 9.125})), 8.5 * 5.625,
         0.1},
        {"a triangle drawn anticlockwise", filled(Lines({{5, 5}, {5, 45}, {65, 5}}, true)), 1200,
         0.5},
        {"an open figure, filled as if closed", filled(Lines({{5, 5}, {45, 5}, {45, 25}}, false)),
         400, 0.5},
        {"an oval", filled(oval({10, 10, 70, 40})), kPi * 30 * 15, 3},
        {"a rounded rectangle", filled(rounded({10, 10, 70, 40}, 8)), 60 * 30 - (4 - kPi) * 64, 1},
        {"radii larger than the rectangle make an oval", filled(rounded({10, 10, 30, 30}, 500)),
         kPi * 100, 1},
        {"two figures over each other count once by the non-zero rule", filled(two),
         1600 + 1200 - 400, 0.01},
        {"and not at all by the even-odd rule", filled(two, FillRule::kEvenOdd),
         1600 + 1200 - 2 * 400, 0.01},
        {"a stroke has flat ends", stroked(Lines({{10, 10}, {40, 50}}, false), 4), 50 * 4, 1},
        {"a closed stroke has mitred corners", stroked(rectangle({20, 20, 60, 40}), 4),
         44 * 24 - 36 * 16, 0.01},
        {"a stroke that turns back is not drawn twice",
         stroked(Lines({{10, 30}, {50, 30}, {20, 30}}, false), 6), 40 * 6, 0.01},
        {"the ring of an oval", stroked(oval({10, 10, 50, 50}), 6), kPi * (23 * 23 - 17 * 17), 4},
        {"corners too sharp for a mitre stay near",
         stroked(Lines({{10, 20}, {60, 21}, {10, 22}}, false), 4), 50 * 5, 10},
    };
    for (const Row& row : rows) {
        Sheet sheet(80, 60);
        Canvas canvas(sheet.GetBitmap());
        row.draw(canvas);
        EXPECT_NEAR(sheet.CoveredArea(), row.area, row.tolerance) << row.words;
    }
}

TEST(Canvas, FillsWholePixelsExactly)
{
    Sheet sheet(40, 30);
    Path path;
    path.AddRectangle({3, 4, 30, 20});
    Canvas(sheet.GetBitmap()).Fill(path, kBlack);
    for (std::int32_t y = 0; y < 30; ++y)
        for (std::int32_t x = 0; x < 40; ++x)
            ASSERT_EQ(sheet.AlphaAt(x, y), x >= 3 && x < 30 && y >= 4 && y < 20 ? 255U : 0U)
                << x << ", " << y;
}

// Neighbours that share a slanting edge leave neither gap nor seam behind.
TEST(Canvas, ShapesThatShareAnEdgeFillAllBetweenThem)
{
    Sheet sheet(40, 40);
    Path both = Lines({{2, 3}, {37, 3}, {15.3, 36.7}}, true);
    both.MoveTo({37, 3});
    both.LineTo({38.5, 36.7});
    both.LineTo({15.3, 36.7});
    both.Close();
    Canvas(sheet.GetBitmap()).Fill(both, kBlack);
    for (std::int32_t x = 17; x < 37; ++x)
        EXPECT_EQ(sheet.AlphaAt(x, 20), 255U) << x;
}

// Drawing piece by piece through clips gives what one drawing gives, and nothing beside it.
TEST(Canvas, KeepsToItsClip)
{
    Path path;
    path.AddOval({-7.3, 2.1, 52.7, 44.9});
    const Font font({"Tahoma", 14, 700});
    const auto draw = [&](Canvas& canvas) {
        canvas.Fill(path, {200, 30, 90, 128});
        canvas.Stroke(path, 2.5, kBlack);
        canvas.DrawTextLine(*font.Line("Hamburgefonts"), {-3, 20}, {0, 0, 255, 200});
    };
    Sheet whole(48, 48, 0xFFFFFFFF);
    Canvas all(whole.GetBitmap());
    draw(all);

    const PixelRect clips[] = {{0, 0, 10, 48},   {10, 5, 30, 20}, {30, 5, 48, 9},
                               {12, 20, 13, 60}, {-9, -9, 0, 0},  {40, 40, 30, 30}};
    Sheet parts(48, 48, 0xFFFFFFFF);
    Canvas clipped(parts.GetBitmap());
    clipped.SetClip(clips);
    draw(clipped);
    for (std::int32_t y = 0; y < 48; ++y)
        for (std::int32_t x = 0; x < 48; ++x) {
            const bool isInside = std::ranges::any_of(clips, [&](const PixelRect& clip) {
                return x >= clip.left && x < clip.right && y >= clip.top && y < clip.bottom;
            });
            ASSERT_EQ(parts.At(x, y), isInside ? whole.At(x, y) : 0xFFFFFFFF) << x << ", " << y;
        }

    clipped.SetClip({});
    std::ranges::fill(parts.Pixels(), 1);
    draw(clipped);
    EXPECT_TRUE(std::ranges::all_of(parts.Pixels(), [](std::uint32_t p) { return p == 1; }));
}

TEST(Canvas, BlendsAsTheFormulaSaysForEveryAlpha)
{
    const auto part = [](std::uint32_t a, std::uint32_t b) {
        return static_cast<std::uint32_t>(std::lround(a * b / 255.0));
    };
    for (std::uint32_t alpha = 0; alpha < 256; ++alpha)
        for (const std::uint32_t ground : {0U, 1U, 100U, 254U, 255U}) {
            const std::uint32_t blended =
                PixelOver(PremultipliedPixel({255, 128, 0, static_cast<std::uint8_t>(alpha)}),
                          0xFF000000 | ground << 16 | ground << 8 | ground);
            const std::uint32_t rest = part(ground, 255 - alpha);
            ASSERT_EQ(blended, 0xFF000000 | (part(255, alpha) + rest) << 16 |
                                   (part(128, alpha) + rest) << 8 | rest)
                << alpha << " over " << ground;
        }
}

// Text on nothing makes the alpha that other code relies on.
TEST(Canvas, TextLeavesTheAlphaOfItsResult)
{
    const Font font({"Tahoma", 20, 400});
    const auto line = font.Line("Ill");
    Sheet clear(60, 40);
    Sheet opaque(60, 40, 0xFFFFFFFF);
    Canvas(clear.GetBitmap()).DrawTextLine(*line, {5, 30}, {255, 0, 0, 255});
    Canvas(opaque.GetBitmap()).DrawTextLine(*line, {5, 30}, {255, 0, 0, 255});
    EXPECT_GT(clear.CoveredArea(), 20);
    for (std::size_t i = 0; i < clear.Pixels().size(); ++i) {
        const std::uint32_t pixel = clear.Pixels()[i];
        ASSERT_EQ(pixel >> 24, pixel >> 16 & 0xFF) << "red as its alpha at " << i;
        ASSERT_EQ(PixelOver(pixel, 0xFFFFFFFF), opaque.Pixels()[i]) << i;
    }
}

TEST(Canvas, DrawsNothingOnWhatIsNoBitmapOf32Bits)
{
    Path path;
    path.AddOval({0, 0, 9, 9});
    const Bitmap none;
    Canvas(none).Fill(path, kBlack);
    Bitmap grey;
    ASSERT_TRUE(grey.Make(8, 8, 8, false));
    std::fill_n(grey.Bits(), 64, std::uint8_t{7});
    Canvas(grey).Fill(path, kBlack);
    EXPECT_TRUE(std::all_of(grey.Bits(), grey.Bits() + 64, [](int byte) { return byte == 7; }));
}

} // namespace
