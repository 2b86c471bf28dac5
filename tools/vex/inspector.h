// The inspector of an author's window: outlines a view and tells what it is, beside it.
#pragma once

#include "platform/windows/tip_window.h"
#include "vex/built_layout.h"

#include <string>

namespace Vex {

class CInspector {
public:
    bool IsOn() const { return fIsOn; }

    // Turns it on or off; the window is painted anew.
    void Toggle(const CBuiltLayout& layout);

    // Shows the view under the mouse if that isn't shown yet. To be called again and again.
    void Follow(const CBuiltLayout& layout);

    // Forgets what it shows, which is about to go.
    void Forget();

private:
    void Outline(Kesto::CWindow& window, const Kesto::CView& view) const;

    bool fIsOn = false;
    std::string fShown; // the text about the view that is outlined
    Platform::TipWindow fTip;
};

// What a person wants to know of a view: class, id, place and size in units and pixels, state.
std::string WordsOf(const CBuiltLayout& layout, const Kesto::CView& view);

} // namespace Vex
