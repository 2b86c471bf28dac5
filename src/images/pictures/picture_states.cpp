#include "images/pictures/picture_states.h"

#include "images/icons/resource_data_provider.h"

namespace Kesto {
namespace {

struct StateRow {
    EPictureState fState;
    Tag fTag; // 0 where the substitute is always taken
    EPictureState fSubstitute;
    double fOpacity; // of the substitute
};

constexpr double kInactiveOpacity = 0.4;

// Rollover has a tag, too, but it names the slot of the normal picture for light windows, on which
// a dark window would show nothing.
constexpr StateRow kStates[] = {
    {kPicture_Pressed, MakeTag("PICp"), kPicture_Normal, 1},
    {kPicture_Rollover, 0, kPicture_Normal, 1},
    {kPicture_Disabled, MakeTag("PICd"), kPicture_Inactive, 1},
    {kPicture_Inactive, MakeTag("PICi"), kPicture_Normal, kInactiveOpacity},
    {kPicture_Disactive, MakeTag("PICx"), kPicture_Disabled, 1},
};

const StateRow& RowOf(EPictureState state)
{
    return kStates[state - kPicture_Pressed];
}

// True when the store gives both states the same picture.
bool ShareASlot(const CResourceName& name, const StateRow& row)
{
    if (row.fSubstitute == kPicture_Normal)
        return false;
    EStateSlot own, other;
    EResolution density;
    const ResourceConversionThunk thunk;
    std::int32_t width, height;
    return thunk.GetTagSlots(row.fTag, own, density) &&
           thunk.GetTagSlots(RowOf(row.fSubstitute).fTag, other, density) && own == other &&
           CResourceDataProvider::Get().GetPictureSize(row.fTag, name, width, height);
}

} // namespace

bool CPictureStates::LoadPictures(const CResourceName& name, std::int32_t theme)
{
    fName = name;
    fPictures.fill(std::nullopt);
    const bool dark = theme == kTheme_MediumDark || theme == kTheme_Dark;
    CDualPicture& normal = fPictures[kPicture_Normal].emplace();
    return (dark && normal.LoadPicture(MakeTag("PIND"), name)) ||
           normal.LoadPicture(MakeTag("PICn"), name);
}

const CDualPicture& CPictureStates::Get(EPictureState state) const
{
    std::optional<CDualPicture>& picture = fPictures[state];
    if (!picture)
        picture = Load(state);
    return *picture;
}

CDualPicture CPictureStates::Load(EPictureState state) const
{
    const StateRow& row = RowOf(state);
    CDualPicture picture;
    if (row.fTag != 0 && !ShareASlot(fName, row) && picture.LoadPicture(row.fTag, fName))
        return picture;
    picture = Get(row.fSubstitute);
    if (row.fOpacity < 1)
        picture.Fade(row.fOpacity);
    return picture;
}

} // namespace Kesto
