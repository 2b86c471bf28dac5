// The options of labels and of fields for texts and numbers. The names are those of layout texts.
#pragma once

#include <cstdint>

namespace Kesto {

enum ETextAlignment : std::int32_t {
    kAlign_Default = 0,
    kAlign_Left = 1,
    kAlign_Top = 1,
    kAlign_Center = 2,
    kAlign_Right = 3,
    kAlign_Bottom = 3,
    kAlign_Full = 4,
};

// Where a text that is too long loses characters.
enum ETextTrim : std::int32_t {
    kTrim_None = 0,
    kTrim_Start = 1,
    kTrim_Middle = 2,
    kTrim_End = 3,
};

enum EStaticOptions : std::int32_t {
    kStatic_NoOptions = 0,
    kStatic_Wrap = 1,
    kStatic_GroupTitle = 2,
};

// Each is one bit.
enum EEditOptions : std::int32_t {
    kEdit_NoOptions = 0,
    kEdit_MultiLine = 1,
    kEdit_AutoGrow = 2,
    kEdit_NoFrame = 4,
    kEdit_ReadOnly = 8,
    kEdit_Password = 16,
    kEdit_CanScroll = 32,
    kEdit_ReturnIsEnter = 64,
    kEdit_IgnoreFKeys = 128,
    kEdit_NoRangeAlert = 256,
    kEdit_NoInvalidValueAlert = 512,
};

// Each is one bit.
enum ENumberFormat : std::int32_t {
    kNumber_Default = 0,
    kNumber_Integer = 0,
    kNumber_Decimal = 1,
    kNumber_FixedDecimal = 2,
    kNumber_PadInteger = 4,
    kNumber_ShowPlus = 8,
    kNumber_WrapAround = 16,
};

} // namespace Kesto
