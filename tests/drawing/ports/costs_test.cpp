// What drawing leaves behind, and what it must not ask for each time.
#include "drawing/ports/radio_port.h"
#include "drawing/ports/test_image.h"
#include "drawing/ports/window_port.h"
#include "images/pictures/dual_picture.h"
#include "platform/graphics/fonts.h"
#include "support/failing_memory.h"
#include "support/testing.h"

namespace Kesto {
namespace {

CMemoryPixmap IconOf(std::int32_t side)
{
    return MakePlanes(4, side, side, [](int plane, int x, int y) { return 5 * (x + y + plane); });
}

CDualPicture PictureOf(std::int32_t side)
{
    CDualPicture picture;
    picture.SetPixmap(CSharedPixmap(std::make_unique<CMemoryPixmap>(IconOf(side))), kDensity_Low);
    picture.SetPixmap(CSharedPixmap(std::make_unique<CMemoryPixmap>(IconOf(2 * side))),
                      kDensity_High);
    return picture;
}

TEST(Costs, NothingIsAllocatedForIconsKnownLinesAndShapes)
{
    const CDualPicture picture = PictureOf(24);
    CMemoryPixmap icon = IconOf(24);
    const std::string line = "A known line of text";
    const Rect place{2, 2, 20, 60};
    const Rect source{0, 0, 24, 24};
    const Point corner{3, 15};
    const struct {
        const char* what;
        std::function<void(CSystemPort&)> draw;
    } rows[] = {
        {"icon", [&](auto& port) { port.DrawIcon(picture, place); }},
        {"stretched picture", [&](auto& port) { port.DrawPicture(picture, place); }},
        {"pixmap", [&](auto& port) { port.DrawPixmapBlended(icon, source, place); }},
        {"line", [&](auto& port) { port.DrawTextLine(line, corner); }},
        {"rectangle", [&](auto& port) { port.Paint(place, kBlack); }},
    };
    for (const double scale : {1.0, 1.25, 1.5, 2.0})
        for (const auto& row : rows) {
            SCOPED_TRACE(::testing::Message() << row.what << " at scale " << scale);
            TestImage image(100, 100, scale);
            row.draw(image); // what is kept is made
            const int before = Testing::CountedAllocations();
            {
                const Testing::FailingMemory::Counted counted;
                row.draw(image);
                row.draw(image);
            }
            EXPECT_EQ(Testing::CountedAllocations(), before);
        }
}

// On every kind of port that has pixels of its own or somebody else's.
void DrawOnPorts(const CDualPicture& picture, int round)
{
    struct Window : CWindowPort {};
    Window window;
    window.SetClientPixels({40 + round % 7, 30});
    CImage image(40, 30);
    CRadioPort radio(image);
    for (CSystemPort* port : {static_cast<CSystemPort*>(&window), static_cast<CSystemPort*>(&image),
                              static_cast<CSystemPort*>(&radio)}) {
        port->SetScaleFactor(1.5);
        port->SetFont({"Tahoma", 9.0 + round % 3});
        port->PaintAndFrame(RoundRect{{1, 1, 30, 20}, 4});
        port->Paint(Oval{{2, 2, 200, 9}}, CBrush{kBlack});
        port->DrawLine({0, 0}, {20, 9});
        port->DrawTextBox("Some words", {0, 0, 40, 16}, kText_Ellipsis | kText_Mnemonic);
        port->DrawIcon(picture, {0, 0, 30, 30});
    }
}

// Whatever the graphics system holds hangs on an object of ours.
TEST(Costs, TenThousandPortsLeaveNothingBehind)
{
    const CDualPicture picture = PictureOf(16);
    const auto draw = [&](int from, int to) {
        for (int round = from; round < to; ++round)
            DrawOnPorts(picture, round);
        Platform::DropKeptFonts();
        return Testing::LiveAllocations();
    };
    const int before = draw(0, 21); // all that is kept between uses
    EXPECT_EQ(draw(0, 10000), before);
    const CImage image(4, 4);
    EXPECT_GT(Testing::LiveAllocations(), before); // the count tells
}

} // namespace
} // namespace Kesto
