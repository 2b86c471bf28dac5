// Pictures of every family of operations at the usual scales, held against files in golden/, pixel
// by pixel and on every system against the same ones: all but text comes out equal to the bit.
// golden/make writes them anew.
#include "drawing/frames/border.h"
#include "drawing/frames/widget_skin.h"
#include "drawing/ports/test_image.h"
#include "drawing/tools/draw_tools.h"
#include "images/png/decoding.h"
#include "support/testing.h"

namespace Kesto {
namespace {

constexpr double kScales[] = {1.0, 1.25, 1.5, 2.0};
constexpr Colour kTeal{0x12, 0x80, 0x8F};
constexpr double kWidth = 64; // of a panel, in units
constexpr double kHeight = 48;

using Draw = std::function<void(CSystemPort&)>;

// Red, green and blue of each pixel of the panels, which stand side by side.
TestPNG::Picture PictureOf(const Draw& draw)
{
    TestPNG::Picture picture;
    picture.colorType = 2;
    picture.height = ToDevice(kHeight, 2.0);
    for (const double scale : kScales)
        picture.width += ToDevice(kWidth, scale);
    TestImage sheet(picture.width, picture.height);
    double left = 0;
    for (const double scale : kScales) {
        TestImage panel(ToDevice(kWidth, scale), ToDevice(kHeight, scale), scale);
        draw(panel);
        const Rect size = panel.GetClientRect();
        sheet.DrawPort(panel, size, {left, 0, left + kWidth * scale, kHeight * scale});
        left += ToDevice(kWidth, scale);
    }
    for (std::int32_t y = 0; y < picture.height; ++y)
        for (std::int32_t x = 0; x < picture.width; ++x)
            for (const std::uint32_t shift : {16u, 8u, 0u})
                picture.samples.push_back(static_cast<std::uint8_t>(sheet.At(x, y) >> shift));
    return picture;
}

TestPNG::Bytes SamplesOfFile(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), {}};
    return TestPNG::SamplesOf(*TestPNG::Decode({bytes.begin(), bytes.end()}));
}

void ExpectGolden(const std::string& family, const Draw& draw)
{
    SCOPED_TRACE(family);
    const std::string path = SIDECAR_SOURCE_DIR "/tests/drawing/golden/" + family + ".png";
    const TestPNG::Picture picture = PictureOf(draw);
    if (std::getenv("SIDECAR_REMAKE_GOLDEN") != nullptr) {
        const TestPNG::Bytes file = TestPNG::Encoded(picture, {1});
        std::ofstream(path, std::ios::binary)
            .write(reinterpret_cast<const char*>(file.data()),
                   static_cast<std::streamsize>(file.size()));
    }
    const std::vector<std::uint8_t> expected = SamplesOfFile(path);
    ASSERT_EQ(picture.samples.size(), expected.size());
    const auto [ours, theirs] = std::ranges::mismatch(picture.samples, expected);
    if (ours == picture.samples.end())
        return;
    const auto pixel = static_cast<std::int32_t>((ours - picture.samples.begin()) / 3);
    ADD_FAILURE() << "differs from column " << pixel % picture.width << " of row "
                  << pixel / picture.width << " on: " << int{*ours} << " in place of "
                  << int{*theirs} << ". If that is right now, run tests/drawing/golden/make.";
}

CMemoryPixmap BadgeOf(std::int32_t planes, std::int32_t side)
{
    return MakePlanes(planes, side, side, [=](int plane, int x, int y) {
        return planes % 2 == 0 && plane == planes - 1 ? 255 * (x + y) / (2 * side)
                                                      : 11 * x + 7 * y * plane;
    });
}

