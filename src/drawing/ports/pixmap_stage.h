// CPixmapStage, where pixmaps become pixels that a port can lay down: cut, scaled, merged.
//
// It keeps its off-screen pixmaps between calls and lets them only grow, so that drawing many icons
// makes no bitmaps.
#pragma once

#include "drawing/ports/pixel_average.h"
#include "drawing/ports/pixel_surface.h"
#include "foundation/base/service.h"
#include "pixels/pixmaps/display_pixmap.h"
#include "pixels/pixmaps/memory_pixmap.h"

namespace Kesto {

// Pixels for a rectangle of a surface, of its size; valid until the stage's next use.
struct CPreparedPixels {
    CPixelSurface surface; // its first pixel belongs to the rectangle's top left corner
    PixelRect dest;
};

// Whether the alpha plane of a pixmap counts.
enum class EAlphaUse { kBlended, kIgnored };

class CPixmapStage {
public:
    CPixmapStage();

    // The process's stage, made at the first call.
    static CPixmapStage& Get() { return *CServiceT<CPixmapStage>::Get(true); }

    // The pixels that `source`, in the pixmap, gives for the part `visible` of `dest`; both are cut
    // to what the pixmap has. A destination that is smaller in either direction is averaged, else
    // it takes the nearest pixels. An empty rectangle is returned where there is nothing to draw: a
    // pixmap that is no 8 bits of 1 to 4 planes, or, with alpha ignored, 32 bits of one.
    CPreparedPixels Prepare(CPixmap& pixmap, const PixelRect& source, const PixelRect& dest,
                            const PixelRect& visible, EAlphaUse alpha);

    // The same of the pixels of a surface, which stay as they are.
    CPreparedPixels Prepare(const CPixelSurface& surface, const PixelRect& source,
                            const PixelRect& dest, const PixelRect& visible);

    // The same pixels off the surface that they came from, for drawing on that very surface.
    CPreparedPixels Detach(const CPreparedPixels& pixels);

private:
    struct CJob;
    class CMergedRows;

    CPreparedPixels Stretch(CJob& job);
    CPreparedPixels Average(CJob& job);
    // A rectangle of the job's planes as pixels.
    void Merge(const CJob& job, const PixelRect& rect, const CPixelSurface& out);
    // The pixmap's storage for so many pixels, whose rows follow each other without a gap.
    CPixelSurface Grown(CDisplayPixmap& pixmap, std::int32_t width, std::int32_t height);

    CMemoryPixmap fPlanes;
    CDisplayPixmap fMerged;
    CDisplayPixmap fStretched;
    CPixelAverage fAverage;
};

} // namespace Kesto
