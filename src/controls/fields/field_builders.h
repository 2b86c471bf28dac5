// The builders of fields.
#pragma once

#include "controls/fields/edit_number.h"
#include "layout/build/pane_builder.h"

namespace Kesto {

template <>
class CPaneBuilder<CEditString> : public CPaneBuilder<CSystemControl> {
public:
    using CPaneBuilder<CSystemControl>::CPaneBuilder;

    // The natural size is that of the digits or characters, and the lines, that the text asks for.
    CView* AdjustLayout(CView* parent, LayoutOwner& owner) override;
    void AppendRows(std::vector<PropertyRows>& rows) const override;

protected:
    PaneWord Options() const override { return {.required = kView_TabStop}; }
    std::unique_ptr<CPane> MakePane(const PaneParameters& parameters) const override;
    void ReadKeys(CPane& pane, LayoutOwner& owner) const override;

    // Of the view without cushions.
    virtual Point NaturalSize(const LayoutOwner& owner) const;

    // Digits that a field shows unless the text says otherwise; 0 for none.
    virtual std::int32_t DefaultDigits() const { return 0; }
};

template <>
class CPaneBuilder<CEditNumber> : public CPaneBuilder<CEditString> {
public:
    using CPaneBuilder<CEditString>::CPaneBuilder;
    void AppendRows(std::vector<PropertyRows>& rows) const override;

protected:
    std::unique_ptr<CPane> MakePane(const PaneParameters& parameters) const override;
    void ReadKeys(CPane& pane, LayoutOwner& owner) const override;
    std::int32_t DefaultDigits() const override { return 6; }
};

} // namespace Kesto
