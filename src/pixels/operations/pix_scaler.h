// CPixScaler, the process that scales pixels from one rectangle to another, cell by cell.
//
// The tables that say which source pixels make a target column or row are built once and kept while
// the rectangles stay. A heavy reduction takes many short steps for each cell, so that a preview
// can be painted between any two of them.
#pragma once

#include "pixels/kernels/scale.h"
#include "pixels/operations/pix_process.h"
#include "pixels/pixmaps/pixmap.h"
#include "pixels/pixmaps/pixview.h"

namespace Kesto {

class CPixScaler : public CPixProcess {
public:
    // The pixel sizes that can be scaled.
    enum class DepthKind : std::int32_t { k8Bit = 0, k16Bit = 1, k32Bit = 2 };

    // Which planes are scaled to which; a count below 0 means all from the first on.
    struct Planes {
        std::int32_t fDestFirst = 0;
        std::int32_t fDestCount = -1;
        std::int32_t fSourceFirst = 0;
        std::int32_t fSourceCount = -1;
    };

    // Cells are at most this wide and high.
    static constexpr std::int32_t kCellSize = 128;

    // The grid becomes empty, and no steps are left.
    void Reset() override;

    // Gets ready to fill `destRect` from `sourceRect`: builds the tables, unless the rectangles are
    // those of before, and lays out the cells with no step done. An empty rectangle resets.
    virtual void Prepare(const PixelRect& destRect, const PixelRect& sourceRect);

    // The source pixels that make `destRect`, a part of the prepared rectangle. Empty for any
    // other.
    virtual void GetSourceRect(const PixelRect& destRect, PixelRect& sourceRect);

    // Scales the part `destRect` from `sourceRect`, as GetSourceRect gives it, with the kernels of
    // the depth. Throws std::bad_alloc without memory for scratch, and what reading a tile throws.
    virtual void Scale(CPixmap& dest, CPixmap& source, const PixelRect& destRect,
                       const PixelRect& sourceRect, const Planes& planes);
    virtual void Scale8(CPixmap& dest, CPixmap& source, const PixelRect& destRect,
                        const PixelRect& sourceRect, const Planes& planes);
    virtual void Scale16(CPixmap& dest, CPixmap& source, const PixelRect& destRect,
                         const PixelRect& sourceRect, const Planes& planes);
    virtual void Scale32(CPixmap& dest, CPixmap& source, const PixelRect& destRect,
                         const PixelRect& sourceRect, const Planes& planes);

    const PixelRect& GetDestRect() const { return fDestRect; }
    ScaleMode GetColumnMode() const { return fColumnMode; }
    ScaleMode GetRowMode() const { return fRowMode; }

protected:
    void SetDepthKind(DepthKind kind) { fDepthKind = kind; }

private:
    template <class T>
    void ScalePixels(CPixmap& dest, CPixmap& source, const PixelRect& destRect,
                     const PixelRect& sourceRect, const Planes& planes);
    template <class T>
    void ScaleViews(const CPixView& dest, const CPixView& source, const PixelRect& destRect,
                    const PixelRect& sourceRect);
    bool IsPrepared(const PixelRect& destRect) const;

    DepthKind fDepthKind = DepthKind::k8Bit;
    PixelRect fDestRect;
    PixelRect fSourceRect;
    ScaleTable fColumnTable; // one entry for each target column; empty for the same size
    ScaleTable fRowTable;
    float fColumnScale = 1;
    float fRowScale = 1;
    ScaleMode fColumnMode = ScaleMode::kSame;
    ScaleMode fRowMode = ScaleMode::kSame;
};

} // namespace Kesto
