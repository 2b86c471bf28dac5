// CZoomPanel, the row under a preview that zooms it: out, the scale in percent, in.
//
// Each zoom of the panel is a task of the dialog, so that it can be undone.
#pragma once

#include "controls/buttons/button.h"
#include "controls/text/static_text.h"
#include "dialogs/plugin_dialog/preview_parts.h"
#include "layout/build/pane_builder.h"

namespace Kesto {

class CZoomPanel : public CPane, public Project::PZoomSteps {
public:
    static constexpr Point kNaturalSize{104.0, 24.0};

    explicit CZoomPanel(const Rect& frame = {}, CObjID id = {},
                        std::uint32_t options = kView_NoOptions,
                        std::uint32_t binding = kBind_Fixed);

    void SetTaskStack(CTaskStack& stack) override { fTaskStack = &stack; }

    // Shows a scale of the preview, in percent.
    void ShowScale(double scale);

    void DidResize() override;
    bool HandleCommand(CCommandMessage& message) override;

private:
    void Step(bool in);
    void Arrange();

    CTaskStack* fTaskStack = nullptr;
    CButton* fOut;      // a child
    CStaticText* fText; // a child
    CButton* fIn;       // a child
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
