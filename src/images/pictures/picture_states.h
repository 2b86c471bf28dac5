// CPictureStates, the pictures of a button in all its states, filled from one name.
//
// A picture is decoded when its state is first asked for, and states that the store keeps in one
// slot share it. Used by one thread.
#pragma once

#include "images/pictures/dual_picture.h"

#include <array>
#include <cstdint>
#include <optional>

namespace Kesto {

// From theme 2 on the interface is dark.
enum EInterfaceTheme : std::int32_t {
    kTheme_Light,
    kTheme_MediumLight,
    kTheme_MediumDark,
    kTheme_Dark
};

// In the order of the states of buttons, so that one number serves both.
enum EPictureState : std::uint32_t {
    kPicture_Normal,
    kPicture_Pressed,
    kPicture_Rollover,
    kPicture_Disabled,
    kPicture_Inactive,
    kPicture_Disactive,
    kPictureStateCount
};

class CPictureStates {
public:
    // Takes the pictures of a name from now on. In the two dark themes the normal one is the dark
    // picture, if there is one, and under the mouse the normal one stays. A pressed state without a
    // picture of its own is the normal one, an inactive one is paler than that, disabled looks like
    // inactive and disactive like disabled. Returns whether there is a normal picture. Throws what
    // LoadPicture throws.
    bool LoadPictures(const CResourceName& name, std::int32_t theme);

    // The picture of a state; empty where nothing is loaded. Throws what LoadPicture throws, as
    // often as it is asked.
    const CDualPicture& Get(EPictureState state) const;

private:
    CDualPicture Load(EPictureState state) const;

    CResourceName fName = 0;
    mutable std::array<std::optional<CDualPicture>, kPictureStateCount> fPictures{CDualPicture()};
};

} // namespace Kesto
