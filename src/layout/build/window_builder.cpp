#include "layout/build/window_builder.h"

#include "layout/build/layout_owner.h"
#include "view/tree/view.h"

#include <algorithm>

namespace Kesto {

namespace {

constexpr PropertyRow kTitle{VexName("window_title"), 0, "what its title bar says"};
constexpr PropertyRow kWindowRows[] = {kTitle};

} // namespace

CView* CWindowBuilderBase::AdjustLayout(CView* parent, LayoutOwner& owner)
{
    if (owner.fExistingView != nullptr)
        return owner.fExistingView;
    owner.fWindow = MakeWindow(parent, owner);
    return owner.fWindow.get();
}

CView* CWindowBuilderBase::ConstructView(CView* window, LayoutOwner& owner)
{
    const ViewLayoutRecord& record = owner.fLayoutRecord;
    SetContentSize(*window, {std::max(record.width, 0.0), std::max(record.height, 0.0)});
    CText title;
    if (owner.Properties().TryLabel(kTitle.key, title))
        SetTitle(*window, title);
    return window;
}

void CWindowBuilderBase::AppendRows(std::vector<PropertyRows>& rows) const
{
    CViewBuilder<CView>::AppendRows(rows);
    rows.push_back(kWindowRows);
}

} // namespace Kesto
