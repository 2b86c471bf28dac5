// The options of buttons. The names are those of layout texts.
#pragma once

#include <cstdint>

namespace Kesto {

enum EButtonKind : std::int32_t {
    kPushButton = 0,
    kCheckButton = 1,
    kRadioButton = 2,
    kCTAGroupButton = 3,
};

enum EButtonValue : std::int32_t {
    kOff = 0,
    kOn = 1,
    kNeutral = 2,
};

enum EButtonStyle : std::int32_t {
    kButtonStyle_Default = 0,
    kButtonStyle_Bevel = 1,
    kButtonStyle_Push = 2,
    kButtonStyle_Check = 3,
    kButtonStyle_Radio = 4,
    kButtonStyle_Round = 5,
    kButtonStyle_SmallCheck = 6,
    kButtonStyle_SmallRadio = 7,
    kButtonStyle_SmallRound = 8,
    kButtonStyle_Disclosure = 9,
    kButtonStyle_Tool = 10,
    kButtonStyle_None = 11,
};

// Each is one bit.
enum ERadioOptions : std::int32_t {
    kRadio_NoOptions = 0,
    kRadio_CustomItems = 1,
    kRadio_ReportAll = 2,
};

} // namespace Kesto
