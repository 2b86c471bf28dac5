// CDesktopPort, the port of the whole desktop, for measuring text where there is no window. Nothing
// that is drawn on it shows.
#pragma once

#include "drawing/ports/screen_port.h"

namespace Kesto {

class CDesktopPort : public CScreenPort {
public:
    explicit CDesktopPort(double scale = 1.0) { SetScaleFactor(scale); }
};

} // namespace Kesto
