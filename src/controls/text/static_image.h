// CStaticImage, a picture of the icon store.
#pragma once

#include "images/pictures/dual_picture.h"
#include "layout/build/pane_builder.h"
#include "view/tree/pane.h"

namespace Kesto {

class CStaticImage : public CPane {
public:
    using CPane::CPane;

    // Of a name in the store; an unknown one shows nothing. Throws what LoadPicture throws.
    void SetPicture(const CText& name);
    void SetOffset(const Point& offset) { fOffset = offset; }

    void DrawInContext(const CPaintEvent& event) override;

private:
    CDualPicture fPicture;
    Point fOffset;
};

template <>
class CPaneBuilder<CStaticImage> : public CPaneBuilder<CPane> {
public:
    using CPaneBuilder<CPane>::CPaneBuilder;

    // The natural size is that of the picture.
    CView* AdjustLayout(CView* parent, LayoutOwner& owner) override;
    void AppendRows(std::vector<PropertyRows>& rows) const override;

protected:
    std::unique_ptr<CPane> MakePane(const PaneParameters& parameters) const override;
    void ReadKeys(CPane& pane, LayoutOwner& owner) const override;
};

} // namespace Kesto
