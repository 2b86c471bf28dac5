// What makes the views of one class for the generator.
//
// A builder is one object for each class, registered under the class's name as long as it lives.
// Those of panes chain upward as their classes do: each does its part and calls its base.
#pragma once

#include "layout/build/property_row.h"

#include <string>
#include <string_view>
#include <vector>

namespace Kesto {

class CView;
class LayoutOwner;

class CViewBuilderBase {
public:
    explicit CViewBuilderBase(std::string_view name);
    CViewBuilderBase(const CViewBuilderBase&) = delete;
    CViewBuilderBase& operator=(const CViewBuilderBase&) = delete;
    virtual ~CViewBuilderBase();

    // Called before a text is read. Adds names to the language by owner.DefineVariable.
    virtual void DefineConstants(LayoutOwner&) {}

    // Called first for a window, and after AdjustLayout of a pane.
    virtual void BeginBuild(LayoutOwner&) {}

    // Called when the properties have been read. A pane may state its natural size in the owner's
    // layout record; `parent` is the window, and null is returned. A window is made here.
    virtual CView* AdjustLayout(CView* parent, LayoutOwner& owner) = 0;

    // Called when the view has its place. Makes the pane in `parent`, or completes the window that
    // `parent` is. Returns the view.
    virtual CView* ConstructView(CView* parent, LayoutOwner& owner) = 0;

    virtual bool IsForWindows() const = 0;

    // Appends the rows of the keys that views of the class read, those of its bases first.
    virtual void AppendRows(std::vector<PropertyRows>& rows) const = 0;

    std::string_view Name() const { return fName; }

private:
    std::string fName;
};

// What all views have in common.
template <class View>
class CViewBuilder;

template <>
class CViewBuilder<CView> : public CViewBuilderBase {
public:
    using CViewBuilderBase::CViewBuilderBase;
    void AppendRows(std::vector<PropertyRows>& rows) const override;
};

// The keys that place a view, read by the solver and not by classes.
PropertyRows PlacementRows();

} // namespace Kesto
