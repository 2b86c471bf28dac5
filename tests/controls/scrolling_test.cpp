// Scroll bars, scroll panes, and scrollers that bring the two together.
#include "controls/control_panel.h"
#include "controls/registered_classes.h"
#include "controls/scrolling/scroller.h"
#include "layout/build/layout_owner.h"
#include "support/testing.h"
#include "view/messages/key_codes.h"
#include "view/test_pump.h"

using namespace Kesto;

namespace {

using Testing::kNaN;

TEST(ScrollTrack, TheThumbStaysOnItAndLeadsBack)
{
    for (const double length : {0.0, 24.0, 24.5, 100.0, 1000.0})
        for (const double way : {0.0, 0.25, 10.0, 1e9})
            for (const double page : {-5.0, 0.0, 1.0, 100.0, 1e9}) {
                SCOPED_TRACE(testing::Message() << length << " " << way << " " << page);
                const SScrollTrack track{length, way, page};
                EXPECT_EQ(track.HasThumb(), way > 0.0 && length > SScrollTrack::kLeastThumb);
                double before = 0.0;
                for (const double share : {-1.0, 0.0, 0.3, 0.9, 1.0, 2.0}) {
                    const double start = track.ThumbStart(way * share);
                    EXPECT_GE(start, before) << "onwards";
                    EXPECT_LE(start + track.ThumbLength(), length);
                    const double pinned = way * std::clamp(share, 0.0, 1.0);
                    if (track.HasThumb() && track.ThumbLength() < length) {
                        EXPECT_NEAR(track.DistanceAt(start), pinned, way * 1e-9);
                    }
                    before = start;
                }
            }
}

// A bar of 100 x 15: buttons of 15, a track of 70, of which the thumb of 10 in 20 takes half.
class Bar : public testing::Test {
protected:
    Bar() { bar.SetRange(0, 10, 10); }

