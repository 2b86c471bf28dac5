// CGraphic, something that draws itself into a frame.
#pragma once

#include "foundation/base/geometry.h"

namespace Kesto {

class CSystemPort;

class CGraphic {
public:
    virtual ~CGraphic() = default;

    virtual void Draw(CSystemPort& port) = 0;

    // Where it draws, in the port's units at its window origin.
    virtual Rect GetFrame() const = 0;
};

} // namespace Kesto
