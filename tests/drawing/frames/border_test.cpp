// What frames and bodies of controls look like, and what they leave.
#include "drawing/frames/border.h"
#include "drawing/frames/widget_skin.h"
#include "drawing/ports/test_image.h"
#include "support/testing.h"

using namespace Kesto;

namespace {

TEST(Border, TakesFromEachSideWhatItsKindSays)
{
    const std::pair<std::int32_t, Rect> rows[] = {
        {kFrameEmpty, {}},
        {kFramePrimaryGroup, {1, 1, 1, 1}},
        {kFrameSolidLight, {1, 1, 1, 1}},
        {kFrameOut3D, {2, 2, 2, 2}},
        {kFrameIn3D, {2, 2, 2, 2}},
        {kFrameScrollerWell, {1, 1, 1, 1}},
        {kFrameEtched, {2, 2, 2, 2}},
        {kFrameTargetRing, {3, 3, 3, 3}},
        {kFramePlacard, {1, 1, 1, 1}},
        {kDividerTop, {0, 1, 0, 0}},
        {kDividerLeftRight, {1, 0, 1, 0}},
        {kDividerBottomUIB, {0, 0, 0, 1}},
        {14, {}},
        {-1, {}},
    };
    for (const auto& [kind, edges] : rows)
        EXPECT_EQ(FrameEdges(kind), edges) << kind;
    EXPECT_EQ(CBorder(kFrameEtched).GetInterior({10, 10, 20, 13}), Rect{}) << "nothing is left";
    EXPECT_EQ(CBorder(kDividerLeft).GetInterior({10, 10, 20, 13}), (Rect{11, 10, 20, 13}));
}

TEST(Tabs, AreRoundAtTheTopAloneAndTheFrontOneJoinsItsPage)
{
    for (const bool front : {false, true}) {
        SCOPED_TRACE(front ? "the front one" : "another");
        TestImage image(30, 24);
        CWidgetSkin::DrawTab(image, {0, 0, 30, 20}, EButtonState::kNormal, front);
        const std::int32_t top = front ? 0 : 3;
        EXPECT_EQ(image.Inked(), (PixelRect{0, top, 30, front ? 21 : 20}));
        EXPECT_NE(image.At(0, top), image.At(0, 12)) << "a corner";
        for (std::int32_t y = 12; y < image.Inked().bottom; ++y)
            for (const std::int32_t x : {0, 1, 15, 29})
                EXPECT_EQ(image.At(x, y), image.At(x, 12)) << x << ", " << y;
    }
}

} // namespace
