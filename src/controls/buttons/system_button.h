// CSystemButton and its three kinds: the buttons of dialogs, which look and work alike on every
// system, drawn with our skin.
#pragma once

#include "controls/buttons/button.h"

namespace Kesto {

class CSystemButton : public CButton {
public:
    using CButton::CButton;
};

class CPushButton : public CSystemButton {
public:
    using CSystemButton::CSystemButton;
};

class CCheckButton : public CSystemButton {
public:
    using CSystemButton::CSystemButton;
};

class CRadioButton : public CSystemButton {
public:
    using CSystemButton::CSystemButton;
};

} // namespace Kesto
