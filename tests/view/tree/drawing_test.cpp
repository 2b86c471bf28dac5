#include "view/tree/test_views.h"

#include "view/tree/draw_buffer.h"

using namespace Kesto;

namespace {

TEST_F(Tree, ChildrenAreDrawnInTheOrderOfTheOption)
{
    LoggedPane* const parent = Add("p", {0, 0, 100, 100});
    Add("a", {0, 0, 50, 50}, parent);
    Add("b", {50, 50, 90, 90}, parent);
    Add("hidden", {50, 0, 90, 40}, parent, kView_Invisible);
    EXPECT_EQ(Drawn(), "a:draw b:draw p:draw");
    parent->SetDrawParts(true);
    EXPECT_EQ(Drawn(), "p:draw b:draw a:draw");
    parent->Hide();
    EXPECT_EQ(Drawn(), "");
}

TEST_F(Tree, OnlyWhatIsInvalidIsDrawn)
{
    LoggedPane* const parent = Add("p", {0, 0, 100, 100});
    LoggedPane* const a = Add("a", {0, 0, 50, 100}, parent);
    Add("b", {50, 0, 100, 100}, parent);
    Drawn();
    EXPECT_EQ(Paint(), "");
    a->Invalidate(Rect{10, 10, 20, 20});
    EXPECT_EQ(Paint(), "a:draw");
    parent->Invalidate(Rect{45, 0, 55, 10});
    EXPECT_EQ(Paint(), "a:draw b:draw") << "they cover it all";
    a->InvalidateAll();
    a->ValidateAll();
    EXPECT_EQ(Paint(), "");
    a->Invalidate(Rect{60, 0, 90, 10});
    EXPECT_EQ(Paint(), "") << "outside of the view";
}

// Fills itself with a colour.
class Filled : public CPane {
public:
    Filled(const Rect& frame, std::uint32_t bgr, std::uint32_t options = 0)
        : CPane(frame, {}, options), fBGR(bgr)
    {
    }
    void DrawInContext(const CPaintEvent&) override
    {
        GetPort()->Paint(fBounds, Platform::ColourFromBGR(fBGR));
    }

private:
    std::uint32_t fBGR;
};

TEST_F(Tree, WhatIsHitIsWhatIsSeen)
{
    for (const std::uint32_t parts : {0U, std::uint32_t{kView_DrawParts}})
        for (const double scale : {1.0, 1.25, 1.5, 2.0}) {
            SCOPED_TRACE(std::to_string(parts) + " " + std::to_string(scale));
            root.DisposeContents();
            root.ChangeScale(scale);
            CPane* const parent =
                root.AppendChild(std::make_unique<Filled>(Rect{3, 3, 120, 120}, 1, parts));
            std::uint32_t colour = 2;
            for (int i = 0; i < 12; ++i) {
                const double x = i * 7 % 30;
                const double y = i * 11 % 40;
                CPane* const child = parent->AppendChild(std::make_unique<Filled>(
                    Rect{x, y, x + 30 + i, y + 25 + i}, colour++, i % 3 == 0 ? parts : 0));
                child->AppendChild(std::make_unique<Filled>(Rect{5, 5, 60, 12}, colour++));
            }
            Drawn();
            // The views' colours were given in pre-order.
            const std::function<std::uint32_t(const CView&, const CView&, std::uint32_t&)>
                colourOf = [&](const CView& at, const CView& wanted,
                               std::uint32_t& next) -> std::uint32_t {
                const std::uint32_t own = next++;
                if (&at == &wanted)
                    return own;
                for (std::size_t i = 0; i < at.CountChildren(); ++i)
                    if (const std::uint32_t found = colourOf(*at.GetChild(i), wanted, next))
                        return found;
                return 0;
            };
            int wrong = 0;
            for (int y = 5; y < 110; y += 3)
                for (int x = 5; x < 110; x += 3) {
                    const CView* const hit = root.ChildAtPoint({x + 0.5, y + 0.5});
                    std::uint32_t next = 1;
                    const auto seen = PixelAt(static_cast<std::int32_t>((x + 0.5) * scale),
                                              static_cast<std::int32_t>((y + 0.5) * scale));
                    wrong += colourOf(*parent, *hit, next) != seen;
                }
            EXPECT_EQ(wrong, 0);
        }
}

TEST_F(Tree, EachOfAThousandViewsIsDrawnOnce)
{
    for (int y = 0; y < 25; ++y) {
        CPane* const row = Add("r", {0, 12.0 * y, 400, 12.0 * y + 12});
        for (int x = 0; x < 40; ++x)
            Add("c", {10.0 * x, 0, 10.0 * x + 8, 10}, row);
    }
    const std::string drawn = Drawn();
    EXPECT_EQ(std::count(drawn.begin(), drawn.end(), 'c'), 1000);
    EXPECT_EQ(std::count(drawn.begin(), drawn.end(), 'r'), 25 + 1025) << "and once in each draw";
    for (const std::size_t at : {0U, 12U, 24U}) {
        root.GetChild(at)->GetChild(at + 15)->InvalidateAll();
        EXPECT_EQ(Paint(), "c:draw") << at;
    }
}

TEST_F(Tree, AViewThatIsNotOpaqueStandsOnTheGroundOfTheNearestThatIs)
{
    struct Ground : CPane {
        using CPane::CPane;
        void DrawBackground() override { GetPort()->Paint(fBounds, Colour{0x56, 0x34, 0x12}); }
    };
    CPane* const ground = root.AppendChild(std::make_unique<Ground>(Rect{10, 10, 90, 90}));
    ground->SetOpaque(true);
    CPane* const between = Add("between", {10, 10, 50, 50}, ground);
    for (const std::uint32_t options : {0U, std::uint32_t{kView_DrawBuffer}}) {
        SCOPED_TRACE(options);
        CPane* const inner = Add("inner", {10, 10, 20, 20}, between, options);
        Drawn();
        EXPECT_EQ(PixelAt(35, 35), 0x123456U);
        EXPECT_EQ(PixelAt(25, 25), 0x123456U);
        inner->Dispose();
    }
}

TEST_F(Tree, TheBufferShowsWhatDrawingDirectlyShows)
{
    for (const double scale : {1.0, 1.25, 1.5, 2.0}) {
        SCOPED_TRACE(scale);
        root.DisposeContents();
        root.ChangeScale(scale);
        CPane* const outer =
            root.AppendChild(std::make_unique<Filled>(Rect{7, 9, 207, 209}, 0x102030));
        CPane* const inner =
            outer->AppendChild(std::make_unique<Filled>(Rect{33, 1, 90, 77}, 0xABCDEF));
        Drawn();
        const std::string direct = Pixels();
        outer->SetDrawBuffer(true);
        inner->SetDrawBuffer(true);
        Drawn();
        EXPECT_TRUE(direct == Pixels());
        EXPECT_FALSE(root.IsDrawingInBuffer());
    }
    CDrawBuffer buffer;
    EXPECT_EQ(buffer.Take(5, 300)->GetSize(), (PixelPoint{128, 300}));
    EXPECT_EQ(buffer.Take(200, 5)->GetSize(), (PixelPoint{200, 300})) << "it only grows";
}

} // namespace
