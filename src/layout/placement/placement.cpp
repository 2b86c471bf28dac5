#include "layout/placement/placement.h"

#include "layout/placement/generator.h"
#include "layout/placement/measure.h"
#include "layout/placement/solve.h"
#include "layout/placement/view_proxy.h"

#include <vector>

namespace Kesto {

namespace {

// All proxies, each after its parent.
std::vector<CViewProxy*> FromTheRoot(CViewProxy& root)
{
    std::vector<CViewProxy*> order{&root};
    for (std::size_t i = 0; i < order.size(); ++i)
        for (const auto& child : order[i]->fChildren)
            order.push_back(child.get());
    return order;
}

void WriteNumbers(CViewProxy& proxy)
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
}

} // namespace

void SolvePlacement(CViewProxy& root)
{
    const std::vector<CViewProxy*> order = FromTheRoot(root);
    for (auto proxy = order.rbegin(); proxy != order.rend(); ++proxy)
        MeasureByChildren(**proxy);
    for (CViewProxy* const proxy : order)
        PlaceChildren(*proxy);
}

CView* RealizeViews(CViewProxy& root, CGenerator& generator)
{
    struct Due {
        CViewProxy* proxy;
        CView* parent;
    };
    CView* outermost = nullptr;
    // The next one is the last, so children are pushed from the last to the first.
    std::vector<Due> due{{&root, nullptr}};
    while (!due.empty()) {
        const Due next = due.back();
        due.pop_back();
        WriteNumbers(*next.proxy);
        CView* const view =
            generator.Build(next.proxy->ViewName(), &next.proxy->fProperties, next.parent);
        if (next.proxy == &root)
            outermost = view;
        const ViewProxyList& children = next.proxy->fChildren;
        for (auto child = children.rbegin(); child != children.rend(); ++child)
            due.push_back({child->get(), view});
    }
    return outermost;
}

} // namespace Kesto
