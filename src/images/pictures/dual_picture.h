// CDualPicture, a picture at both densities with a hot spot, as one value.
//
// Copies share their pixmaps: each density has a counted representation, and whoever changes a
// shared one splits off a copy first. Sizes and the hot spot are in units, which are the pixels of
// the low density. Used by one thread.
#pragma once

#include "foundation/base/geometry.h"
#include "foundation/streams/stream.h"
#include "images/icons/resource_name.h"
#include "pixels/pixmaps/memory_pixmap.h"

#include <array>
#include <cstdint>
#include <memory>

namespace Kesto {

enum EDensity : std::uint32_t { kDensity_Low, kDensity_High };

// A reference to a counted pixmap, which may be absent.
class CSharedPixmap {
public:
    explicit CSharedPixmap(std::unique_ptr<CMemoryPixmap> pixmap = nullptr);
    CSharedPixmap(const CSharedPixmap& other) noexcept;
    CSharedPixmap& operator=(CSharedPixmap other) noexcept;
    ~CSharedPixmap();

    const CMemoryPixmap* Get() const { return fShared->fPixmap.get(); }
    bool IsShared() const { return fShared->fReferences > 1; }

    // The pixmap for changing it, which no other reference sees. Throws std::bad_alloc, with the
    // pixmap shared still.
    CMemoryPixmap* Split();

private:
    struct Representation {
        std::uint32_t fReferences = 1;
        std::unique_ptr<CMemoryPixmap> fPixmap;
    };

    Representation* fShared; // one reference is held
};

class CDualPicture {
public:
    // Loads both densities of a picture by a tag of either, and its hot spot; what was there is
    // dropped. Returns whether there is a low pixmap: a missing picture is no error and leaves an
    // empty value. Throws the decoder's CError for a picture that is corrupt, std::logic_error for
    // a store that is, and std::bad_alloc.
    bool LoadPicture(Tag tag, const CResourceName& name);
    bool LoadPicture(const CResourceName& name) { return LoadPicture(MakeTag("PNGf"), name); }

    // Those of the low pixmap, or else half of the high pixmap's; the bounds are rounded then, the
    // lengths cut off. 0 without a pixmap.
    PixelRect GetBounds() const;
    std::int32_t GetWidth() const;
    std::int32_t GetHeight() const;

    PixelPoint GetHotSpot() const { return fHotSpot; }

    // Null when there is none at that density.
    const CMemoryPixmap* GetPixmap(EDensity density) const { return fPixmaps[density].Get(); }

    // Puts a representation in the place of one density's. Other pictures keep theirs.
    void SetPixmap(CSharedPixmap pixmap, EDensity density)
    {
        fPixmaps[density] = std::move(pixmap);
    }

    // Makes the picture paler: multiplies the alpha of both densities by `opacity`, which counts as
    // 1 above that and as 0 below 0 or when it is not a number. Pixmaps without alpha stay as they
    // are.
    void Fade(double opacity);

private:
    std::array<CSharedPixmap, 2> fPixmaps; // by density
    PixelPoint fHotSpot;
};

} // namespace Kesto
