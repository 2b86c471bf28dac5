// The builders of windows.
#pragma once

#include "foundation/base/geometry.h"
#include "foundation/base/text.h"
#include "layout/build/view_builder.h"

#include <memory>

namespace Kesto {

class CWindowBuilderBase : public CViewBuilder<CView> {
public:
    using CViewBuilder<CView>::CViewBuilder;

    bool IsForWindows() const override { return true; }

    // The owner's existing view, or else a new window, which the owner keeps.
    CView* AdjustLayout(CView* parent, LayoutOwner& owner) override;

    // Gives the window the size that the layout came to, and its title.
    CView* ConstructView(CView* window, LayoutOwner& owner) override;

    void AppendRows(std::vector<PropertyRows>& rows) const override;

protected:
    virtual std::unique_ptr<CView> MakeWindow(CView* parent, LayoutOwner& owner) const = 0;
    virtual void SetContentSize(CView& window, const Point& size) const = 0;
    virtual void SetTitle(CView& window, const CText& title) const = 0;
};

} // namespace Kesto
