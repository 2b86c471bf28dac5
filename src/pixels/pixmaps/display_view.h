// How pixels of a bitmap that the graphics system draws on, too, are read and written: between the
// two calls by which it learns of it.
#pragma once

#include "pixels/pixmaps/display_pixmap.h"

#include <utility>

namespace Kesto {

// The bracket alone. From its constructor on the pixels are what was drawn; from its destructor on
// what was written is what will be drawn. The bitmap outlives it.
class CBitmapAccess {
public:
    CBitmapAccess(const Platform::Bitmap& bitmap, bool writes) : fBitmap(&bitmap), fWrites(writes)
    {
        bitmap.BeginWriting();
    }
    CBitmapAccess(CBitmapAccess&& other) noexcept
        : fBitmap(std::exchange(other.fBitmap, nullptr)), fWrites(other.fWrites)
    {
    }
    CBitmapAccess& operator=(CBitmapAccess&&) = delete;
    ~CBitmapAccess()
    {
        if (fBitmap != nullptr && fWrites)
            fBitmap->EndWriting();
    }

private:
    const Platform::Bitmap* fBitmap;
    bool fWrites;
};

// A view of all pixels to write to. The pixmap keeps its bitmap for as long as this lives.
class CDisplayWriting {
public:
    explicit CDisplayWriting(const CDisplayPixmap& pixmap) : fAccess(pixmap.GetBitmap(), true)
    {
        pixmap.GetView(fView);
    }

    const CPixView& View() const { return fView; }

private:
    CBitmapAccess fAccess;
    CPixView fView;
};

} // namespace Kesto
