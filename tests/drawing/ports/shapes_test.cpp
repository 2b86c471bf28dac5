// What ports draw of shapes and lines, pixel by pixel.
#include "drawing/ports/corner_fill.h"
#include "drawing/ports/radio_port.h"
#include "drawing/ports/test_image.h"
#include "drawing/ports/window_port.h"
#include "drawing/ports/wrapper_port.h"
#include "support/testing.h"

namespace Kesto {
namespace {

constexpr Colour kTeal{0x12, 0x80, 0x8F};

TEST(Shapes, GoToPixelsByTheRuleAtEveryScale)
{
    const struct {
        double scale;
        PixelRect pixels; // of the unit rectangle 3, 3 to 4, 5
    } rows[] = {
        {1.0, {3, 3, 4, 5}},  {1.25, {4, 4, 5, 6}},         {1.5, {5, 5, 6, 8}},
        {2.0, {6, 6, 8, 10}}, {3.0, {9, 9, 12, 15}},        {0.0, {3, 3, 4, 5}},
        {-1.0, {3, 3, 4, 5}}, {std::nan(""), {3, 3, 4, 5}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.scale);
        TestImage image(20, 20, row.scale);
        image.Paint(Rect{3, 3, 4, 5}, kBlack);
        EXPECT_EQ(image.Inked(), row.pixels);
        // The origin is added before the one rounding.
        image.Clear(kWhite);
        image.SetWindowOrigin({2.4, 2.4});
        image.Paint(Rect{0.6, 0.6, 1.6, 2.6}, kBlack);
        EXPECT_EQ(image.Inked(), row.pixels);
    }
}

TEST(Shapes, LinesBeginAtTheirPixelAndEndBeforeTheirEnd)
{
    TestImage image(6, 6);
    const Point square[] = {{0, 0}, {4, 0}, {4, 4}, {0, 4}, {0, 0}};
    image.DrawPolyline(square);
    EXPECT_EQ(image.Sketch(), "#####.\n#...#.\n#...#.\n#...#.\n#####.\n......\n");

    image.Clear(kWhite);
    image.MoveTo({5, 1});
    image.LineTo({5, 1}); // nothing
    image.LineTo({5, 4});
    image.LineTo({2, 4}); // begins with the corner
    EXPECT_EQ(image.Sketch(), "......\n.....#\n.....#\n.....#\n...###\n......\n");

    image.Clear(kWhite);
    image.DrawLine({0, 0}, {5, 5}); // a slanting one runs through the same pixels
    EXPECT_NE(image.At(2, 2), 0xFFFFFFFF);
    EXPECT_EQ(image.At(4, 0), 0xFFFFFFFF);
}

TEST(Shapes, PatternsMatchAcrossViewsAndInvertingTwiceLeavesNothing)
{
    TestImage image(12, 4);
    const CBrush checks{kBlack, kWhite, CBrush::kChecks};
    for (const double left : {0.0, 5.0, 9.0}) { // three views, with one brush origin
        image.SetWindowOrigin({left, 0});
        image.SetBrushOrigin({0, 0});
        image.Paint(Rect{0, 0, 12 - left, 4}, checks);
    }
    EXPECT_EQ(image.Sketch(), "#.#.#.#.#.#.\n.#.#.#.#.#.#\n#.#.#.#.#.#.\n.#.#.#.#.#.#\n");

    const std::uint64_t before = image.Hash();
    const CBRVRegion region = CBRVRegion(Rect{1, 1, 3, 3}).Union(Rect{2, 2, 3, 4});
    image.SetWindowOrigin({});
    const auto invert = [&] {
        image.Invert(Rect{0, 0, 5, 3});
        image.Invert(Oval{{1, 0, 9, 4}});
        image.Invert(RoundRect{{3, 0, 12, 4}, 2});
        image.Invert(region);
    };
    invert();
    EXPECT_NE(image.Hash(), before);
    invert();
    EXPECT_EQ(image.Hash(), before);
}

TEST(Shapes, HostileOnesDrawNothingOrTheNearestThing)
{
    const double nan = std::nan("");
    const double infinity = std::numeric_limits<double>::infinity();
    const std::tuple<const char*, Rect, bool> rows[] = {
        {"empty", {2, 2, 2, 6}, false},
        {"inverted", {6, 6, 2, 2}, false},
        {"no number", {nan, 0, 8, 8}, false},
        {"no numbers", {nan, nan, nan, nan}, false},
        {"far away", {1e300, 0, infinity, 8}, false},
        {"less than a pixel", {2.1, 2.1, 2.2, 2.2}, false},
        {"huge", {-1e300, -1e300, 1e300, 1e300}, true},
        {"endless", {-infinity, -infinity, infinity, infinity}, true},
        {"beyond 32 bits", {-3e9, -3e9, 3e9, 3e9}, true},
    };
    for (const double scale : {1.0, 1.5})
        for (const auto& [what, rect, fills] : rows) {
            SCOPED_TRACE(what);
            TestImage image(8, 8, scale);
            image.Paint(rect, kBlack);
            EXPECT_EQ(image.Inked(), (fills ? PixelRect{0, 0, 8, 8} : PixelRect{}));

            image.Clear(kWhite);
            image.Frame(rect, CPen{kTeal, 1e300});
            image.PaintAndFrame(Oval{rect});
            image.PaintAndFrame(RoundRect{rect, nan}, CPen{kTeal, nan}, CBrush{kTeal});
            image.Frame(RoundRect{rect, 1e300}, CPen{kTeal});
            image.Invert(RoundRect{rect, infinity});
            image.Paint(CBRVRegion(rect), kTeal);
            image.Frame(CBRVRegion(rect), CPen{kTeal, 3});
            image.DrawTextBox("text", rect, kText_Wrap | kText_Ellipsis);
            image.IntersectClip(rect);
            CDeviceRegion uncovered;
            image.ScrollPixels(rect, infinity, nan, uncovered);
            EXPECT_TRUE(fills || image.Inked() == PixelRect{});
            image.DrawLine({rect.left, rect.top}, {rect.right, rect.bottom});
        }
}

TEST(Shapes, ClipsAreKeptInPixelsAndRestored)
{
    TestImage image(8, 2, 1.5);
    image.SetWindowOrigin({1, 0});
    image.SaveState();
    image.IntersectClip(CBRVRegion(Rect{0, 0, 1, 9}).Union(Rect{2, 0, 3, 9}));
    EXPECT_TRUE(image.IsInClip({0, 0, 1, 1}));
    EXPECT_FALSE(image.IsInClip({3.5, 0, 4, 1}));
    EXPECT_TRUE(image.GetClip().Contains(Rect{0, 0, 1, 1}));
    image.SetPen(CPen{kTeal, 3});
    image.Paint(Rect{-1, 0, 9, 9}, kBlack);
    EXPECT_EQ(image.Sketch(), "..#..#..\n..#..#..\n");
    image.RestoreState();
    EXPECT_EQ(image.GetPen(), CPen{});
    image.Paint(Rect{-1, 0, 9, 9}, kBlack);
    EXPECT_EQ(image.Inked(), (PixelRect{0, 0, 8, 2}));
    image.RestoreState(); // one too many

    image.SetBrush(CBrush{kTeal});
    image.SetTransferMode(kTransfer_Xor);
    image.SetBrushOrigin({7, 7});
    image.ResetTools();
    EXPECT_EQ(image.GetBrush(), CBrush{});
    EXPECT_EQ(image.GetTransferMode(), kTransfer_Copy);
    EXPECT_EQ(image.GetBrushOrigin(), image.GetWindowOrigin());
}

TEST(Shapes, KeptCornersAgreeWithTheWholePath)
{
    for (const std::int32_t inset : {0, 1, 3})
        for (const double radius : {0.0, 3.75, 5.0, 8.5}) {
            SCOPED_TRACE(::testing::Message() << "radius " << radius << ", inset " << inset);
            const CRoundedFrame outer{{2, 3, 19, 24}, radius, radius};
            const CRoundedFrame inner = outer.Inset(inset);
            TestImage ours(24, 28);
            TestImage whole(24, 28);
            FillRounded(SurfaceOf(ours.GetDisplay().GetBitmap()), ours.GetDeviceClip(), outer,
                        inset > 0 ? &inner : nullptr, kTeal);
            Platform::Path path;
            outer.AddTo(path);
            if (inset > 0)
                inner.AddTo(path);
            Platform::Canvas(whole.GetDisplay().GetBitmap())
                .Fill(path, kTeal, Platform::FillRule::kEvenOdd);
            int farthest = 0;
            for (std::int32_t i = 0; i < 24 * 28; ++i)
                for (const int shift : {0, 8, 16, 24})
                    farthest = std::max(
                        farthest,
                        std::abs(static_cast<int>(ours.At(i % 24, i / 24) >> shift & 255) -
                                 static_cast<int>(whole.At(i % 24, i / 24) >> shift & 255)));
            // A path folds areas by the even-odd rule where both edges meet in a pixel; the exact
            // difference is a little off that.
            EXPECT_LE(farthest, inset == 0 ? 2 : 12);
        }
}

TEST(Ports, WindowPortsKeepPixelsWhileTheyGrow)
{
    struct Port : CWindowPort {};
    Port port;
    EXPECT_EQ(port.GetClientRect(), Rect{});
    port.Paint(Rect{0, 0, 9, 9}, kWhite); // on nothing
    ASSERT_TRUE(port.SetClientPixels({4, 4}));
    port.Paint(Rect{0, 0, 9, 9}, kWhite);
    ASSERT_TRUE(port.SetClientPixels({6, 2}));
    port.SetScaleFactor(2);
    EXPECT_EQ(port.GetClientRect(), (Rect{0, 0, 3, 1}));
    const CPixelSurface pixels = SurfaceOf(port.GetBitmap());
    EXPECT_EQ(*pixels.At(3, 1), 0xFFFFFFFF);
    EXPECT_EQ(*pixels.At(4, 1), 0xFF000000);
    port.SetScreenPosition({100, 50});
    EXPECT_EQ(port.ClientToScreen({1, 1.5}), (Point{102, 53}));
}

TEST(Ports, DrawOnWhatTheyAreGiven)
{
    struct Announced : CImagePort {
        void PixmapAttached(CDisplayPixmap&) override { ++attached; }
        void PixmapLeaving(CDisplayPixmap&) override { ++left; }
        int attached = 0;
        int left = 0;
    } port;
    port.Paint(Rect{0, 0, 9, 9}, kBlack);
    {
        CDisplayPixmap pixmap(port, 5, 4);
        EXPECT_EQ(port.GetSize(), (PixelPoint{5, 4}));
        EXPECT_EQ(port.GetPixmap(), &pixmap);
        port.SetPixmap(nullptr);
        port.SetPixmap(&pixmap);
    }
    EXPECT_EQ(port.GetPixmap(), nullptr);
    EXPECT_EQ(port.GetSurface(), nullptr);
    EXPECT_EQ(port.attached, 2);
    EXPECT_EQ(port.left, 2);

    TestImage image(6, 3);
    image.SetScaleFactor(3);
    image.IntersectClip(Rect{0, 0, 1, 9});
    CRadioPort radio(image);
    radio.Paint(Rect{0, 0, 9, 9}, kBlack);
    EXPECT_EQ(image.Inked(), (PixelRect{0, 0, 3, 3}));
    CWrapperPort wrapper(image.GetDisplay().GetBitmap(), {5, 3});
    wrapper.Paint(Rect{0, 0, 9, 1}, kBlack);
    EXPECT_EQ(image.Inked(), (PixelRect{0, 0, 5, 3}));
    radio.Tune(nullptr);
    radio.Paint(Rect{0, 0, 9, 9}, kTeal);
    EXPECT_EQ(image.At(0, 0), 0xFF000000);
}

} // namespace
} // namespace Kesto
