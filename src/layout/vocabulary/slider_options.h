// The options of sliders, dials and scroll bars. The names are those of layout texts.
#pragma once

#include <cstdint>

namespace Kesto {

enum ESliderStyle : std::int32_t {
    kSlider_Standard = 0,
    kSlider_Block = 1,
    kSlider_Daybench = 2,
};

enum ESliderOrientation : std::int32_t {
    kSlider_AutoOrient = 0,
    kSlider_Horizontal = 1,
    kSlider_Vertical = 2,
};

enum ESliderTicks : std::int32_t {
    kTicks_None = 0,
    kTicks_OneLoc = 1,
};

enum ESliderFill : std::int32_t {
    kSliderFill_None = 0,
    kSliderFill_Custom = 1,
    kSliderFill_SolidRGB = 2,
    kSliderFill_SolidCMY = 3,
    kSliderFill_SolidHSV = 4,
    kSliderFill_GradientRGB = 5,
    kSliderFill_GradientCMY = 6,
    kSliderFill_GradientHSV = 7,
};

// Where the field of a slider with a field is.
enum EEditPosition : std::int32_t {
    kPosEdit_Default = 0,
    kPosEdit_Above = 1,
    kPosEdit_Right = 2,
};

// Each is one bit.
enum EAngleSliderOptions : std::int32_t {
    kAngleSlider_Default = 0,
    kAngleSlider_CCW = 0,
    kAngleSlider_CW = 1,
    kAngleSlider_BiDirectional = 2,
    kAngleSlider_PinValue = 4,
};

// Each is one bit; the last two are none and the three of them that are controls.
enum EScrollerAttributes : std::int32_t {
    kScroller_XBar = 1,
    kScroller_YBar = 2,
    kScroller_SizeBox = 4,
    kScroller_WellFrame = 8,
    kScroller_AutoHideScrollBars = 16,
    kScroller_NoControls = 0,
    kScroller_AllControls = kScroller_XBar + kScroller_YBar + kScroller_SizeBox,
};

enum EScrollbarStyle : std::int32_t {
    kScrollbarStyle_Default = 0,
    kScrollbarStyle_Outline = 1,
    kScrollbarStyle_Span = 2,
    kScrollbarStyle_SpanMini = 3,
};

} // namespace Kesto
