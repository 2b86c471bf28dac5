#include "plugin/view_info/view_description.h"

#include "controls/base/placeholder_pane.h"
#include "controls/buttons/custom_button.h"
#include "controls/frames/group_pane.h"
#include "controls/text/static_text.h"
#include "plugin/view_info/control_description.h"
#include "view/tree/pane.h"
#include "view/window/window.h"

namespace Kesto {

namespace {

// The text on a view of a class that has one.
CText TextOn(const CView& view)
{
    if (const auto* const window = dynamic_cast<const CWindow*>(&view))
        return window->GetTitle();
    if (const auto* const button = dynamic_cast<const CCustomButton*>(&view))
        return button->GetLabel();
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
    const auto* const window = dynamic_cast<const CWindow*>(&view);
    const Platform::NativeWindow native = window != nullptr ? window->NativeHandle() : nullptr;
    record.PutText("Nm  ", ReadableName(view));
    record.PutRect("globalBounds", view.GetGlobalRect());
    record.PutFlag("Vsbl", view.IsVisible());
    record.PutFlag("enab", view.IsUsable());
    record.PutFlag("minimized", Platform::IsMinimized(native));
    record.PutFlag("maximized", Platform::IsMaximized(native));
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
    DescribeControl(view, record);
    std::vector<std::unique_ptr<CDescriptionRecord>> subViews;
    for (std::size_t i = 0; i < view.CountChildren(); ++i) {
        subViews.push_back(record.MakeRecord());
        DescribeView(*view.GetChild(i), *subViews.back());
    }
    if (!subViews.empty())
        record.PutRecords("subViews", std::move(subViews));
}

void DescribeWindow(const CWindow& window, const CText& owner, CDescriptionRecord& record)
{
    record.PutText("filter", owner);
    record.PutRect("bounds", window.GetWindowFrame());
    DescribeView(window, record);
}

} // namespace Kesto
