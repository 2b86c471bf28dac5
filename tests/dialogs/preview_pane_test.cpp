// The preview of a filter's dialog: when it asks the host, what it shows, zoom, mouse and trouble.
#include "controls/control_panel.h"
#include "dialogs/plugin_dialog/dialog_ids.h"
#include "dialogs/preview/preview_classes.h"
#include "dialogs/preview/preview_pane.h"
#include "dialogs/preview/preview_picture.h"
#include "dialogs/preview/preview_scroller.h"
#include "dialogs/preview/zoom_panel.h"
#include "dialogs/preview_host.h"
#include "dialogs/settings/task.h"
#include "layout/build/layout_owner.h"
#include "support/testing.h"
#include "view/test_pump.h"
#include "view/window/window.h"

using namespace Kesto;
using namespace Project;
using Testing::PreviewHost;

namespace {

// Turns the picture over, so that it is told from its source.
class Inverter final : public PPreviewFilter {
public:
    bool FilterPreview(const PreviewPixels& source, const PreviewPixels& result) override
    {
        ++runs;
        if (fails)
            fails();
        for (ptrdiff_t i = 0; i < source.stride * source.height; ++i)
            result.bytes[i] = static_cast<uint8_t>(~source.bytes[i]);
        return true;
    }
    int32_t PreviewReach() const override { return reach; }

    int runs = 0;
    int32_t reach = 0;
    std::function<void()> fails; // throws
};

class Preview : public testing::Test, public PPreviewListener {
protected:
    // 400 x 300 pixels, of which a pane of 100 x 80 is in sight.
    explicit Preview(int32_t width = 400, int32_t height = 300) : host(width, height, 3, 8)
    {
        pane.SetFilter(&inverter);
        pane.SetListener(this);
        pane.StartPreview();
    }

    bool PreviewClicked(const CMouseEvent&) override { return takesClicks; }
    void PreviewZoomed(double scale) override { zooms.push_back(scale); }

    // Idle turns until nothing changes, and how often the host was asked meanwhile.
    int Settle()
    {
        const int before = host.fetches;
        for (int turn = 0; turn < 4; ++turn)
            pane.Idle();
        return host.fetches - before;
    }

    // The colour at a place of the panel, 0xBBGGRR.
    uint32_t Shown(int32_t x, int32_t y)
    {
        panel.InvalidateAll();
        panel.UpdateNow();
        const uint8_t* const at =
            panel.GetBitmap().Bits() + panel.GetBitmap().RowBytes() * y + 4 * x;
        return static_cast<uint32_t>(at[0] << 16 | at[1] << 8 | at[2]);
    }
    static uint32_t Source(int32_t x, int32_t y)
    {
        return static_cast<uint32_t>(PreviewHost::Sample(x, y, 2) << 16 |
                                     PreviewHost::Sample(x, y, 1) << 8 |
                                     PreviewHost::Sample(x, y, 0));
    }
    static uint32_t Inverted(int32_t x, int32_t y) { return ~Source(x, y) & 0xFFFFFF; }

