// CZoomPanel, the row under a preview that zooms it: out, a menu of the scales, in.
//
// Each zoom of the panel is a task of the dialog, so that it can be undone.
#pragma once

#include "controls/buttons/button.h"
#include "controls/popups/menu_popup.h"
#include "dialogs/plugin_dialog/preview_parts.h"
#include "layout/build/pane_builder.h"

namespace Kesto {

class CZoomPanel : public CPane, public Project::PZoomSteps {
public:
    static constexpr Point kNaturalSize{132.0, 24.0};

    explicit CZoomPanel(const Rect& frame = {}, CObjID id = {},
                        std::uint32_t options = kView_NoOptions,
                        std::uint32_t binding = kBind_Fixed);

    void SetTaskStack(CTaskStack& stack) override { fTaskStack = &stack; }

    // Shows a scale of the preview, in percent; it need not be one of the menu's.
    void ShowScale(double scale);

    void DidResize() override;
    bool HandleCommand(CCommandMessage& message) override;
    bool HandleValue(CValueMessage& message) override;

private:
    class CZoomMenu;

    void ZoomTo(double scale);
    void Arrange();

    CTaskStack* fTaskStack = nullptr;
    CButton* fOut;    // a child
    CZoomMenu* fMenu; // a child
    CButton* fIn;     // a child
};

template <>
class CPaneBuilder<CZoomPanel> : public CPaneBuilder<CPane> {
public:
    using CPaneBuilder<CPane>::CPaneBuilder;

    CView* AdjustLayout(CView* parent, LayoutOwner& owner) override;

protected:
    std::unique_ptr<CPane> MakePane(const PaneParameters& parameters) const override;
};

} // namespace Kesto
