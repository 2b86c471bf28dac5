#include "layout/build/offscreen_window.h"

#include "drawing/tools/draw_tools.h"
#include "layout/build/layout_owner.h"

namespace Kesto {

namespace {

constexpr PropertyRow kId{VexName("view_id"), 0, "the name that messages and lookups know it by"};
constexpr PropertyRow kRows[] = {kId};

} // namespace

void COffscreenWindow::DrawBackground()
{
    GetPort()->Paint(GetBounds(), ToolColour(kColour_Window));
}

void COffscreenWindowBuilder::AppendRows(std::vector<PropertyRows>& rows) const
{
    CWindowBuilderBase::AppendRows(rows);
    rows.push_back(kRows);
}

std::unique_ptr<CView> COffscreenWindowBuilder::MakeWindow(CView*, LayoutOwner& owner) const
{
    return std::make_unique<COffscreenWindow>(owner.Properties().Id(kId));
}

void COffscreenWindowBuilder::SetContentSize(CView& window, const Point& size) const
{
    if (auto* const context = dynamic_cast<CContext*>(&window))
        context->SetContextSize(size);
    else // an existing view that is none
        window.SetSize(size.x, size.y);
}

void COffscreenWindowBuilder::SetTitle(CView& window, const CText& title) const
{
    if (auto* const offscreen = dynamic_cast<COffscreenWindow*>(&window))
        offscreen->SetTitle(title);
}

} // namespace Kesto
