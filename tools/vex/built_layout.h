// A layout text as views, in a window that has no native one.
#pragma once

#include "layout/build/layout_owner.h"
#include "vex/source_text.h"
#include "view/window/window.h"

#include <optional>
#include <string>
#include <vector>

namespace Vex {

// A view that the text asked for, of a class that is known.
struct BuiltView {
    std::string className;
    Kesto::CView* view;
    Kesto::Rect margins;
};

struct BuildOptions {
    std::optional<Kesto::Point>
        size; // of the contents, after they were built at their natural size
    double scale = 1.0;
    bool opens = false; // its window is to be started, and shown on the display if there is one
};

class CBuiltLayout {
public:
    // Throws std::runtime_error in one line, with the file's name, for a text that is refused or
    // has no outermost view of a class that is known.
    CBuiltLayout(const CSourceText& source, const BuildOptions& options);

    // In the order in which they were built; the outermost one first.
    const std::vector<BuiltView>& Views() const { return fViews; }

    // What the views are drawn in; the outermost view, or a bare window around it.
    Kesto::CWindow& Root() const { return *fRoot; }
    const BuiltView& Outermost() const { return fViews.front(); }

private:
    void Load(const CSourceText& source);

    Kesto::CWindow fBare; // for an outermost view that is a pane
    Kesto::LayoutOwner fOwner;
    std::vector<BuiltView> fViews;
    Kesto::CWindow* fRoot;
};

} // namespace Vex
