#include "images/pictures/picture_states.h"

namespace Kesto {
namespace {

struct StateRow {
    EPictureState fState;
    Tag fTag;
    EPictureState fSubstitute;
    double fOpacity; // of the substitute
};

constexpr double kInactiveOpacity = 0.4;

// Each substitute is loaded before it is needed.
constexpr StateRow kStates[] = {
    {kPicture_Pressed, MakeTag("PICp"), kPicture_Normal, 1},
    {kPicture_Rollover, MakeTag("PICr"), kPicture_Normal, 1},
    {kPicture_Inactive, MakeTag("PICi"), kPicture_Normal, kInactiveOpacity},
    {kPicture_Disabled, MakeTag("PICd"), kPicture_Inactive, 1},
    {kPicture_Extra, MakeTag("PICx"), kPicture_Disabled, 1},
};

} // namespace

bool CPictureStates::LoadPictures(const CResourceName& name, std::int32_t theme)
{
    const bool dark = theme == kTheme_MediumDark || theme == kTheme_Dark;
    CDualPicture& normal = fPictures[kPicture_Normal];
    const bool found = (dark && normal.LoadPicture(MakeTag("PIND"), name)) ||
                       normal.LoadPicture(MakeTag("PICn"), name);
    for (const StateRow& row : kStates) {
        CDualPicture& picture = fPictures[row.fState];
        if (picture.LoadPicture(row.fTag, name))
            continue;
        picture = fPictures[row.fSubstitute];
        if (row.fOpacity < 1)
            picture.Fade(row.fOpacity);
    }
    return found;
}

} // namespace Kesto
