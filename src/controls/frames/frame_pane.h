// CFramePane, a container with a frame around it. Its children keep off the frame by its margins.
#pragma once

#include "drawing/frames/border.h"
#include "layout/build/pane_builder.h"
#include "view/tree/pane.h"

namespace Kesto {

class CFramePane : public CPane {
public:
    // A kind of EFrameKind or EDividerKind.
    CFramePane(const Rect& frame, CObjID id, std::uint32_t options, std::uint32_t binding,
               std::int32_t kind = kFrameEmpty);

    const CBorder& GetBorder() const { return fBorder; }
    void SetFrameKind(std::int32_t kind);

    void DrawFrame() override;

private:
    CBorder fBorder;
};

template <>
class CPaneBuilder<CFramePane> : public CPaneBuilder<CPane> {
public:
    using CPaneBuilder<CPane>::CPaneBuilder;

    // The least size is that of the frame, and the margins that the text doesn't give are its
    // edges.
    CView* AdjustLayout(CView* parent, LayoutOwner& owner) override;
    void AppendRows(std::vector<PropertyRows>& rows) const override;

protected:
    PaneWord Options() const override;
    std::unique_ptr<CPane> MakePane(const PaneParameters& parameters) const override;
    void ReadKeys(CPane& pane, LayoutOwner& owner) const override;

    // What the frame, and whatever else a class draws at its edges, takes from each side.
    virtual Rect ReadEdges(const LayoutOwner& owner) const;
    // The key of the frame's kind, with the class's default.
    virtual const PropertyRow& StyleRow() const;

private:
    std::int32_t ReadFrameKind(const LayoutOwner& owner) const;
};

} // namespace Kesto
