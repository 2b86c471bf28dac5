#include "layout/build/common_keys.h"

#include "layout/build/property_reader.h"
#include "view/tree/view.h"

namespace Kesto {

namespace {

constexpr PropertyRow kTipPlacement{VexName("tip_placement"), kTip_PlaceDefault,
                                    "where its tip opens"};

// A text for every state of the view, or one for each; a name ending in _win comes before the
// other.
struct TipNames {
    VexName everywhere;
    VexName here;
};
constexpr TipNames kTip{VexName("view_tip"), VexName("view_tip_win")};
constexpr TipNames kTipEnabled{VexName("view_tip_enabled"), VexName("view_tip_enabled_win")};
constexpr TipNames kTipDisabled{VexName("view_tip_disabled"), VexName("view_tip_disabled_win")};
constexpr TipNames kHelp{VexName("view_help"), VexName("view_help_win")};
constexpr TipNames kHelpEnabled{VexName("view_help_enabled"), VexName("view_help_enabled_win")};
constexpr TipNames kHelpDisabled{VexName("view_help_disabled"), VexName("view_help_disabled_win")};

constexpr PropertyRow kTipRows[] = {
    {kTip.everywhere, 0, "the text that shows when the mouse rests on it"},
    {kTip.here, 0, "comes before view_tip; likewise the other _win keys"},
    {kTipEnabled.everywhere, 0, "while it can be used"},
    {kTipEnabled.here, 0, ""},
    {kTipDisabled.everywhere, 0, "while it can't be used"},
    {kTipDisabled.here, 0, ""},
    {kHelp.everywhere, 0, "the same, where no view_tip key gives a text"},
    {kHelp.here, 0, ""},
    {kHelpEnabled.everywhere, 0, ""},
    {kHelpEnabled.here, 0, ""},
    {kHelpDisabled.everywhere, 0, ""},
    {kHelpDisabled.here, 0, ""},
    kTipPlacement,
};

// The first that is given of a state's names.
bool TryTip(const CPropertyReader& reader, const TipNames& tips, const TipNames& help, CText& tip)
{
    for (const TipNames& names : {tips, kTip, help, kHelp})
        if (reader.TryLabel(names.here, tip) || reader.TryLabel(names.everywhere, tip))
            return true;
    return false;
}

} // namespace

PropertyRows TipRows()
{
    return kTipRows;
}

void ReadTips(CView& view, const CPropertyReader& reader)
{
    CText tip;
    if (TryTip(reader, kTipEnabled, kHelpEnabled, tip))
        view.SetTip(tip, true);
    if (TryTip(reader, kTipDisabled, kHelpDisabled, tip))
        view.SetTip(tip, false);
    view.SetTipPlacement(static_cast<ETipPlacement>(reader.Integer(kTipPlacement)));
}

} // namespace Kesto