    PumpedProcess process;
    ControlPanel panel;
    CScrollBar& bar = panel.Add<CScrollBar>("bar", {0, 0, 100, 15});
};

TEST_F(Bar, PartsDoWhatTheySay)
{
    bar.SetIncrements(1, 4);
    const struct {
        const char* what;
        double x;
        EScrollPart part;
        double from, to;
    } rows[] = {
        {"the button back", 14, kScrollPart_ButtonBack, 5, 4},
        {"at the beginning", 1, kScrollPart_ButtonBack, 0, 0},
        {"a page back", 16, kScrollPart_PageBack, 10, 6},
        {"less than a page back", 16, kScrollPart_PageBack, 3, 0},
        {"the thumb", 50, kScrollPart_Thumb, 5, 5},
        {"a page on", 84, kScrollPart_PageForward, 0, 4},
        {"the button on", 99, kScrollPart_ButtonForward, 9.5, 10},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        bar.SetValue(row.from);
        EXPECT_EQ(bar.PartAt({row.x, 7}), row.part);
        panel.Take();
        panel.Click(row.x, 7);
        EXPECT_EQ(bar.GetValue(), row.to);
        EXPECT_EQ(panel.Take().empty(), row.from == row.to);
    }
}

TEST_F(Bar, TheThumbIsDraggedAndEscapePutsItBack)
{
    panel.Press(20, 7);
    panel.Move(37.5, 7);
    EXPECT_EQ(bar.GetValue(), 5);
    panel.Move(500, 90);
    EXPECT_EQ(bar.GetValue(), 10);
    panel.Release(-50, 7);
    EXPECT_EQ(bar.GetValue(), 0);
    bar.SetValue(2);
    panel.Press(40, 7);
    panel.Move(60, 7);
    EXPECT_NE(bar.GetValue(), 2);
    EXPECT_TRUE(panel.BreakOffTracker());
    EXPECT_EQ(bar.GetValue(), 2);
    panel.Take();
    panel.Move(70, 7);
    EXPECT_EQ(panel.Take(), "");
}

TEST_F(Bar, AHeldButtonGoesOnUntilItIsReleasedOrLeft)
{
    bar.SetIncrements(0.5, 4);
    panel.Press(95, 7);
    const auto waitFor = [&](double value) {
        for (int turns = 0; bar.GetValue() < value && turns < 3000; ++turns)
            process.PumpQuiet(), Platform::Pause(1);
        return bar.GetValue() >= value;
    };
    EXPECT_TRUE(waitFor(1.5));
    panel.Move(95, 90);
    const double left = bar.GetValue();
    Platform::Pause(120);
    process.PumpQuiet();
    EXPECT_EQ(bar.GetValue(), left) << "the mouse is elsewhere";
    panel.Move(95, 7);
    EXPECT_TRUE(waitFor(left + 0.5));
    panel.Release(95, 7);
    const double released = bar.GetValue();
    Platform::Pause(120);
    process.PumpQuiet();
    EXPECT_EQ(bar.GetValue(), released);
}

TEST_F(Bar, TakesOnlyNumbersInItsRangeAndNothingWhenDisabled)
{
    for (const double value : {-3.0, 0.0, 4.5, 10.0, 11.0, 1e300}) {
        bar.SetValue(value);
        EXPECT_EQ(bar.GetValue(), std::clamp(value, 0.0, 10.0)) << value;
    }
    bar.SetValue(kNaN);
    bar.SetRange(0, kNaN, 1);
    bar.SetRange(0, 10, INFINITY);
    EXPECT_EQ(bar.GetValue(), 10);
    bar.SetRange(0, 0, 10);
    EXPECT_EQ(bar.GetValue(), 0);
    EXPECT_TRUE(bar.PartRect(kScrollPart_Thumb).IsEmpty());
    panel.Click(99, 7);
    panel.Wheel(50, 7, 0, -1);
    EXPECT_EQ(panel.Take(), "");
    bar.SetRange(10, 0, 10); // it runs the other way
    panel.Click(99, 7);
    EXPECT_EQ(bar.GetValue(), 0) << "a line is more than all";
    panel.Take();
    bar.Disable();
    panel.Click(1, 7);
    panel.Wheel(50, 7, 0, 1);
    EXPECT_EQ(panel.Take(), "");
}

struct Stop : CPane {
    Stop(const Rect& frame) : CPane(frame, {}, kView_TabStop) {}
};

TEST(ScrollPane, ReachesOverItsChildrenAndBringsTheFocusIntoSight)
{
    ControlPanel panel;
    auto& pane = panel.Add<CScrollPane>("pane", {0, 0, 100, 50}, kView_Target);
    pane.AppendChild(std::make_unique<Stop>(Rect{0, 0, 40, 20}));
    EXPECT_EQ(pane.GetScrollWay(), (Point{0, 0}));
    auto* const far = pane.AppendChild(std::make_unique<Stop>(Rect{10, 180, 130, 200}));
    EXPECT_EQ(pane.GetScrollWay(), (Point{30, 150}));
    ASSERT_TRUE(far->BecomeBullseye(false));
    EXPECT_EQ(pane.GetImageOrigin(), (Point{10, 150}));
    pane.SetImageExtent(400, 60);
    pane.AppendChild(std::make_unique<Stop>(Rect{0, 0, 10, 900}));
    EXPECT_EQ(pane.GetScrollWay(), (Point{300, 10})) << "an extent that was given stays";
}

TEST(ScrollPane, IsScrolledByKeysAndWheel)
{
    ControlPanel panel;
    auto& pane = panel.Add<CScrollPane>("pane", {0, 0, 100, 50}, kView_TabStop);
    pane.SetImageExtent(300, 500);
    ASSERT_TRUE(pane.BecomeBullseye(false));
    const std::tuple<const char*, std::function<void()>, Point> rows[] = {
        {"a line down", [&] { panel.Key(pane, kKeyCode_Down); }, {0, 16}},
        {"a line right", [&] { panel.Key(pane, kKeyCode_Right); }, {16, 16}},
        {"a page down", [&] { panel.Key(pane, kKeyCode_PageDown); }, {16, 61}},
        {"the end", [&] { panel.Key(pane, kKeyCode_End); }, {16, 450}},
        {"and no farther", [&] { panel.Key(pane, kKeyCode_Down); }, {16, 450}},
        {"the wheel up", [&] { panel.Wheel(50, 20, 0, 1); }, {16, 402}},
        {"the wheel to the right", [&] { panel.Wheel(50, 20, 1, 0); }, {64, 402}},
        {"Shift turns it",
         [&] { panel.Wheel(50, 20, 0, 1, CMessage::kModifier_Shift); },
         {16, 402}},
        {"Home", [&] { panel.Key(pane, kKeyCode_Home); }, {16, 0}},
        {"left", [&] { panel.Key(pane, kKeyCode_Left); }, {0, 0}},
    };
    for (const auto& [what, action, at] : rows) {
        action();
        EXPECT_EQ(pane.GetImageOrigin(), at) << what;
    }
    EXPECT_FALSE(panel.Key(pane, kKeyCode_Down, CMessage::kModifier_Control));
}

TEST(ScrollPane, LeavesTheWheelToTheOneAroundItWhereNothingScrolls)
{
    ControlPanel panel;
    auto& outer = panel.Add<CScrollPane>("outer", {0, 0, 100, 50});
    auto* const inner = outer.AppendChild(std::make_unique<CScrollPane>(Rect{0, 0, 100, 400}));
    panel.Wheel(50, 20, 0, -1);
    EXPECT_EQ(outer.GetImageOrigin().y, CScrollPane::kNotch);
    inner->SetImageExtent(100, 800);
    panel.Wheel(50, 20, 0, -1);
    EXPECT_EQ(inner->GetImageOrigin().y, CScrollPane::kNotch);
    EXPECT_EQ(outer.GetImageOrigin().y, CScrollPane::kNotch);
}

class Scroller : public testing::Test {
protected:
    void Make(std::uint32_t attributes, const Point& extent)
    {
        scroller.SetAttributes(attributes);
        pane = scroller.AppendChild(std::make_unique<CScrollPane>());
        pane->SetImageExtent(extent.x, extent.y);
    }

