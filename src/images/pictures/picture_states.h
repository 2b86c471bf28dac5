// CPictureStates, the pictures of a button in all its states, filled from one name.
#pragma once

#include "images/pictures/dual_picture.h"

#include <array>
#include <cstdint>

namespace Kesto {

// From theme 2 on the interface is dark.
enum EInterfaceTheme : std::int32_t {
    kTheme_Light,
    kTheme_MediumLight,
    kTheme_MediumDark,
    kTheme_Dark
};

enum EPictureState : std::uint32_t {
    kPicture_Normal,
    kPicture_Pressed,
    kPicture_Rollover,
    kPicture_Inactive,
    kPicture_Disabled,
    kPicture_Extra,
    kPictureStateCount
};

class CPictureStates {
public:
    // Loads all states. In the two dark themes the normal one is the dark picture, if there is one.
    // A state without a picture of its own is the normal one; an inactive one is paler than that,
    // disabled looks like inactive and extra like disabled. Returns whether there is a normal
    // picture. Throws what LoadPicture throws.
    bool LoadPictures(const CResourceName& name, std::int32_t theme);

    const CDualPicture& Get(EPictureState state) const { return fPictures[state]; }

private:
    std::array<CDualPicture, kPictureStateCount> fPictures;
};

} // namespace Kesto
