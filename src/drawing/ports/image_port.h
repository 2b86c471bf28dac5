// CImagePort, a port for drawing on a pixmap.
//
// A display pixmap that is made for the port, or moved to it, announces itself and becomes its
// drawing surface; SetPixmap does the same by hand. The pixmap isn't owned and withdraws when it
// is destroyed.
#pragma once

#include "drawing/ports/system_port.h"

namespace Kesto {

class CImagePort : public CSystemPort {
public:
    CImagePort() = default;

    // Draws on the pixmap from now on, with everything in the clip; with null on nothing. A pixmap
    // of other than 32 bits is no surface.
    void SetPixmap(CDisplayPixmap* pixmap);
    CDisplayPixmap* GetPixmap() const { return fPixmap; }

    // In pixels; 0, 0 without a pixmap.
    PixelPoint GetSize() const;

    void PixmapChanged(CDisplayPixmap* pixmap) override { SetPixmap(pixmap); }

protected:
    // Called when a pixmap has become the surface, and before it stops being that.
    virtual void PixmapAttached(CDisplayPixmap& pixmap);
    virtual void PixmapLeaving(CDisplayPixmap& pixmap);

private:
    CDisplayPixmap* fPixmap = nullptr;
};

} // namespace Kesto