    ControlPanel panel;
    CScroller& scroller = panel.Add<CScroller>("scroller", {0, 0, 115, 115});
    CScrollPane* pane = nullptr;
};

TEST_F(Scroller, BarsAndPaneGoTogether)
{
    Make(kScroller_XBar | kScroller_YBar, {200, 300});
    EXPECT_EQ(pane->GetFrame(), (Rect{0, 0, 100, 100}));
    CScrollBar& bar = *scroller.GetVerticalBar();
    EXPECT_EQ(bar.GetRange().last, 200);
    EXPECT_EQ(scroller.GetHorizontalBar()->GetRange().last, 100);
    pane->ScrollTo({20, 50});
    EXPECT_EQ(bar.GetValue(), 50);
    EXPECT_EQ(scroller.GetHorizontalBar()->GetValue(), 20);
    bar.UsePart(kScrollPart_PageForward);
    EXPECT_EQ(pane->GetImageOrigin(), (Point{20, 140}));
    EXPECT_EQ(panel.Take(), "") << "nobody else hears of it";
    scroller.SetSize(165, 165);
    EXPECT_EQ(pane->GetFrame(), (Rect{0, 0, 150, 150}));
    EXPECT_EQ(bar.GetFrame(), (Rect{150, 0, 165, 150}));
}

TEST_F(Scroller, APaneThatWasTakenOutIsOnItsOwn)
{
    Make(kScroller_YBar, {200, 300});
    const std::unique_ptr<CPane> taken = scroller.RemoveChild(pane);
    ASSERT_EQ(taken.get(), pane);
    EXPECT_EQ(scroller.GetScrollPane(), nullptr);
    scroller.GetVerticalBar()->UsePart(kScrollPart_ButtonForward);
    scroller.Dispose();
    pane->ScrollTo({0, 50});
    EXPECT_EQ(pane->GetImageOrigin().y, 50);
}

TEST_F(Scroller, PixelsStayWholeAtEveryScale)
{
    Make(kScroller_YBar, {100, 1000});
    for (const double scale : {1.0, 1.25, 1.5, 2.0}) {
        panel.ChangeScale(scale);
        for (double value = 0.0; value < 800.0; value += 77.7) {
            scroller.GetVerticalBar()->ScrollToValue(value, kScrollPart_Thumb);
            const double pixels = pane->GetImageOrigin().y * scale;
            EXPECT_NEAR(pixels, std::round(pixels), 1e-9) << scale;
            EXPECT_NEAR(pane->GetImageOrigin().y, value, 0.5 / scale + 1e-9);
            EXPECT_EQ(scroller.GetVerticalBar()->GetValue(), pane->GetImageOrigin().y);
        }
    }
}

TEST_F(Scroller, HidesBarsThatArentNeeded)
{
    Make(kScroller_XBar | kScroller_YBar | kScroller_AutoHideScrollBars, {10, 10});
    const struct {
        Point extent;
        bool x, y;
    } rows[] = {
        {{115, 115}, false, false}, {{116, 10}, true, false}, {{10, 116}, false, true},
        {{101, 116}, true, true},   {{116, 101}, true, true}, {{100, 116}, false, true},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.extent.x << " x " << row.extent.y);
        pane->SetImageExtent(row.extent.x, row.extent.y);
        EXPECT_EQ(scroller.GetHorizontalBar()->IsVisible(), row.x);
        EXPECT_EQ(scroller.GetVerticalBar()->IsVisible(), row.y);
        EXPECT_EQ(pane->GetFrame(), (Rect{0, 0, row.y ? 100.0 : 115.0, row.x ? 100.0 : 115.0}));
    }
}

TEST(ScrollerLayout, ATextMakesOneWithItsGaps)
{
    RegisterViewClasses();
    LayoutOwner owner;
    LoadLayoutFromText(
        owner, "PDialog() { CScroller(view_id: 'scroller', scroller_well_frame: true,"
               " scroller_horizontal_bar: false, scroller_gap_top: 30, width: 120, height: 100) {"
               " CScrollPane(view_id: 'pane', max_height: 50) {"
               "  CPane(width: 20, height: 400); CPane(width: 20, height: 100); }"
               " CPane(frame_interior: kInterior_ScrollerGapTop, view_id: 'gap'); } }");
    auto& scroller =
        dynamic_cast<CScroller&>(*owner.fRootView->FindChild(CObjID("scroller"), true));
    EXPECT_EQ(scroller.GetHorizontalBar(), nullptr);
    EXPECT_EQ(scroller.GetScrollPane()->GetFrame(), (Rect{1, 1, 104, 99}));
    EXPECT_EQ(scroller.GetScrollPane()->GetScrollWay(), (Point{0, 402}));
    EXPECT_EQ(scroller.GetVerticalBar()->GetFrame(), (Rect{104, 31, 119, 84}));
    CView* const gap = owner.fRootView->FindChild(CObjID("gap"), true);
    EXPECT_EQ(gap->GetFramePort().Width(), 15);
    EXPECT_EQ(gap->GetFramePort().Height(), 30);
}

} // namespace
