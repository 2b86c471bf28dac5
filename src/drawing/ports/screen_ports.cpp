// The ports of things on the screen.
#include "drawing/ports/screen_port.h"

namespace Kesto {

Point CScreenPort::ClientToScreen(const Point& units) const
{
    const Point inClient = CSystemPort::ClientToScreen(units);
    return {fScreenPosition.x + inClient.x, fScreenPosition.y + inClient.y};
}

} // namespace Kesto
