// CScreenPort, a port for something on the screen: it knows where its top left corner lies there.
#pragma once

#include "drawing/ports/system_port.h"

namespace Kesto {

class CScreenPort : public CSystemPort {
public:
    Point ClientToScreen(const Point& units) const override;

    // In pixels of the screen; whoever places the thing keeps it true.
    void SetScreenPosition(const PixelPoint& corner) { fScreenPosition = corner; }
    PixelPoint GetScreenPosition() const { return fScreenPosition; }

protected:
    CScreenPort() = default;

private:
    PixelPoint fScreenPosition;
};

} // namespace Kesto
