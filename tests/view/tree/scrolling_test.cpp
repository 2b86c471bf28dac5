#include "view/tree/test_views.h"

using namespace Kesto;

namespace {

// A view of 100 x 100 over an image of 300 x 400.
class Scrolled : public Tree {
public:
    LoggedPane* Make(std::uint32_t options = 0, std::uint32_t binding = kBind_Scrollable)
    {
        LoggedPane* const view = Add("v", {10, 20, 110, 120}, nullptr, options, binding);
        view->SetImageExtent(300, 400);
        Paint();
        return view;
    }
};

TEST_F(Scrolled, ThePositionStaysInTheImage)
{
    LoggedPane* const view = Make();
    struct Case {
        const char* what;
        std::function<void()> move;
        const char* told; // empty: nothing moved
        Point position;
    };
    const auto to = [view](Point position) { return [=] { view->ScrollTo(position); }; };
    const auto by = [view](double dx) { return [=] { view->ScrollBy(dx, 0, true, false); }; };
    const auto show = [view](Rect rect) { return [=] { view->RevealRect(rect); }; };
    const auto centre = [view](Rect rect) { return [=] { view->CenterRectInView(rect); }; };
    const Case cases[] = {
        {"to a place", to({50, 60}), "v:at50,60", {50, 60}},
        {"too far", to({999, 999}), "v:at200,300", {200, 300}},
        {"too far back", to({-5, 10}), "v:at0,10", {0, 10}},
        {"less than anything", by(0.00000001), "", {0, 10}},
        {"not a number", by(NAN), "", {0, 10}},
        {"to show a rectangle", show({150, 0, 160, 10}), "v:at60,0", {60, 0}},
        {"that shows", show({60, 0, 160, 100}), "", {60, 0}},
        {"that is larger than the view", show({70, 0, 290, 10}), "v:at70,0", {70, 0}},
        {"to centre one", centre({190, 190, 210, 210}), "v:at150,150", {150, 150}},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.what);
        Take();
        row.move();
        EXPECT_EQ(Take(), row.told);
        EXPECT_EQ(view->GetImageOrigin(), row.position);
    }
}

TEST_F(Scrolled, BigCoordinatesMoveTheImageAndLeaveTheBounds)
{
    LoggedPane* const small = Make();
    LoggedPane* const big = Make(kView_BigCoordinates);
    for (LoggedPane* const view : {small, big})
        view->ScrollTo({30, 40});
    EXPECT_EQ(small->GetBounds(), (Rect{30, 40, 130, 140}));
    EXPECT_EQ(small->GetImage(), (Rect{0, 0, 300, 400}));
    EXPECT_EQ(big->GetBounds(), (Rect{0, 0, 100, 100}));
    EXPECT_EQ(big->GetImage(), (Rect{-30, -40, 270, 360}));
    EXPECT_EQ(big->GetImageOrigin(), small->GetImageOrigin());
}

TEST_F(Scrolled, AnImageThatIsSmallerLiesWhereTheLimitsSay)
{
    const std::tuple<const char*, std::uint32_t, double> cases[] = {
        {"centred", 0, -20},
        {"at the left", kBind_LimitLeft, 0},
        {"at the right", kBind_LimitRight, -40}};
    for (const auto& [what, limit, left] : cases) {
        SCOPED_TRACE(what);
        LoggedPane* const view = Make(0, kBind_Scrollable | limit);
        view->SetImageExtent(60, 400);
        EXPECT_EQ(view->GetBounds().left, left);
        EXPECT_EQ(view->GetScrollLimits().Width(), 100);
        view->SetImageExtent(300, 400);
        view->ScrollTo({200, 0});
        view->SetSize(150, 100);
        EXPECT_EQ(view->GetBounds(), (Rect{150, 0, 300, 100})) << "pulled back at the end";
    }
}

// What a scroll makes invalid, in pixels of the root.
TEST_F(Scrolled, OnlyTheUncoveredStripIsDrawnAnew)
{
    const struct {
        const char* what;
        std::uint32_t options;
        Point by;
        double scale;
        std::vector<PixelRect> invalid;
    } cases[] = {
        {"down", 0, {0, 10}, 1.0, {{10, 110, 110, 120}}},
        {"at twice the scale", 0, {0, 10}, 2.0, {{20, 220, 220, 240}}},
        {"down and right", 0, {10, 10}, 1.0, {{100, 20, 110, 110}, {10, 110, 110, 120}}},
        {"by its size", kView_EntireScroll, {0, 100}, 1.0, {{10, 20, 110, 120}}},
        {"by half a pixel", 0, {0, 0.5}, 1.0, {{10, 20, 110, 120}}},
        {"chunky", kView_ChunkyScroll, {0, 10}, 1.0, {{10, 20, 110, 30}, {10, 110, 110, 120}}},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.what);
        root.ChangeScale(row.scale);
        LoggedPane* const view = Make(row.options);
        view->ScrollBy(row.by.x, row.by.y, true, false);
        const auto rects = root.GetInvalid().GetRects();
        EXPECT_EQ(std::vector<PixelRect>(rects.begin(), rects.end()), row.invalid);
        view->Dispose();
    }
}

TEST_F(Scrolled, ScrollingLooksLikeDrawingAnew)
{
    struct Stripes : CPane {
        using CPane::CPane;
        void DrawInContext(const CPaintEvent&) override
        {
            for (int y = 0; y < 400; y += 7)
                GetPort()->Paint(Rect{0, 1.0 * y, 300, y + 7.0},
                                 Platform::ColourFromBGR(static_cast<std::uint32_t>(y * 40503)));
        }
    };
    Add("cover", {50, 50, 80, 60});
    CPane* const view = root.AppendChild(
        std::make_unique<Stripes>(Rect{10, 20, 110, 120}, CObjID{}, 0U, kBind_Scrollable));
    Add("inside", {20, 30, 60, 90}, view);
    view->SetImageExtent(300, 400);
    Paint();
    for (const double y : {5.0, 60.0, 55.0, 300.0, 0.0}) {
        SCOPED_TRACE(y);
        view->Invalidate(Rect{0, y, 100, y + 20}); // still to be drawn when it moves on
        view->ScrollTo({y / 5, y});
        Paint();
        const std::string moved = Pixels();
        Drawn();
        EXPECT_TRUE(moved == Pixels());
    }
}

} // namespace
