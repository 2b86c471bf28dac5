// CGraphicsPort, a surface that views draw on. Whoever draws asks for a CSystemPort, which has the
// operations.
#pragma once

#include "pixels/pixmaps/pixmap_port.h"

namespace Kesto {

class CGraphicsPort : public CPixmapPort {
public:
    CGraphicsPort(const CGraphicsPort&) = delete;
    CGraphicsPort& operator=(const CGraphicsPort&) = delete;

protected:
    CGraphicsPort() = default;
};

} // namespace Kesto
