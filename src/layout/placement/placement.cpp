#include "layout/placement/placement.h"

#include "layout/placement/generator.h"
#include "layout/placement/view_proxy.h"

namespace Kesto {

namespace {

CView* Realize(CViewProxy& proxy, CGenerator& generator, CView* parent)
{
    CExpressionScope& layout = proxy.fProperties;
    layout.AddVariable(LayoutKey::kTop, proxy.fTop);
    layout.AddVariable(LayoutKey::kLeft, proxy.fLeft);
    layout.AddVariable(LayoutKey::kWidth, proxy.fWidth);
    layout.AddVariable(LayoutKey::kHeight, proxy.fHeight);
    layout.AddVariable(LayoutKey::kMaxHeight, proxy.fMaxHeight);
    layout.AddVariable(LayoutKey::kTopOutset, proxy.fTopOutset);
    layout.AddVariable(LayoutKey::kLeftOutset, proxy.fLeftOutset);
    layout.AddVariable(LayoutKey::kBottomOutset, proxy.fBottomOutset);
    layout.AddVariable(LayoutKey::kRightOutset, proxy.fRightOutset);
    layout.AddVariable(LayoutKey::kLabelWidth, proxy.fLabelWidth);
    CView* const view = generator.Build(proxy.ViewName(), &layout, parent);
    for (const auto& child : proxy.fChildren)
        Realize(*child, generator, view);
    return view;
}

} // namespace

CView* SolvePlacement(CViewProxy& root, CGenerator& generator)
{
    return Realize(root, generator, nullptr);
}

} // namespace Kesto
