// What several kinds of controls have in common. The names are those of layout texts.
#pragma once

#include <cstdint>

namespace Kesto {

enum EControlSize : std::int32_t {
    kControlSize_Normal = 0,
    kControlSize_Small = 1,
    kControlSize_Large = 2,
};

enum EControlOrientation : std::int32_t {
    kControlOrient_Default = 0,
    kControlOrient_Horizontal = 1,
    kControlOrient_Vertical = 2,
    kControlOrient_Left = 3,
    kControlOrient_Right = 4,
    kControlOrient_Up = 5,
    kControlOrient_Down = 6,
};

// A place within a rectangle.
enum EPosition : std::int32_t {
    kPos_TopLeft = 0,
    kPos_TopMiddle = 1,
    kPos_TopRight = 2,
    kPos_MiddleLeft = 3,
    kPos_Center = 4,
    kPos_MiddleRight = 5,
    kPos_BottomLeft = 6,
    kPos_BottomMiddle = 7,
    kPos_BottomRight = 8,
};

// The parts of a scroller or of a frame that a child can be put into.
enum EInterior : std::int32_t {
    kInterior_ScrollerPane = 0,
    kInterior_ScrollerGapLeft = 5,
    kInterior_ScrollerGapTop = 6,
    kInterior_ScrollerGapRight = 7,
    kInterior_ScrollerGapBottom = 8,
    kInterior_FrameInterior = 0,
    kInterior_FrameInsertTop = 1,
    kInterior_FrameInsertLeft = 2,
    kInterior_FrameInsertBottom = 3,
    kInterior_FrameInsertRight = 4,
};

enum ETabStyle : std::int32_t {
    kTabStyle_Default = 0,
    kTabStyle_IconBar = 1,
};

} // namespace Kesto