    PreviewHost host;
    Inverter inverter;
    PumpedProcess process;
    ControlPanel panel;
    PPreviewPane& pane = *panel.AppendChild(
        std::make_unique<PPreviewPane>(Rect{10, 10, 110, 90}, kDialog_PreviewPane));
    bool takesClicks = false;
    std::vector<double> zooms;
};

TEST_F(Preview, ShowsTheFiltersWorkPixelByPixelAndMovesWithoutTheHost)
{
    EXPECT_EQ(Settle(), 1) << "one block";
    EXPECT_EQ(inverter.runs, 1);
    EXPECT_EQ(Settle(), 0) << "nothing is dirty any more";
    EXPECT_EQ(Shown(10, 10), Inverted(0, 0));
    EXPECT_EQ(Shown(50, 70), Inverted(40, 60));
    pane.ScrollTo({20, 15}); // within the margin
    EXPECT_EQ(Settle(), 0);
    EXPECT_EQ(Shown(10, 10), Inverted(20, 15));
    pane.ScrollTo({250, 200});
    EXPECT_EQ(Settle(), 1);
    EXPECT_EQ(Shown(95, 75), Inverted(335, 265));
}

TEST_F(Preview, ZoomsKeepTheMiddleAndTakeWholeFactors)
{
    Settle();
    pane.ScrollTo({150, 110}); // 200, 150 in the middle
    for (const double scale : {3.0, 0.5, 1.0, 16.0, 1.0 / 3.0, 1.0}) {
        SCOPED_TRACE(scale);
        pane.SetScale(scale);
        EXPECT_EQ(Settle(), 1);
        EXPECT_EQ(zooms.back(), scale);
        EXPECT_FALSE(pane.scaleChanged);
        EXPECT_NEAR(pane.GetPictureCenter().x, 200, 1);
        EXPECT_NEAR(pane.GetPictureCenter().y, 150, 1);
    }
    pane.SetScale(3.0);
    pane.ScrollTo({300, 240});
    Settle();
    EXPECT_EQ(Shown(10, 10), Inverted(100, 80));
    EXPECT_EQ(Shown(12, 12), Inverted(100, 80));
    EXPECT_EQ(Shown(13, 12), Inverted(101, 80));
    pane.SetScale(0.25);
    Settle();
    EXPECT_EQ(Shown(10, 10), Inverted(0, 0)) << "all of it is in sight";
    EXPECT_EQ(Shown(11, 12), Inverted(4, 8));
}

TEST_F(Preview, AChangeOfSettingsRunsTheFilterAloneUnlessItLooksFarther)
{
    Settle();
    pane.SettingsChanged();
    EXPECT_EQ(Settle(), 0);
    EXPECT_EQ(inverter.runs, 2);
    inverter.reach = 200;
    pane.SettingsChanged();
    EXPECT_EQ(Settle(), 1);
    EXPECT_EQ(inverter.runs, 3);
}

TEST_F(Preview, WhatChangesWhileTheHostIsAskedEndsTheRunAtTheBlock)
{
    host.afterFetch = [this](HostFilterRecord&) {
        if (host.fetches == 1)
            pane.SettingsChanged();
    };
    EXPECT_EQ(Settle(), 2) << "the first is out of date";
    EXPECT_EQ(inverter.runs, 1);
    EXPECT_EQ(Shown(10, 10), Inverted(0, 0));
    bool died = false;
    host.afterFetch = [&](HostFilterRecord&) {
        pane.Dispose();
        died = true;
    };
    pane.SetScale(2.0);
    pane.Idle(); // the pane is gone when it returns
    EXPECT_TRUE(died);
    EXPECT_EQ(inverter.runs, 1);
}

TEST_F(Preview, AFailedRunWaitsForAChange)
{
    const struct {
        int16_t code;
        bool cancelled, failed, noMemory;
    } rows[] = {
        {kHostUserCanceled, true, false, false},
        {kHostMemoryFull, false, false, true},
        {kHostIoError, false, true, false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.code);
        host.failAt = host.fetches;
        host.code = row.code;
        pane.SetScale(pane.GetScale() * 2);
        EXPECT_EQ(Settle(), 1) << "it isn't tried again";
        EXPECT_EQ(pane.userCancelled, row.cancelled);
        EXPECT_EQ(pane.sourceFailed, row.failed);
        EXPECT_EQ(pane.noMemory, row.noMemory);
        EXPECT_EQ(gHostGaveUp, row.noMemory);
        EXPECT_EQ(Shown(11, 11) == 0xFFFFFF, row.noMemory) << "the message's white ground";
        pane.SettingsChanged();
        EXPECT_EQ(Settle(), 1);
        EXPECT_FALSE(pane.userCancelled || pane.sourceFailed || pane.noMemory || gHostGaveUp);
    }
    host.failAt = host.fetches;
    host.code = kHostUserCanceled;
    EXPECT_EQ(pane.FetchPreview(), -1);
}

TEST_F(Preview, ARecordThatNoDocumentHasIsNeitherFetchedNorShown)
{
    using Change = void (*)(HostFilterRecord&);
    const std::pair<const char*, Change> rows[] = {
        {"a depth", [](HostFilterRecord& record) { record.depth = 24; }},
        {"no planes", [](HostFilterRecord& record) { record.inputColorPlanes = 0; }},
        {"too many planes", [](HostFilterRecord& record) { record.inputColorPlanes = 30000; }},
    };
    const HostFilterRecord good = host.record;
    for (const auto& [what, change] : rows) {
        SCOPED_TRACE(what);
        pane.SetScale(1.0);
        Settle();
        change(host.record);
        pane.SetScale(2.0);
        EXPECT_EQ(Settle(), 0);
        EXPECT_TRUE(pane.sourceFailed);
        EXPECT_NE(Shown(10, 10), Inverted(0, 0)) << "buffers of another shape";
        host.record = good;
    }
}

TEST_F(Preview, AFilterThatFailsRunsAgainAtTheNextChange)
{
    inverter.fails = [] { throw std::bad_alloc(); };
    Settle();
    EXPECT_TRUE(pane.noMemory);
    EXPECT_EQ(inverter.runs, 1);
    inverter.fails = [] { throw std::runtime_error("the filter's own"); };
    pane.SettingsChanged();
    EXPECT_THROW(pane.Idle(), std::runtime_error);
    EXPECT_EQ(Settle(), 0);
    EXPECT_EQ(inverter.runs, 2) << "not the same again";
    inverter.fails = nullptr;
    pane.SettingsChanged();
    Settle();
    EXPECT_EQ(Shown(10, 10), Inverted(0, 0));
}

TEST_F(Preview, ClicksZoomDragOrGoToTheListener)
{
    Settle();
    const struct {
        const char* what;
        uint32_t held;
        double from, to;
        bool drags;
    } rows[] = {
        {"Control", CMessage::kModifier_Control, 1.0, 2.0, false},
        {"Control and Alt", CMessage::kModifier_Control | CMessage::kModifier_Alt, 1.0, 0.5, false},
        {"Alt", CMessage::kModifier_Alt, 1.0, 0.5, false},
        {"nothing", 0, 1.0, 1.0, true},
        {"Control at the largest scale", CMessage::kModifier_Control, 16.0, 16.0, true},
        {"both at the least scale", CMessage::kModifier_Control | CMessage::kModifier_Alt, 0.0625,
         0.0625, true},
        {"Alt at the least scale", CMessage::kModifier_Alt, 0.0625, 0.0625, false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        pane.SetScale(row.from);
        panel.modifiers = row.held;
        panel.Press(30, 30);
        EXPECT_EQ(pane.GetScale(), row.to);
        EXPECT_EQ(pane.draggingPreview, row.drags);
        panel.Release(30, 30);
        EXPECT_FALSE(pane.draggingPreview);
    }
    takesClicks = true;
    panel.modifiers = CMessage::kModifier_Control;
    panel.Click(30, 30);
    EXPECT_EQ(pane.GetScale(), 0.0625);
}

TEST_F(Preview, ADragShowsTheSourceAndItsEndTheResult)
{
    Settle();
    panel.Press(60, 60);
    panel.Move(50, 55);
    EXPECT_EQ(Settle(), 0);
    EXPECT_EQ(inverter.runs, 1) << "no filter runs while the mouse is down";
    EXPECT_EQ(Shown(10, 10), Source(10, 5));
    panel.Release(50, 55);
    EXPECT_EQ(Settle(), 0);
    EXPECT_EQ(inverter.runs, 2);
    EXPECT_EQ(Shown(10, 10), Inverted(10, 5));
    panel.Press(60, 60);
    panel.Move(0, 0);
    panel.BreakOffTracker();
    EXPECT_EQ(pane.GetImageOrigin(), (Point{10, 5})) << "broken off: back where it was";
}

TEST_F(Preview, ASelectionHoldsTheFiltersWorkBack)
{
    host.record.maskPresent = host.record.maskAutomatic = 1;
    Settle();
    const auto blended = [](int32_t x, int32_t y, int32_t plane) {
        const int32_t old = PreviewHost::Sample(x, y, plane), m = PreviewHost::MaskSample(x, y);
        const int32_t t = (255 - old) * m + (255 - m) * old + 0x80;
        return static_cast<uint32_t>((t + (t >> 8)) >> 8);
    };
    for (const auto& [x, y] : {std::pair{0, 0}, {8, 3}, {33, 47}})
        EXPECT_EQ(Shown(10 + x, 10 + y),
                  blended(x, y, 2) << 16 | blended(x, y, 1) << 8 | blended(x, y, 0))
            << x << ", " << y;
    host.record.maskAutomatic = 0;
    pane.SetScale(2.0);
    pane.SetScale(1.0);
    Settle();
    EXPECT_EQ(Shown(18, 13), Inverted(8, 3)) << "the filter sees to the selection itself";
}

TEST_F(Preview, WhileAPreviewRunsItShowsTheTarget)
{
    host.record.targetRect = {5, 6, 70, 80};
    gPreviewRunning = true;
    PixelRect rect;
    pane.GetVisibleSource(0, 0, 10, 10, rect);
    EXPECT_EQ(rect, (PixelRect{6, 5, 80, 70}));
    gPreviewRunning = false;
    pane.GetVisibleSource(0, 0, 10, 10, rect);
    EXPECT_EQ(rect, (PixelRect{0, 0, 10, 10}));
}

TEST(PreviewPicture, SamplesOfAllDepthsAreShownOverWhite)
{
    const struct {
        const char* what;
        int32_t depth, planes;
        std::vector<int32_t> samples; // 0 to 255
        int32_t alpha;                // -1: none
        uint32_t shown;               // 0xAARRGGBB
    } rows[] = {
        {"colours", 8, 3, {10, 20, 30}, -1, 0xFF0A141E},
        {"grey", 8, 1, {200}, -1, 0xFFC8C8C8},
        {"a fourth plane isn't shown", 8, 4, {10, 20, 30, 99}, -1, 0xFF0A141E},
        {"nothing of it", 8, 3, {10, 20, 30}, 0, 0xFFFFFFFF},
        {"all of it", 8, 3, {10, 20, 30}, 255, 0xFF0A141E},
        {"a part", 8, 3, {0, 100, 255}, 51, 0xFFCCE0FF},
        {"16 bits", 16, 3, {10, 20, 30}, -1, 0xFF0A141E},
        {"a part of 16 bits", 16, 1, {0}, 51, 0xFFCCCCCC},
        {"real numbers", 32, 3, {10, 20, 30}, 255, 0xFF0A141E},
        {"real numbers beyond white and black", 32, 3, {300, -20, 30}, -1, 0xFFFF001E},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        uint8_t samples[16] = {}, alpha[4] = {};
        for (size_t i = 0; i < row.samples.size(); ++i)
            PreviewHost::Put(samples + static_cast<ptrdiff_t>(i) * row.depth / 8, row.depth,
                             row.samples[i]);
        PreviewHost::Put(alpha, row.depth, row.alpha);
        uint32_t shown = 0;
        ShowRow(reinterpret_cast<uint8_t*>(&shown),
                {samples, row.alpha >= 0 ? alpha : nullptr, 1, row.planes, row.depth});
        EXPECT_EQ(shown, row.shown) << std::hex << shown;
    }
}

class LargePreview : public Preview {
protected:
    LargePreview() : Preview(30000, 30000) {}
};

TEST_F(LargePreview, AsksForTheCornerThatIsSeen)
{
    int64_t most = 0;
    host.afterFetch = [&](HostFilterRecord& record) {
        const HostRect16& rect = record.sourceBlockRect;
        most = std::max(most, int64_t{rect.right - rect.left} * (rect.bottom - rect.top));
    };
    pane.ScrollTo({1e9, 1e9});
    EXPECT_EQ(Settle(), 1);
    EXPECT_EQ(Shown(95, 75), Inverted(29985, 29985));
    EXPECT_LE(most, 200 * 200);
}

TEST_F(Preview, ThePanelStepsThroughTheZoomsAndUndoesThem)
{
    auto& zoom = panel.Add<CZoomPanel>("Project/Dialog/ZoomPanel", {10, 100, 142, 124});
    PTaskStack tasks;
    zoom.SetTaskStack(tasks);
    const auto menu = [&] {
        return dynamic_cast<CMenuPopup*>(zoom.FindChild(kDialog_ZoomMenu, true));
    };
    panel.Click(130, 110);
    EXPECT_EQ(pane.GetScale(), 2.0);
    panel.Click(20, 110);
    panel.Click(20, 110);
    EXPECT_EQ(pane.GetScale(), 0.5);
    tasks.Undo();
    tasks.Undo();
    EXPECT_EQ(pane.GetScale(), 2.0);
    pane.SetScale(16.0);
    panel.Click(130, 110);
    EXPECT_EQ(pane.GetScale(), 16.0);
    menu()->Choose(3);
    EXPECT_EQ(pane.GetScale(), 1.0 / 3.0);
    EXPECT_EQ(menu()->GetShownText().View(), "33%");
    tasks.Undo();
    EXPECT_EQ(pane.GetScale(), 16.0);
    pane.SetScale(5.0);
    EXPECT_EQ(menu()->GetShownText().View(), "500%") << "none of the menu's";
    EXPECT_EQ(panel.Take(), "") << "nobody above hears of it";
}

TEST(PreviewClasses, AreMadeByLayouts)
{
    RegisterPreviewClasses();
    LayoutOwner owner;
    LoadLayoutFromText(owner, "CWindow(name: 'w') { PPreviewScroller(width: 200, height: 150, "
                              "view_id: 'Project/Dialog/PreviewScroller') { PPreviewPane(view_id: "
                              "'Project/Dialog/PreviewPane'); } CZoomPanel(view_id: "
                              "'Project/Dialog/ZoomPanel'); }");
    const std::unique_ptr<CWindow> window = owner.TakeWindow();
    ASSERT_NE(window, nullptr);
    auto* const scroller =
        dynamic_cast<PPreviewScroller*>(window->FindChild(kDialog_PreviewScroller, true));
    ASSERT_NE(scroller, nullptr);
    EXPECT_EQ(scroller->GetAttributes(), PPreviewScroller::kAttributes) << "no size box";
    EXPECT_EQ(scroller->GetScrollPane(),
              dynamic_cast<PPreviewPane*>(window->FindChild(kDialog_PreviewPane, true)));
    EXPECT_NE(dynamic_cast<CZoomPanel*>(window->FindChild(kDialog_ZoomPanel, true)), nullptr);
}

} // namespace
