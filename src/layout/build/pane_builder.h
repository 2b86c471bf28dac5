// The builders of panes.
//
// CPaneBuilder<T> is a class of its own for each pane class T, derived from the builder of T's base
// and written beside T. It says how to make a T, which bits of its options and binding are fixed,
// and which keys T reads.
#pragma once

#include "foundation/base/geometry.h"
#include "layout/build/view_builder.h"
#include "view/messages/object_id.h"

#include <cstdint>
#include <memory>

namespace Kesto {

class CPane;

// What every pane is made of.
struct PaneParameters {
    Rect frame; // in the parent
    CObjID id;
    std::uint32_t options = 0; // kView_
    std::uint32_t binding = 0; // kBind_
};

// The words that a class gives its panes. What is required or forbidden holds whatever the text
// says.
struct PaneWord {
    std::uint32_t fallback = 0;
    std::uint32_t required = 0;
    std::uint32_t forbidden = 0;

    std::uint32_t Fixed(std::uint32_t word) const { return (word | required) & ~forbidden; }
};

class CPaneBuilderBase : public CViewBuilder<CView> {
public:
    using CViewBuilder<CView>::CViewBuilder;

    bool IsForWindows() const override { return false; }

    // Makes the pane, has its class read its keys, and puts it into the parent.
    CView* ConstructView(CView* parent, LayoutOwner& owner) override;

protected:
    virtual PaneWord Options() const { return {}; }
    virtual PaneWord Binding() const { return {}; }
    virtual std::unique_ptr<CPane> MakePane(const PaneParameters& parameters) const = 0;

    // Called before the pane has a parent. A class reads its own keys and calls its base first.
    virtual void ReadKeys(CPane&, LayoutOwner&) const {}

private:
    PaneParameters ReadParameters(const LayoutOwner& owner) const;
    std::uint32_t ReadOptions(const LayoutOwner& owner) const;
};

template <class Pane>
class CPaneBuilder;

template <>
class CPaneBuilder<CPane> : public CPaneBuilderBase {
public:
    using CPaneBuilderBase::CPaneBuilderBase;

    // Adds the cushions to a width and height that are given.
    CView* AdjustLayout(CView* parent, LayoutOwner& owner) override;
    void AppendRows(std::vector<PropertyRows>& rows) const override;

protected:
    std::unique_ptr<CPane> MakePane(const PaneParameters& parameters) const override;
};

} // namespace Kesto
