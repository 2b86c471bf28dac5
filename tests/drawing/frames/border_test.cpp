#include "drawing/frames/border.h"

#include <gtest/gtest.h>

using namespace Kesto;

namespace {

TEST(Border, TakesFromEachSideWhatItsKindSays)
{
    const struct {
        std::int32_t kind;
        Rect edges;
    } rows[] = {
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
    for (const auto& row : rows)
        EXPECT_EQ(FrameEdges(row.kind), row.edges) << row.kind;
    EXPECT_EQ(CBorder(kFrameEtched).GetInterior({10, 10, 20, 13}), Rect{}) << "nothing is left";
    EXPECT_EQ(CBorder(kDividerLeft).GetInterior({10, 10, 20, 13}), (Rect{11, 10, 20, 13}));
}

} // namespace
