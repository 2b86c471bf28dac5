// Whether everything can be read on its grounds, in all themes.
#include "drawing/tools/colour_table.h"
#include "support/contrast.h"
#include "support/testing.h"

using namespace Kesto;

namespace {

// Each of the roles on each of the grounds.
struct Pairs {
    std::vector<EColourRole> roles, grounds;
    double least;
    double most = 21.0; // what is disabled must not look usable
};

const Pairs kPairs[] = {
    {{kColour_Label, kColour_Sign}, {kColour_Window, kColour_Panel}, 4.5},
    {{kColour_LabelDim}, {kColour_Window, kColour_Panel, kColour_TabBack}, 4.5},
    {{kColour_LabelDisabled}, {kColour_Window, kColour_Panel}, 2.2, 3.0},
    {{kColour_Border, kColour_BorderHot, kColour_Invalid},
     {kColour_Window, kColour_Panel, kColour_Field},
     3.0},
    {{kColour_BorderDisabled}, {kColour_Window, kColour_Panel}, 1.4},
    {{kColour_Focus}, {kColour_Window, kColour_Panel, kColour_Field, kColour_Button}, 3.0},
    {{kColour_FieldText}, {kColour_Field, kColour_Stripe}, 4.5},
    {{kColour_Placeholder}, {kColour_Field}, 4.5},
    {{kColour_FieldTextDisabled}, {kColour_FieldDisabled}, 2.2, 3.0},
    {{kColour_Sel}, {kColour_Field}, 3.0},
    {{kColour_SelText}, {kColour_Sel}, 4.5},
    {{kColour_SelOffText}, {kColour_SelOff}, 4.5},
    {{kColour_Accent}, {kColour_Groove}, 3.0},
    {{kColour_AccentEdge, kColour_DefaultRing, kColour_BoxEdge},
     {kColour_Window, kColour_Panel},
     3.0},
    {{kColour_AccentDisabled, kColour_Separator}, {kColour_Window}, 1.4},
    {{kColour_AccentMark}, {kColour_Accent, kColour_AccentHot, kColour_AccentPressed}, 3.0},
    {{kColour_ButtonText},
     {kColour_Button, kColour_ButtonHot, kColour_ButtonPressed, kColour_ButtonInactive},
     4.5},
    {{kColour_Sign}, {kColour_Button, kColour_Track}, 3.0},
    {{kColour_Thumb, kColour_ThumbHot}, {kColour_Track}, 3.0},
    {{kColour_GroupDark}, {kColour_Window}, 1.3},
    {{kColour_GroupLight}, {kColour_Window}, 1.1},
    {{kColour_TipText}, {kColour_Tip}, 4.5},
    {{kColour_TipEdge}, {kColour_Tip, kColour_Window}, 3.0},
    {{kColour_IconNote, kColour_IconQuestion, kColour_IconStop, kColour_IconWarning},
     {kColour_IconGround},
     3.0},
};

double LuminanceOf(std::uint32_t bgr)
{
    return Testing::Luminance({double(bgr & 255), double(bgr >> 8 & 255), double(bgr >> 16 & 255)});
}

TEST(Colours, CanBeReadOnTheirGroundsInAllThemes)
{
    const auto luminanceOf = [](EColourRole role, std::size_t theme) {
        return LuminanceOf(ColourTable()[role].colours[theme]);
    };
    for (const Pairs& pairs : kPairs)
        for (const EColourRole role : pairs.roles)
            for (const EColourRole ground : pairs.grounds)
                for (std::size_t theme = 0; theme < kThemeCount; ++theme) {
                    const double contrast =
                        Testing::Contrast(luminanceOf(role, theme), luminanceOf(ground, theme));
                    EXPECT_TRUE(contrast >= pairs.least && contrast <= pairs.most)
                        << contrast << " for role " << role << " on " << ground << ", theme "
                        << theme;
                }
}

TEST(Colours, TellTheStatesOfAButtonApart)
{
    const auto expectApart = [](std::initializer_list<EColourRole> roles, std::size_t theme) {
        for (const EColourRole a : roles)
            for (const EColourRole b : roles)
                EXPECT_EQ(a == b,
                          ColourTable()[a].colours[theme] == ColourTable()[b].colours[theme])
                    << "roles " << a << " and " << b << ", theme " << theme;
    };
    for (std::size_t theme = 0; theme < kThemeCount; ++theme) {
        expectApart(
            {kColour_Button, kColour_ButtonHot, kColour_ButtonPressed, kColour_ButtonInactive},
            theme);
        expectApart({kColour_Border, kColour_BorderHot, kColour_BorderDisabled}, theme);
    }
}

} // namespace
