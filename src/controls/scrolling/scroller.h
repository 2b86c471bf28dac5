// CScroller, a frame with scroll bars around a pane that they scroll.
//
// The pane is its first child that isn't a part of the scroller; it fills what bars and frame
// leave. Beside each bar there can be gaps, which children are put into by "frame_interior".
#pragma once

#include "controls/scrolling/scroll_bar.h"
#include "controls/scrolling/scroll_pane.h"
#include "layout/build/interiors.h"
#include "layout/build/property_reader.h"
#include "layout/vocabulary/slider_options.h"

#include <array>

namespace Kesto {

// Units kept free at the ends of the bars: left and right of the horizontal one, above and below
// the vertical one.
using SScrollerGaps = Rect;

class CScroller : public CPane, public CInteriors, private CScrollListener {
public:
    // Without bars until it is told otherwise.
    explicit CScroller(const Rect& frame = {}, CObjID id = {},
                       std::uint32_t options = kView_NoOptions,
                       std::uint32_t binding = kBind_Fixed);
    ~CScroller() override;

    // Bits of EScrollerAttributes.
    void SetAttributes(std::uint32_t attributes, const SScrollerGaps& gaps = {});
    std::uint32_t GetAttributes() const { return fAttributes; }
    // What a scroller of these attributes takes from each side of its pane.
    static Rect EdgesOf(std::uint32_t attributes);

    // Null without such a bar, and before a pane has come.
    CScrollBar* GetHorizontalBar() const { return fBars[0]; }
    CScrollBar* GetVerticalBar() const { return fBars[1]; }
    CScrollPane* GetScrollPane() const;

    CView& Interior(std::int32_t number) override;

    void InsertChild(std::size_t index, std::unique_ptr<CPane> child) override;
    std::unique_ptr<CPane> RemoveChild(CPane* child) override;
    void DidResize() override;
    bool HandleOther(CMessage& message) override;
    bool MouseWheel(const CMouseEvent& event) override;

private:
    void ScrollPaneChanged(CScrollPane& pane) override;
    void DisposeParts();
    CScrollBar* MakeBar(CObjID id, EControlOrientation orientation);
    bool IsPart(const CPane& child) const;
    bool Has(std::uint32_t attribute) const { return (fAttributes & attribute) != 0; }
    void Arrange();
    void PlaceParts(const Rect& inside, bool showX, bool showY);
    void PlaceGaps(const Rect& xBar, const Rect& yBar);
    void ShowValues(CScrollPane& pane);

    std::uint32_t fAttributes = kScroller_NoControls;
    SScrollerGaps fGaps;
    std::array<CScrollBar*, 2> fBars{}; // children; x and y
    CPane* fSizeBox = nullptr;          // a child
    std::array<CPane*, 4> fGapPanes{};  // children; left, top, right, bottom
    bool fArranging = false;
};

template <>
class CPaneBuilder<CScroller> : public CPaneBuilder<CPane> {
public:
    using CPaneBuilder<CPane>::CPaneBuilder;

    // Margins that the text doesn't give keep children off bars and frame; a child fills the rest.
    CView* AdjustLayout(CView* parent, LayoutOwner& owner) override;
    void AppendRows(std::vector<PropertyRows>& rows) const override;

protected:
    // Where the layout doesn't give them.
    virtual std::uint32_t DefaultAttributes() const { return kScroller_AllControls; }
    std::unique_ptr<CPane> MakePane(const PaneParameters& parameters) const override;
    void ReadKeys(CPane& pane, LayoutOwner& owner) const override;

private:
    std::uint32_t ReadAttributes(const CPropertyReader& reader) const;
};

} // namespace Kesto