TEST(Golden, Shapes)
{
    const CBRVRegion region = CBRVRegion(Rect{2, 2, 30, 20}).Subtract(Rect{9, 7, 22, 40});
    ExpectGolden("rectangles", [](auto& port) {
        port.PaintAndFrame(Rect{2.5, 2, 30, 20}, CPen{kBlack, 2}, CBrush{kTeal});
        port.Frame(Rect{34, 2, 60, 20}, CPen{kBlack, 0.3});
        port.Paint(Rect{5, 5, 50, 9}, Colour{200, 40, 20, 100});
        port.Paint(Rect{4, 24, 60, 44}, CBrush{kBlack, {240, 220, 80}, CBrush::kChecks});
        port.Invert(Rect{20, 15, 40, 33});
    });
    ExpectGolden("regions", [&](auto& port) {
        port.PaintAndFrame(region, CPen{kBlack, 1}, CBrush{kTeal});
        port.SetWindowOrigin({30.4, 20.2});
        port.Frame(region, CPen{kTeal, 3});
    });
    ExpectGolden("ovals", [](auto& port) {
        port.PaintAndFrame(Oval{{2, 2, 30, 20}}, CPen{kBlack, 2}, CBrush{kTeal});
        port.Frame(Oval{{36, 4, 46, 14}}, CPen{kBlack});
        port.Paint(Oval{{3, 22, 61, 46}}, Colour{200, 40, 20, 100});
    });
    ExpectGolden("rounded_rectangles", [](auto& port) {
        port.PaintAndFrame(RoundRect{{2, 2, 30, 20}, 4}, CPen{kBlack, 1}, CBrush{kTeal});
        port.Frame(RoundRect{{34, 2, 60, 20}, 30}, CPen{kBlack, 2});
        port.Paint(RoundRect{{3, 24, 61, 45}, 7}, Colour{200, 40, 20, 100});
    });
    ExpectGolden("lines", [](auto& port) {
        const Point zigzag[] = {{3, 3}, {20, 9}, {7, 15}, {29, 21}};
        const Point star[] = {{46, 2}, {54, 22}, {36, 9}, {58, 9}, {38, 22}};
        port.SetPen(CPen{kTeal, 1.5});
        port.DrawPolyline(zigzag);
        port.DrawLine({2, 25}, {60, 25});
        port.FillPolygon(star, kBlack);
        port.IntersectClip(CBRVRegion(Rect{2, 28, 30, 46}).Union(Rect{34, 30, 60, 40}));
        port.DrawLine({2, 28}, {60, 46});
    });
}

TEST(Golden, Pixels)
{
    ExpectGolden("pixmaps", [](auto& port) {
        for (std::int32_t planes = 1; planes <= 4; ++planes) {
            CMemoryPixmap badge = BadgeOf(planes, 24);
            const double left = 16 * planes - 14;
            port.Paint(Rect{left, 6, left + 12, 40}, kTeal);
            port.DrawPixmapBlended(badge, {0, 0, 24, 24}, {left, 2, left + 14, 16});
            port.DrawPixmapBlended(badge, {0, 0, 6, 6}, {left, 17, left + 14, 31});
            port.DrawPixmap(badge, {4, 4, 16, 16}, {left, 32, left + 14, 46});
        }
    });
    ExpectGolden("scrolling", [](auto& port) {
        CMemoryPixmap badge = BadgeOf(3, 48);
        port.DrawPixmap(badge, {0, 0, 48, 48}, {0, 0, 64, 48});
        CDeviceRegion uncovered;
        port.IntersectClip(CBRVRegion(Rect{4, 4, 60, 44}).Subtract(Rect{20, 12, 28, 24}));
        port.ScrollPixels({8, 8, 56, 40}, 4, -8, uncovered);
        port.SetDeviceClip(uncovered);
        port.Paint(Rect{0, 0, 64, 48}, kTeal);
    });
}

// A theme in each of four rows of cells.
TEST(Golden, FramesAndControls)
{
    const auto inThemes = [](const std::function<void(CSystemPort&, double)>& drawRow) {
        return [=](CSystemPort& port) {
            for (const std::int32_t theme : {0, 1, 2, 3}) {
                CDrawTools::Get().SetTheme(theme);
                port.Paint(Rect{0, 12.0 * theme, 64, 12.0 * theme + 12},
                           ToolColour(kColour_Window));
                drawRow(port, 12.0 * theme);
            }
            CDrawTools::Get().SetTheme(0);
        };
    };
    ExpectGolden("frames", inThemes([](CSystemPort& port, double top) {
                     for (const std::int32_t kind :
                          {kFramePrimaryGroup, kFrameSolidDark, kFrameActiveBorder, kFrameOut3D,
                           kFrameIn3D, kFrameEtched, kFrameTargetRing})
                         CBorder(kind).Draw(port, {5.0 * kind, top + 1, 5.0 * kind + 8, top + 11});
                 }));
    ExpectGolden(
        "controls", inThemes([](CSystemPort& port, double top) {
            using enum EButtonState;
            CWidgetSkin::DrawPushButton(port, {0, top, 14, top + 12}, kRollover, true, true);
            CWidgetSkin::DrawCheckBox(port, {15, top, 27, top + 12}, kNormal, EMark::kOn);
            CWidgetSkin::DrawRadioButton(port, {28, top, 40, top + 12}, kDisabled, EMark::kOn);
            CWidgetSkin::DrawSliderThumb(port, {46, top + 6}, kPress);
            CWidgetSkin::DrawField(port, {52, top, 64, top + 12}, {.invalid = true});
        }));
}

} // namespace
} // namespace Kesto
