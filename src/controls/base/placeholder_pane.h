// CPlaceholderPane, what takes the place of a view of a class that is still to come: a box with its
// label, or the name of the class.
#pragma once

#include "foundation/base/text.h"
#include "layout/build/pane_builder.h"
#include "view/tree/pane.h"

namespace Kesto {

class CPlaceholderPane : public CPane {
public:
    using CPane::CPane;

    void SetLabel(const CText& label) { fLabel = label; }
    const CText& GetLabel() const { return fLabel; }

    void DrawInContext(const CPaintEvent& event) override;

private:
    CText fLabel;
};

template <>
class CPaneBuilder<CPlaceholderPane> : public CPaneBuilder<CPane> {
public:
    CPaneBuilder(std::string_view name, const Point& size) : CPaneBuilder<CPane>(name), fSize(size)
    {
    }

    CView* AdjustLayout(CView* parent, LayoutOwner& owner) override;
    void AppendRows(std::vector<PropertyRows>& rows) const override;

protected:
    std::unique_ptr<CPane> MakePane(const PaneParameters& parameters) const override;
    void ReadKeys(CPane& pane, LayoutOwner& owner) const override;

private:
    CText ReadLabel(const LayoutOwner& owner) const;

    Point fSize;
};

} // namespace Kesto
