// The frames that a view can have. The names are those of layout texts.
#pragma once

#include <cstdint>

namespace Kesto {

enum EFrameKind : std::int32_t {
    kFrameEmpty = 0,
    kFramePrimaryGroup = 1,
    kFrameSecondaryGroup = 2,
    kFrameSolidDark = 3,
    kFrameSolidGray = 4,
    kFrameSolidLight = 5,
    kFrameActiveBorder = 6,
    kFrameDimBorder = 7,
    kFrameOut3D = 8,
    kFrameIn3D = 9,
    kFrameScrollerWell = 10,
    kFrameEtched = 11,
    kFrameTargetRing = 12,
    kFramePlacard = 13,
};

// Lines on some sides only; they count among the kinds of frames.
enum EDividerKind : std::int32_t {
    kDividerLeft = 50,
    kDividerTop = 51,
    kDividerRight = 52,
    kDividerBottom = 53,
    kDividerLeftRight = 54,
    kDividerTopBottom = 55,
    kDividerLeftUIB = 60,
    kDividerTopUIB = 61,
    kDividerRightUIB = 62,
    kDividerBottomUIB = 63,
};

} // namespace Kesto
