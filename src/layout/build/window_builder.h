// The builders of windows. CWindowBuilder<T> makes a T of the plan that the text's keys come to.
#pragma once

#include "layout/build/view_builder.h"
#include "view/window/window_kinds.h"

#include <concepts>
#include <memory>

namespace Kesto {

class CWindowBuilderBase : public CViewBuilder<CView> {
public:
    using CViewBuilder<CView>::CViewBuilder;

    bool IsForWindows() const override { return true; }

    // The owner's existing view, or else a new window without a native one, which the owner keeps.
    CView* AdjustLayout(CView* parent, LayoutOwner& owner) override;

    // Gives the window the size that the layout came to, which it can't be made smaller than, and
    // its title.
    CView* ConstructView(CView* window, LayoutOwner& owner) override;

    void AppendRows(std::vector<PropertyRows>& rows) const override;

protected:
    virtual std::unique_ptr<CWindow> MakeWindow(const CWindowPlan& plan) const = 0;
};

// Dialogs that a text describes are modal.
template <class Window>
class CWindowBuilder : public CWindowBuilderBase {
public:
    using CWindowBuilderBase::CWindowBuilderBase;

protected:
    std::unique_ptr<CWindow> MakeWindow(const CWindowPlan& plan) const override
    {
        auto window = std::make_unique<Window>(plan);
        if constexpr (std::derived_from<Window, CDialog>)
            window->SetModal(true);
        return window;
    }
};

} // namespace Kesto
