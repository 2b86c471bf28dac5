// COffscreenWindow, a root without a native window: what a layout's window is built as where nothing
// is to be shown on a screen, and until the window classes are there.
#pragma once

#include "foundation/base/text.h"
#include "layout/build/window_builder.h"
#include "view/tree/context.h"

namespace Kesto {

class COffscreenWindow : public CContext {
public:
    explicit COffscreenWindow(CObjID id = {}) : CContext({}, id) {}

    void SetTitle(const CText& title) { fTitle = title; }
    const CText& GetTitle() const { return fTitle; }

    void DrawBackground() override; // of the theme

private:
    CText fTitle;
};

class COffscreenWindowBuilder : public CWindowBuilderBase {
public:
    using CWindowBuilderBase::CWindowBuilderBase;
    void AppendRows(std::vector<PropertyRows>& rows) const override;

protected:
    std::unique_ptr<CView> MakeWindow(CView* parent, LayoutOwner& owner) const override;
    void SetContentSize(CView& window, const Point& size) const override;
    void SetTitle(CView& window, const CText& title) const override;
};

} // namespace Kesto
