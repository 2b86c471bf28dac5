#include "plugin/view_info/view_description.h"

#include "controls/base/placeholder_pane.h"
#include "controls/frames/group_pane.h"
#include "controls/text/static_text.h"
#include "view/tree/pane.h"

namespace Kesto {

namespace {

// The text on a view of a class that has one.
CText TextOn(const CView& view)
{
    if (const auto* const label = dynamic_cast<const CStaticText*>(&view))
        return label->GetText();
    if (const auto* const group = dynamic_cast<const CGroupPane*>(&view))
        return group->GetTitle();
    if (const auto* const placeholder = dynamic_cast<const CPlaceholderPane*>(&view))
        return placeholder->GetLabel();
    return {};
}

// Every view has these. Only windows are ever minimized or maximized.
void PutState(const CView& view, CDescriptionRecord& record)
{
    record.PutText("Nm  ", ReadableName(view));
    record.PutRect("globalBounds", view.GetGlobalRect());
    record.PutFlag("Vsbl", view.IsVisible());
    record.PutFlag("enab", view.IsUsable());
    record.PutFlag("minimized", false);
    record.PutFlag("maximized", false);
    record.PutFlag("isCapable", view.IsVisible() && view.IsUsable() && view.WantsTarget());
    record.PutFlag("isTarget", view.IsTarget());
    record.PutFlag("Fcs ", view.IsBullseye());
}

} // namespace

CText ReadableName(const CView& view)
{
    const CText text = TextOn(view);
    if (!text.IsEmpty() || view.GetID().IsNone())
        return text;
    return CText(view.GetID().Name());
}

void DescribeView(const CView& view, CDescriptionRecord& record)
{
    record.BeginView(view);
    PutState(view, record);
    std::vector<std::unique_ptr<CDescriptionRecord>> subViews;
    for (std::size_t i = 0; i < view.CountChildren(); ++i) {
        subViews.push_back(record.MakeRecord());
        DescribeView(*view.GetChild(i), *subViews.back());
    }
    if (!subViews.empty())
        record.PutRecords("subViews", std::move(subViews));
}

} // namespace Kesto
