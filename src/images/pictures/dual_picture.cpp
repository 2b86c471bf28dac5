#include "images/pictures/dual_picture.h"

#include "foundation/base/geometry.h"
#include "foundation/streams/block_container.h"
#include "images/icons/resource_conversion_thunk.h"
#include "images/icons/resource_data_provider.h"
#include "images/icons/resource_reader.h"
#include "images/png/png_decoder.h"
#include "pixels/kernels/blend_table.h"

#include <algorithm>
#include <utility>

namespace Kesto {
namespace {

// The decoded picture; null when neither the store nor the module has it.
std::unique_ptr<CMemoryPixmap> ReadPixmap(Tag tag, const CResourceName& name)
{
    CMemoryBlock bytes;
    if (!CResourceReader().Read(bytes, tag, name))
        return nullptr;
    CBlockContainer stream(&bytes);
    return CPNGDecoder().Decode(stream);
}

std::int32_t HalfRounded(std::int32_t value)
{
    return RoundHalfAway(value * 0.5);
}

// The plane of alpha in pixmaps of so many planes; -1 in those that have none.
std::int32_t AlphaPlane(std::int32_t planes)
{
    return planes == 2 || planes == 4 ? planes - 1 : -1;
}

void MapPlane(const CMemoryPixmap& pixmap, std::int32_t plane, const std::uint8_t* table)
{
    CPixView view;
    pixmap.GetView(view, 0, 0, 0, 0, plane, 1);
    for (std::int32_t y = 0; y < view.height; ++y) {
        std::uint8_t* row = view.planePointers[0] + std::ptrdiff_t{y} * view.rowBytes;
        for (std::int32_t x = 0; x < view.width; ++x)
            row[x] = table[row[x]];
    }
}

} // namespace

CSharedPixmap::CSharedPixmap(std::unique_ptr<CMemoryPixmap> pixmap)
    : fShared(new Representation{1, std::move(pixmap)})
{
}

CSharedPixmap::CSharedPixmap(const CSharedPixmap& other) noexcept : fShared(other.fShared)
{
    ++fShared->fReferences;
}

CSharedPixmap& CSharedPixmap::operator=(CSharedPixmap other) noexcept
{
    std::swap(fShared, other.fShared);
    return *this;
}

CSharedPixmap::~CSharedPixmap()
{
    if (--fShared->fReferences == 0)
        delete fShared;
}

CMemoryPixmap* CSharedPixmap::Split()
{
    if (IsShared())
        *this = CSharedPixmap(Get() == nullptr ? nullptr : std::make_unique<CMemoryPixmap>(*Get()));
    return fShared->fPixmap.get();
}

bool CDualPicture::LoadPicture(Tag tag, const CResourceName& name)
{
    *this = CDualPicture();
    const ResourceConversionThunk thunk;
    Tag lowTag = tag;
    thunk.GetLowTag(tag, lowTag);
    SetPixmap(CSharedPixmap(ReadPixmap(lowTag, name)), kDensity_Low);
    CResourceDataProvider::Get().GetHotSpot(lowTag, name, fHotSpot.x, fHotSpot.y);
    if (Tag highTag; thunk.GetHighTag(lowTag, highTag))
        SetPixmap(CSharedPixmap(ReadPixmap(highTag, name)), kDensity_High);
    return GetPixmap(kDensity_Low) != nullptr;
}

PixelRect CDualPicture::GetBounds() const
{
    if (const CMemoryPixmap* low = GetPixmap(kDensity_Low))
        return low->GetBounds();
    const CMemoryPixmap* high = GetPixmap(kDensity_High);
    if (high == nullptr)
        return {};
    const PixelRect bounds = high->GetBounds();
    return {HalfRounded(bounds.left), HalfRounded(bounds.top), HalfRounded(bounds.right),
            HalfRounded(bounds.bottom)};
}

std::int32_t CDualPicture::GetWidth() const
{
    if (const CMemoryPixmap* low = GetPixmap(kDensity_Low))
        return low->GetWidth();
    const CMemoryPixmap* high = GetPixmap(kDensity_High);
    return high == nullptr ? 0 : high->GetWidth() / 2;
}

std::int32_t CDualPicture::GetHeight() const
{
    if (const CMemoryPixmap* low = GetPixmap(kDensity_Low))
        return low->GetHeight();
    const CMemoryPixmap* high = GetPixmap(kDensity_High);
    return high == nullptr ? 0 : high->GetHeight() / 2;
}

void CDualPicture::Fade(double opacity)
{
    const std::int32_t level = opacity > 0 ? std::min(RoundHalfAway(opacity * 255), 255) : 0;
    const std::uint8_t* table = CBlendTable::Get()->Row(static_cast<std::uint32_t>(level));
    for (CSharedPixmap& shared : fPixmaps) {
        const std::int32_t alpha =
            shared.Get() == nullptr ? -1 : AlphaPlane(shared.Get()->GetPlaneCount());
        if (alpha >= 0)
            MapPlane(*shared.Split(), alpha, table);
    }
}

} // namespace Kesto
