// Whether everything can be read on its grounds, in all themes.
#include "drawing/tools/colour_table.h"
#include "support/contrast.h"
#include "support/testing.h"

using namespace Kesto;

namespace {

struct Pair {
    const char* name;
    EColourRole role;
    EColourRole ground;
    double least;
    double most = 21.0; // what is disabled must not look usable
};

constexpr Pair kPairs[] = {
    {"label on window", kColour_Label, kColour_Window, 4.5},
    {"label on panel", kColour_Label, kColour_Panel, 4.5},
    {"label_dim on window", kColour_LabelDim, kColour_Window, 4.5},
    {"label_dim on panel", kColour_LabelDim, kColour_Panel, 4.5},
    {"label_dim on tab_back", kColour_LabelDim, kColour_TabBack, 4.5},
    {"label_disabled on window", kColour_LabelDisabled, kColour_Window, 2.2, 3.0},
    {"label_disabled on panel", kColour_LabelDisabled, kColour_Panel, 2.2, 3.0},
    {"border on window", kColour_Border, kColour_Window, 3.0},
    {"border on panel", kColour_Border, kColour_Panel, 3.0},
    {"border on field", kColour_Border, kColour_Field, 3.0},
    {"border_hot on window", kColour_BorderHot, kColour_Window, 3.0},
    {"border_hot on panel", kColour_BorderHot, kColour_Panel, 3.0},
    {"border_hot on field", kColour_BorderHot, kColour_Field, 3.0},
    {"border_disabled on window", kColour_BorderDisabled, kColour_Window, 1.4},
    {"border_disabled on panel", kColour_BorderDisabled, kColour_Panel, 1.4},
    {"focus on window", kColour_Focus, kColour_Window, 3.0},
    {"focus on panel", kColour_Focus, kColour_Panel, 3.0},
    {"focus on field", kColour_Focus, kColour_Field, 3.0},
    {"focus on button", kColour_Focus, kColour_Button, 3.0},
    {"invalid on window", kColour_Invalid, kColour_Window, 3.0},
    {"invalid on panel", kColour_Invalid, kColour_Panel, 3.0},
    {"invalid on field", kColour_Invalid, kColour_Field, 3.0},
    {"field_text on field", kColour_FieldText, kColour_Field, 4.5},
    {"field_text on stripe", kColour_FieldText, kColour_Stripe, 4.5},
    {"placeholder on field", kColour_Placeholder, kColour_Field, 4.5},
    {"field_text_disabled on field_disabled", kColour_FieldTextDisabled, kColour_FieldDisabled, 2.2,
     3.0},
    {"sel on field", kColour_Sel, kColour_Field, 3.0},
    {"sel_text on sel", kColour_SelText, kColour_Sel, 4.5},
    {"sel_off_text on sel_off", kColour_SelOffText, kColour_SelOff, 4.5},
    {"accent on groove", kColour_Accent, kColour_Groove, 3.0},
    {"accent_edge on window", kColour_AccentEdge, kColour_Window, 3.0},
    {"accent_edge on panel", kColour_AccentEdge, kColour_Panel, 3.0},
    {"accent_disabled on window", kColour_AccentDisabled, kColour_Window, 1.4},
    {"accent_mark on accent", kColour_AccentMark, kColour_Accent, 3.0},
    {"accent_mark on accent_hot", kColour_AccentMark, kColour_AccentHot, 3.0},
    {"accent_mark on accent_pressed", kColour_AccentMark, kColour_AccentPressed, 3.0},
    {"button_text on button", kColour_ButtonText, kColour_Button, 4.5},
    {"button_text on button_hot", kColour_ButtonText, kColour_ButtonHot, 4.5},
    {"button_text on button_pressed", kColour_ButtonText, kColour_ButtonPressed, 4.5},
    {"button_text on button_inactive", kColour_ButtonText, kColour_ButtonInactive, 4.5},
    {"default_ring on window", kColour_DefaultRing, kColour_Window, 3.0},
    {"default_ring on panel", kColour_DefaultRing, kColour_Panel, 3.0},
    {"box_edge on window", kColour_BoxEdge, kColour_Window, 3.0},
    {"box_edge on panel", kColour_BoxEdge, kColour_Panel, 3.0},
    {"sign on window", kColour_Sign, kColour_Window, 4.5},
    {"sign on panel", kColour_Sign, kColour_Panel, 4.5},
    {"sign on button", kColour_Sign, kColour_Button, 3.0},
    {"sign on track", kColour_Sign, kColour_Track, 3.0},
    {"thumb on track", kColour_Thumb, kColour_Track, 3.0},
    {"thumb_hot on track", kColour_ThumbHot, kColour_Track, 3.0},
    {"group_dark on window", kColour_GroupDark, kColour_Window, 1.3},
    {"group_light on window", kColour_GroupLight, kColour_Window, 1.1},
    {"separator on window", kColour_Separator, kColour_Window, 1.4},
    {"tip_text on tip", kColour_TipText, kColour_Tip, 4.5},
    {"tip_edge on tip", kColour_TipEdge, kColour_Tip, 3.0},
    {"tip_edge on window", kColour_TipEdge, kColour_Window, 3.0},
    {"icon_note on icon_ground", kColour_IconNote, kColour_IconGround, 3.0},
    {"icon_question on icon_ground", kColour_IconQuestion, kColour_IconGround, 3.0},
    {"icon_stop on icon_ground", kColour_IconStop, kColour_IconGround, 3.0},
    {"icon_warning on icon_ground", kColour_IconWarning, kColour_IconGround, 3.0},
};

double LuminanceOf(std::uint32_t bgr)
{
    return Testing::Luminance({double(bgr & 255), double(bgr >> 8 & 255), double(bgr >> 16 & 255)});
}

TEST(Colours, CanBeReadOnTheirGroundsInAllThemes)
{
    for (const Pair& pair : kPairs)
        for (std::size_t theme = 0; theme < kThemeCount; ++theme) {
            const double contrast =
                Testing::Contrast(LuminanceOf(ColourTable()[pair.role].colours[theme]),
                                  LuminanceOf(ColourTable()[pair.ground].colours[theme]));
            EXPECT_GE(contrast, pair.least) << pair.name << ", theme " << theme;
            EXPECT_LE(contrast, pair.most) << pair.name << ", theme " << theme;
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
