#include "view/tree/test_views.h"

using namespace Kesto;

namespace {

TEST_F(Tree, EverySpaceLeadsBackToTheViewsOwn)
{
    root.SetScreenPosition({1000, -50});
    for (const double scale : {1.0, 1.25, 1.5, 2.0}) {
        SCOPED_TRACE(scale);
        root.ChangeScale(scale);
        CPane* const outer = Add("o", {10.5, 20, 210, 220}, nullptr, 0, kBind_Scrollable);
        outer->SetImageExtent(1000, 1000);
        outer->ScrollTo({30, 40});
        CPane* const inner = Add("i", {35.25, 45, 100, 100}, outer);
        const Point local{3, 4};
        EXPECT_EQ(inner->LocalToParent(local), (Point{38.25, 49}));
        EXPECT_EQ(inner->LocalToPort(local), (Point{18.75, 29}));
        EXPECT_EQ(inner->LocalToGlobal(local), (Point{1000 + 18.75 * scale, 29 * scale - 50}));
        EXPECT_EQ(inner->ParentToLocal(inner->LocalToParent(local)), local);
        EXPECT_EQ(inner->PortToLocal(inner->LocalToPort(local)), local);
        EXPECT_EQ(inner->GlobalToLocal(inner->LocalToGlobal(local)), local);
    }
}

TEST_F(Tree, WholeNumbersAreRoundedAndSizesAreKept)
{
    root.SetScreenPosition({100, 200});
    root.ChangeScale(1.5);
    CPane* const view = Add("v", {10.5, 20.5, 60, 60});
    EXPECT_EQ(view->LocalToParent(PixelPoint{1, -40}), (PixelPoint{12, -20}));
    EXPECT_EQ(view->LocalToPort(PixelRect{1, 2, 11, 7}), (PixelRect{12, 23, 22, 28}));
    EXPECT_EQ(view->LocalToGlobal(PixelPoint{1, 1}), (PixelPoint{117, 232}));
    EXPECT_EQ(view->LocalToGlobal(PixelRect{1, 1, 11, 6}), (PixelRect{117, 232, 127, 237}));
    EXPECT_EQ(view->LocalToGlobal(Rect{1, 1, 11, 6}), (Rect{117.25, 232.25, 127.25, 237.25}));
    CBRVRegion region(Rect{0, 0, 10, 10});
    region.Union(Rect{20, 0, 30, 10});
    EXPECT_EQ(view->LocalToGlobal(region).GetBounds(), (Rect{115.75, 230.75, 145.75, 240.75}));
    EXPECT_EQ(view->GlobalToLocal(view->LocalToGlobal(region)), region);
    EXPECT_EQ(view->PortToLocal(view->LocalToPort(region)), region);
}

TEST_F(Tree, DevicePixelsAreRoundedOnceFromThePort)
{
    root.SetScreenPosition({7, 9});
    root.ChangeScale(1.25);
    CPane* const outer = Add("o", {1, 1, 50, 50});
    CPane* const inner = Add("i", {1, 1, 3, 3}, outer);
    // 2 and 4 units: floor(2.5 + 0.51), floor(5 + 0.51).
    EXPECT_EQ(inner->GetDeviceRect(), (PixelRect{3, 3, 5, 5}));
    EXPECT_EQ(inner->GetGlobalRect(), (PixelRect{10, 12, 12, 14}));
}

TEST_F(Tree, WhatShowsIsCutByParentsAndBySiblingsInFront)
{
    CPane* const front = Add("f", {0, 0, 50, 100});
    CPane* const outer = Add("o", {0, 0, 100, 100});
    CPane* const inner = Add("i", {20, 20, 200, 80}, outer);
    EXPECT_EQ(inner->GetVisibleRegion(), CBRVRegion(Rect{50, 20, 100, 80}));
    EXPECT_EQ(inner->GetVisibleLocalRegion(), CBRVRegion(Rect{30, 0, 80, 60}));
    front->Hide();
    EXPECT_EQ(inner->GetVisibleRegion(), CBRVRegion(Rect{20, 20, 100, 80}));
    outer->Hide();
    EXPECT_TRUE(inner->GetVisibleRegion().IsEmpty());
}

} // namespace
