// CSizeBox, the corner by which a window is made larger and smaller. It is the triangle below the
// diagonal: what a window's contents have in the square's other half stays whole.
#pragma once

#include "view/tree/pane.h"

namespace Kesto {

class CSizeBox : public CPane {
public:
    static constexpr double kSide = 16.0; // units

    // At the bottom right corner of a window of that size. Live: the window follows the mouse; else
    // it takes its size when the button is released.
    CSizeBox(const Point& windowSize, bool isLive);

    CBRVRegion GetClipRegion() const override;
    void DrawInContext(const CPaintEvent& event) override;
    void PrimaryClick(const CMouseEvent& event) override;

    bool IsLive() const { return fIsLive; }

private:
    bool fIsLive;
};

} // namespace Kesto
