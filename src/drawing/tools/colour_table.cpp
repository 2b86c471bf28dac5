// Light, medium light, medium dark, dark. What has to be read on what, and how well, is held by
// tests/drawing/tools/contrast_test.cpp.
#include "drawing/tools/colour_table.h"

namespace Kesto {
namespace {

constexpr SColourRow kRows[] = {
    {kColour_Window, {0xF0F0F0, 0xB8B8B8, 0x535353, 0x323232}, 15},
    {kColour_Panel, {0xF9F9F9, 0xC4C4C4, 0x5A5A5A, 0x3B3B3B}, 15},
    {kColour_Label, {0x2B2823, 0x1A1814, 0xF4F3F1, 0xE2E0DD}, 18},
    {kColour_LabelDim, {0x605C56, 0x3C3933, 0xE5E3E0, 0xB4B0AB}, 18},
    {kColour_LabelDisabled, {0xA19D97, 0x76736E, 0x9F9C98, 0x7D7974}, 17},
    {kColour_Border, {0x8A8682, 0x63605C, 0xB7B4B0, 0x8C8986}, 6},
    {kColour_BorderHot, {0x8F8012, 0x71640C, 0xC8BA4C, 0xC8BA4C}, 13},
    {kColour_BorderDisabled, {0xBDBAB6, 0x989590, 0x86837E, 0x67645F}, 17},
    {kColour_Focus, {0x71640C, 0x5A4F0A, 0xE2D676, 0xD8CB62}, 13},
    {kColour_Invalid, {0x2B39C0, 0x1C27A3, 0x8090FF, 0x5E70F0}, 13},
    {kColour_Field, {0xFFFFFF, 0xE4E4E4, 0x383838, 0x222222}, 5},
    {kColour_FieldText, {0x1E1C18, 0x161410, 0xF4F3F1, 0xE8E6E3}, 8},
    {kColour_Placeholder, {0x74706A, 0x5F5B55, 0xB8B4AF, 0x9A958F}, 17},
    {kColour_FieldDisabled, {0xEAEAEA, 0xB0B0B0, 0x4C4C4C, 0x2D2D2D}, 15},
    {kColour_FieldTextDisabled, {0x9C9892, 0x726F6A, 0x999692, 0x7A7570}, 17},
    {kColour_Stripe, {0xF7F6F4, 0xDCDBDA, 0x3E3E3E, 0x282828}, 5},
    {kColour_Sel, {0x8F8012, 0x8F8012, 0xAB9A1B, 0xAB9A1B}, 13},
    {kColour_SelText, {0xFFFFFF, 0xFFFFFF, 0x14120A, 0x14120A}, 14},
    {kColour_SelOff, {0xD5D2CD, 0xC3C0BB, 0x605D58, 0x4D4A45}, 15},
    {kColour_SelOffText, {0x2B2823, 0x1A1814, 0xF4F3F1, 0xE8E6E3}, 18},
    {kColour_Accent, {0x8F8012, 0x8F8012, 0xAB9A1B, 0xAB9A1B}, 13},
    {kColour_AccentEdge, {0x71640C, 0x71640C, 0xC8BA4C, 0xC8BA4C}, 13},
    {kColour_AccentHot, {0x9F9216, 0x9F9216, 0xB09F1E, 0xB09F1E}, 13},
    {kColour_AccentPressed, {0x65590A, 0x65590A, 0x65590A, 0x65590A}, 13},
    {kColour_AccentDisabled, {0xBCB9B4, 0x9A9792, 0x76736E, 0x5C5955}, 17},
    {kColour_AccentMark, {0xFFFFFF, 0xFFFFFF, 0xFFFFFF, 0xFFFFFF}, 14},
    {kColour_Button, {0xFBFBFB, 0xEAE9E8, 0x6E6B67, 0x5C5955}, 15},
    {kColour_ButtonHot, {0xFFFFFF, 0xF7F7F6, 0x76736F, 0x66635F}, 15},
    {kColour_ButtonPressed, {0xCECBC6, 0xA4A09A, 0x43413F, 0x292725}, 16},
    {kColour_ButtonDisabled, {0xF0F0F0, 0xB8B8B8, 0x535353, 0x323232}, 15},
    {kColour_ButtonInactive, {0xF4F4F4, 0xC8C7C6, 0x605E5B, 0x44423F}, 15},
    {kColour_ButtonText, {0x2B2823, 0x1A1814, 0xFFFFFF, 0xF4F3F1}, 18},
    {kColour_DefaultRing, {0x8F8012, 0x71640C, 0xC8BA4C, 0xAB9A1B}, 13},
    {kColour_Box, {0xFBFBFB, 0xFBFBFB, 0x75716C, 0x75716C}, 5},
    {kColour_BoxEdge, {0x63605C, 0x63605C, 0xB7B4B0, 0xB7B4B0}, 8},
    {kColour_Sign, {0x5B5650, 0x403C36, 0xDEDCD8, 0xDAD7D3}, 18},
    {kColour_Groove, {0xDDDCDA, 0xD5D4D2, 0x3A3A3A, 0x1F1F1F}, 15},
    {kColour_Track, {0xE5E4E3, 0xC8C7C6, 0x444444, 0x262626}, 0},
    {kColour_Thumb, {0x83807C, 0x6B6864, 0xA5A29E, 0x84817D}, 18},
    {kColour_ThumbHot, {0x696662, 0x53504C, 0xBFBCB8, 0xA3A09C}, 13},
    {kColour_TabFront, {0xF9F9F9, 0xC4C4C4, 0x5A5A5A, 0x3B3B3B}, 15},
    {kColour_TabBack, {0xE4E3E2, 0xABABAB, 0x474747, 0x282828}, 15},
    {kColour_GroupDark, {0xC5C3C0, 0x918F8C, 0x3C3C3C, 0x1B1B1B}, 16},
    {kColour_GroupLight, {0xFFFFFF, 0xD2D2D2, 0x707070, 0x4E4E4E}, 20},
    {kColour_Separator, {0xC9C7C4, 0x979592, 0x7A7A7A, 0x565656}, 16},
    {kColour_Tip, {0xFFFFFF, 0xEAEAE9, 0x2C2C2C, 0x1E1E1E}, 24},
    {kColour_TipText, {0x2B2823, 0x1A1814, 0xF4F3F1, 0xE2E0DD}, 23},
    {kColour_TipEdge, {0x8A8682, 0x63605C, 0xB7B4B0, 0x8C8986}, 6},
    {kColour_IconGround, {0xFFFFFF, 0xF2F2F2, 0x262626, 0x262626}, 5},
    {kColour_IconNote, {0x9C8D1D, 0x9C8D1D, 0x9C8D1D, 0x9C8D1D}, 8},
    {kColour_IconQuestion, {0xBB7564, 0xBB7564, 0xBB7564, 0xBB7564}, 8},
    {kColour_IconStop, {0x424FD5, 0x424FD5, 0x424FD5, 0x424FD5}, 8},
    {kColour_IconWarning, {0x0078B8, 0x0078B8, 0x27B7F7, 0x27B7F7}, 8},
};

constexpr bool StandAtTheirNumbers()
{
    for (std::size_t row = 0; row < std::size(kRows); ++row)
        if (kRows[row].role != row)
            return false;
    return std::size(kRows) == kColourRoleCount;
}
static_assert(StandAtTheirNumbers());

} // namespace

std::span<const SColourRow> ColourTable()
{
    return kRows;
}

} // namespace Kesto
