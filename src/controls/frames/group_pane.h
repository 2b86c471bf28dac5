// CGroupPane, a container with a frame, and a title in the frame's upper line.
#pragma once

#include "controls/frames/frame_pane.h"
#include "drawing/tools/font_kinds.h"
#include "foundation/base/text.h"

namespace Kesto {

class CGroupPane : public CFramePane {
public:
    using CFramePane::CFramePane;

    void SetTitle(const CText& title, EFontKind font);
    const CText& GetTitle() const { return fTitle; }

    void DrawFrame() override;

private:
    CText fTitle;
    EFontKind fFont = kFont_UIBold;
};

template <>
class CPaneBuilder<CGroupPane> : public CPaneBuilder<CFramePane> {
public:
    using CPaneBuilder<CFramePane>::CPaneBuilder;
    CView* AdjustLayout(CView* parent, LayoutOwner& owner) override;
    void AppendRows(std::vector<PropertyRows>& rows) const override;

protected:
    std::unique_ptr<CPane> MakePane(const PaneParameters& parameters) const override;
    void ReadKeys(CPane& pane, LayoutOwner& owner) const override;
    Rect ReadEdges(const LayoutOwner& owner) const override;
    const PropertyRow& StyleRow() const override;
};

} // namespace Kesto
