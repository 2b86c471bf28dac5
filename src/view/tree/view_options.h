// What a view can be asked for when it is made. The names are those of layout texts.
#pragma once

#include <cstdint>

namespace Kesto {

// How a view behaves. Each is one bit.
enum EViewOptions : std::uint32_t {
    kView_NoOptions = 0,
    kView_Invisible = 1,
    kView_Disabled = 2,
    kView_Target = 4,
    kView_Bullseye = 8,
    kView_TabStop = 16,
    kView_TargetRing = 32,
    kView_ContextClick = 64,
    kView_InvalidOnActivate = 128,
    kView_DrawBuffer = 256,
    kView_DrawParts = 512,
    kView_ChunkyScroll = 1024,
    kView_EntireScroll = 2048,
    kView_BigCoordinates = 4096,
    kView_IgnoreMouseEvents = 8192,
    kView_MultiOnMouseUp = 16384,
    kView_NoFocusOnClick = 32768,
    kView_NoTabNavigate = 65536,
    kView_SupressSurrenders = 131072,
    kView_NoScaleUIForFont = 262144,
};

// How the edges of a view follow those of its parent when that is resized, and where its image
// lies. Each is one bit. kBind_Limit... place an image that is smaller than its view; with neither
// bit of an axis it is centred.
enum EViewBinding : std::uint32_t {
    kBind_XSizeable = 1,
    kBind_YSizeable = 2,
    kBind_XCenter = 4,
    kBind_YCenter = 8,
    kBind_Left = 16,
    kBind_Top = 32,
    kBind_Right = 64,
    kBind_Bottom = 128,
    kBind_XScrollable = 256,
    kBind_YScrollable = 512,
    kBind_PinLeft = 1024,
    kBind_PinTop = 2048,
    kBind_PinRight = 4096,
    kBind_PinBottom = 8192,
    kBind_LimitLeft = 16384,
    kBind_LimitTop = 32768,
    kBind_LimitRight = 65536,
    kBind_LimitBottom = 131072,
    kBind_PortCoordinates = 262144,

    // nothing, and sums of the above
    kBind_Fixed = 0,
    kBind_LimitMiddle = 0,
    kBind_FixedLeft = kBind_Left,
    kBind_FixedMidX = kBind_XCenter,
    kBind_FixedRight = kBind_Right,
    kBind_FixedTop = kBind_Top,
    kBind_FixedMidY = kBind_YCenter,
    kBind_FixedBottom = kBind_Bottom,
    kBind_FixedCenterLeft = kBind_XCenter + kBind_Left,
    kBind_FixedCenterTop = kBind_YCenter + kBind_Top,
    kBind_FixedCenterRight = kBind_XCenter + kBind_Right,
    kBind_FixedCenterBottom = kBind_YCenter + kBind_Bottom,
    kBind_SizeLeft = kBind_XSizeable + kBind_Left,
    kBind_SizeMidX = kBind_XSizeable + kBind_XCenter,
    kBind_SizeRight = kBind_XSizeable + kBind_Right,
    kBind_SizeTop = kBind_YSizeable + kBind_Top,
    kBind_SizeMidY = kBind_YSizeable + kBind_YCenter,
    kBind_SizeBottom = kBind_YSizeable + kBind_Bottom,
    kBind_SizeCenterLeft = kBind_XSizeable + kBind_XCenter + kBind_Left,
    kBind_SizeCenterTop = kBind_YSizeable + kBind_YCenter + kBind_Top,
    kBind_SizeCenterRight = kBind_XSizeable + kBind_XCenter + kBind_Right,
    kBind_SizeCenterBottom = kBind_YSizeable + kBind_YCenter + kBind_Bottom,
    kBind_Sizeable = kBind_XSizeable + kBind_YSizeable,
    kBind_FixedTopLeft = kBind_Left + kBind_Top,
    kBind_FixedTopMiddle = kBind_XCenter + kBind_Top,
    kBind_FixedTopRight = kBind_Top + kBind_Right,
    kBind_FixedMiddleLeft = kBind_YCenter + kBind_Left,
    kBind_FixedMiddle = kBind_XCenter + kBind_YCenter,
    kBind_FixedMiddleRight = kBind_YCenter + kBind_Right,
    kBind_FixedBottomLeft = kBind_Left + kBind_Bottom,
    kBind_FixedBottomMiddle = kBind_XCenter + kBind_Bottom,
    kBind_FixedBottomRight = kBind_Right + kBind_Bottom,
    kBind_XNoPin = kBind_PinLeft + kBind_PinRight,
    kBind_YNoPin = kBind_PinTop + kBind_PinBottom,
    kBind_Scrollable = kBind_XScrollable + kBind_YScrollable,
    kBind_PinTopLeft = kBind_PinLeft + kBind_PinTop,
    kBind_PinTopRight = kBind_PinTop + kBind_PinRight,
    kBind_PinBottomLeft = kBind_PinLeft + kBind_PinBottom,
    kBind_PinBottomRight = kBind_PinRight + kBind_PinBottom,
    kBind_NoPin = kBind_PinLeft + kBind_PinTop + kBind_PinRight + kBind_PinBottom,
    kBind_LimitTopLeft = kBind_LimitLeft + kBind_LimitTop,
    kBind_LimitTopMiddle = kBind_LimitTop,
    kBind_LimitTopRight = kBind_LimitTop + kBind_LimitRight,
    kBind_LimitMiddleLeft = kBind_LimitLeft,
    kBind_LimitMiddleRight = kBind_LimitRight,
    kBind_LimitBottomLeft = kBind_LimitLeft + kBind_LimitBottom,
    kBind_LimitBottomMiddle = kBind_LimitBottom,
    kBind_LimitBottomRight = kBind_LimitRight + kBind_LimitBottom,
    kBind_ScrollTopLeft = kBind_XScrollable + kBind_YScrollable + kBind_PinLeft + kBind_PinTop,
    kBind_ScrollTopRight = kBind_XScrollable + kBind_YScrollable + kBind_PinTop + kBind_PinRight,
    kBind_ScrollBottomLeft =
        kBind_XScrollable + kBind_YScrollable + kBind_PinLeft + kBind_PinBottom,
    kBind_ScrollBottomRight =
        kBind_XScrollable + kBind_YScrollable + kBind_PinRight + kBind_PinBottom,
};

// Where a tip opens, seen from its view.
enum ETipPlacement : std::int32_t {
    kTip_PlaceDefault = 0,
    kTip_PlaceAbsoluteCenter = 1,
    kTip_PlaceAbove = 2,
    kTip_PlaceBelow = 3,
    kTip_PlaceLeft = 4,
    kTip_PlaceRight = 5,
};

} // namespace Kesto
