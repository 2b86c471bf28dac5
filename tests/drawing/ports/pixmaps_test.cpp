// Pixmaps, pictures and scrolling on ports.
#include "drawing/ports/picture_choice.h"
#include "drawing/ports/test_image.h"
#include "support/testing.h"

namespace Kesto {
namespace {

std::uint32_t Pixel(std::uint32_t alpha, std::uint32_t red, std::uint32_t green, std::uint32_t blue)
{
    return alpha << 24 | red << 16 | green << 8 | blue;
}

std::uint32_t Weighted(std::uint32_t alpha, std::uint32_t value)
{
    return (alpha * value + 127) / 255;
}

TEST(PixmapBlended, FollowsThePlainFormulaForEveryAlphaAndValue)
{
    CMemoryPixmap pixmap = MakePlanes(4, 256, 256, [](int plane, int x, int y) {
        return plane == 3 ? y : (x + 85 * plane) % 256;
    });
    TestImage image(256, 256);
    for (const std::uint32_t below : {0x00u, 0x5Fu, 0xFFu}) {
        const auto ground = static_cast<std::uint8_t>(below);
        image.Clear({ground, ground, ground});
        image.DrawPixmapBlended(pixmap, {0, 0, 256, 256}, {0, 0, 256, 256});
        for (std::uint32_t alpha = 0; alpha < 256; ++alpha)
            for (std::uint32_t value = 0; value < 256; ++value) {
                const auto channel = [&](std::uint32_t plane) {
                    return Weighted(alpha, (value + 85 * plane) % 256) +
                           Weighted(255 - alpha, below);
                };
                ASSERT_EQ(
                    image.At(static_cast<std::int32_t>(value), static_cast<std::int32_t>(alpha)),
                    Pixel(255, channel(0), channel(1), channel(2)))
                    << "alpha " << alpha << ", value " << value << ", below " << below;
            }
    }
}

TEST(PixmapBlended, TakesThePlanesForWhatTheyAre)
{
    const struct {
        const char* what;
        std::int32_t bits, planes;
        std::uint32_t blended; // over white; planes hold 40, 80, 120, 128
        std::uint32_t opaque;
    } rows[] = {
        {"grey", 8, 1, Pixel(255, 40, 40, 40), Pixel(255, 40, 40, 40)},
        {"grey and alpha", 8, 2, Pixel(255, 188, 188, 188), Pixel(255, 40, 40, 40)},
        {"colours", 8, 3, Pixel(255, 40, 80, 120), Pixel(255, 40, 80, 120)},
        {"colours and alpha", 8, 4, Pixel(255, 147, 167, 187), Pixel(255, 40, 80, 120)},
        {"five planes", 8, 5, 0xFFFFFFFF, 0xFFFFFFFF},
        {"no planes", 8, 0, 0xFFFFFFFF, 0xFFFFFFFF},
        {"16 bits", 16, 3, 0xFFFFFFFF, 0xFFFFFFFF},
    };
    const std::array values{40, 80, 120, 128};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        CMemoryPixmap pixmap(row.bits, 3, 3, row.planes, 4, 0);
        if (row.planes == 2)
            pixmap = MakePlanes(2, 3, 3, [](int plane, int, int) { return plane == 0 ? 40 : 80; });
        else if (row.bits == 8 && row.planes <= 4)
            pixmap = MakePlanes(row.planes, 3, 3, [&](int plane, int, int) {
                return values[static_cast<std::size_t>(plane)];
            });
        TestImage image(3, 3);
        image.DrawPixmapBlended(pixmap, {0, 0, 3, 3}, {0, 0, 3, 3});
        EXPECT_EQ(image.At(1, 1), row.blended);
        image.Clear(kWhite);
        image.DrawPixmap(pixmap, {0, 0, 3, 3}, {0, 0, 3, 3});
        EXPECT_EQ(image.At(1, 1), row.opaque);
    }
}

TEST(PixmapBlended, AveragesWhatBecomesSmallerAndRepeatsWhatDoesNot)
{
    // Black where it is opaque, white where nothing of it shows.
    CMemoryPixmap pixmap = MakePlanes(2, 4, 4, [](int plane, int x, int) {
        return x % 2 == 0 ? plane * 255 : 255 * (1 - plane);
    });
    TestImage image(8, 8);
    image.Clear({0, 0, 255});
    image.DrawPixmapBlended(pixmap, {0, 0, 4, 4}, {0, 0, 2, 2});
    EXPECT_EQ(image.At(0, 0), Pixel(255, 0, 0, 127)); // nothing of the hidden white
    EXPECT_EQ(image.At(2, 2), Pixel(255, 0, 0, 255));

    image.Clear(kWhite);
    image.DrawPixmapBlended(pixmap, {0, 0, 4, 4}, {0, 0, 8, 8});
    EXPECT_EQ(image.Sketch().substr(0, 9), "##..##..\n");

    // The parts outside of the pixmap are cut off on both sides.
    image.Clear(kWhite);
    image.DrawPixmapBlended(pixmap, {-4, 0, 4, 4}, {0, 0, 8, 4});
    EXPECT_EQ(image.Sketch().substr(0, 9), "....#.#.\n");
    image.Clear(kWhite);
    pixmap.SetOrigin(100, 50);
    image.DrawPixmapBlended(pixmap, {102, 50, 200, 54}, {1, 0, 99, 4});
    EXPECT_EQ(image.Sketch().substr(0, 9), ".#......\n");
    image.DrawPixmapBlended(pixmap, {0, 0, 4, 4}, {0, 0, 4, 4}); // misses it
    EXPECT_EQ(image.Inked(), (PixelRect{1, 0, 2, 4}));
}

TEST(Pixmaps, OpaqueOnesComeFromOtherPortsAtTheirScale)
{
    TestImage source(4, 4, 2);
    source.Paint(Rect{1, 0, 2, 1}, kBlack);
    TestImage image(8, 4);
    image.DrawPort(source, {0, 0, 2, 2}, {0, 0, 2, 2}); // averaged
    image.DrawPort(source, {1, 0, 2, 1}, {4, 0, 6, 2}); // one to one
    EXPECT_EQ(image.Sketch(), ".#..##..\n....##..\n........\n........\n");
    image.DrawPort(image, {3, 0, 7, 2}, {4, 1, 8, 3}); // over itself
    EXPECT_EQ(image.Sketch(), ".#..##..\n.....##.\n.....##.\n........\n");
    image.DrawPixmap(source.GetDisplay(), {2, 0, 4, 4}, {0, 0, 4, 4}); // repeated
    EXPECT_EQ(image.Sketch(), "######..\n####.##.\n.....##.\n........\n");
}

CDualPicture PictureOf(std::int32_t low, std::int32_t high)
{
    CDualPicture picture;
    const auto put = [&](std::int32_t side, int value, EDensity density) {
        if (side > 0)
            picture.SetPixmap(CSharedPixmap(std::make_unique<CMemoryPixmap>(
                                  MakePlanes(1, side, side, [=](int, int, int) { return value; }))),
                              density);
    };
    put(low, 0, kDensity_Low);
    put(high, 100, kDensity_High);
    return picture;
}

TEST(Pictures, AreChosenForTheScaleAndMeasuredInUnits)
{
    const struct {
        const char* what;
        std::int32_t low, high;
        double scale;
        char drawn; // '#' low, '+' high, '.' nothing
        PixelRect pixels;
    } rows[] = {
        {"low at 1", 4, 8, 1, '#', {2, 2, 6, 6}},
        {"high above 1", 4, 8, 1.25, '+', {3, 3, 8, 8}},
        {"high at 2", 4, 8, 2, '+', {4, 4, 12, 12}},
        {"low alone at 2", 4, 0, 2, '#', {4, 4, 12, 12}},
        {"high alone at 1", 0, 8, 1, '+', {2, 2, 6, 6}},
        {"none", 0, 0, 1, '.', {}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        TestImage image(20, 20, row.scale);
        const CDualPicture picture = PictureOf(row.low, row.high);
        image.DrawPicture(picture, Point{2, 2});
        EXPECT_EQ(image.Inked(), row.pixels);
        EXPECT_NE(image.Sketch().find(row.drawn), std::string::npos);
        image.Clear(kWhite);
        image.DrawIcon(picture, {0, 0, 8, 9}); // in the middle
        EXPECT_EQ(image.Inked(), row.pixels);
    }
}

TEST(Scrolling, MovesWhatTheClipAllowsAndTellsWhatIsMissing)
{
    const std::tuple<const char*, double, double> rows[] = {
        {"left", -3, 0},   {"right", 2, 0}, {"up", 0, -1},      {"down", 0, 4},   {"falling", 3, 2},
        {"rising", 1, -2}, {"back", -2, 1}, {"farther", 40, 0}, {"nowhere", 0, 0}};
    for (const auto& [what, dx, dy] : rows)
        for (const bool holed : {false, true}) {
            SCOPED_TRACE(::testing::Message() << what << (holed ? ", with a hole" : ""));
            TestImage image(12, 10);
            std::vector<std::uint32_t> before;
            for (std::int32_t i = 0; i < 120; ++i)
                before.push_back(image.At(i % 12, i / 12) =
                                     0xFF000000u + 77u * static_cast<std::uint32_t>(i));
            const Rect area{1, 1, 11, 9};
            CBRVRegion clip(area);
            if (holed)
                clip.Subtract(Rect{4, 3, 7, 6});
            image.IntersectClip(clip);
            CDeviceRegion uncovered;
            image.ScrollPixels({0, 0, 11, 9}, dx, dy, uncovered);
            for (std::int32_t y = 0; y < 10; ++y)
                for (std::int32_t x = 0; x < 12; ++x) {
                    const auto fromX = x - static_cast<std::int32_t>(dx);
                    const auto fromY = y - static_cast<std::int32_t>(dy);
                    const CDeviceRegion& pixels = image.GetDeviceClip();
                    const bool moved = pixels.Contains(x, y) && pixels.Contains(fromX, fromY);
                    const std::int32_t from = moved ? fromY * 12 + fromX : y * 12 + x;
                    EXPECT_EQ(image.At(x, y), before[static_cast<std::size_t>(from)])
                        << x << ", " << y;
                    EXPECT_EQ(uncovered.Contains(x, y), pixels.Contains(x, y) && !moved);
                }
        }
}

TEST(Scrolling, ByPartsOfAPixelUncoversEverything)
{
    TestImage image(9, 9, 1.5);
    CDeviceRegion uncovered;
    image.ScrollPixels({0, 0, 6, 6}, 1, 0, uncovered);
    EXPECT_EQ(uncovered.GetBounds(), (PixelRect{0, 0, 9, 9}));
    image.ScrollPixels({0, 0, 6, 6}, 2, 0, uncovered);
    EXPECT_EQ(uncovered.GetBounds(), (PixelRect{0, 0, 3, 9}));
}

} // namespace
} // namespace Kesto
