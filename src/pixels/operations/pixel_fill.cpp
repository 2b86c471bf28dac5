#include "pixels/operations/pixel_fill.h"

#include "pixels/kernels/transfer.h"
#include "pixels/kernels/view_access.h"
#include "pixels/operations/pix_walker.h"
#include "pixels/pixmaps/pixel_size.h"

#include <algorithm>
#include <vector>

namespace Kesto {

using Access = CPixWalker::Access;

void Fill(CPixmap& pixmap, const PixelRect& rect, const void* values, std::int32_t firstPlane,
          std::int32_t planeCount)
{
    Kernels::WithPixelType(pixmap.GetPixelBits(), [&]<class T>() {
        CPixWalker({{&pixmap, rect, firstPlane, planeCount, Access::kWrite}})
            .Run([&](const CPixWalkContext& context) {
                const CPixView& view = context.fWrite[0];
                const T* first = static_cast<const T*>(values);
                Kernels::Fill(view,
                              std::span<const T>(first, static_cast<std::size_t>(view.planeCount)));
                return true;
            });
    });
}

void Invert(CPixmap& pixmap, const PixelRect& rect, std::int32_t firstPlane,
            std::int32_t planeCount)
{
    CPixWalker(pixmap, rect, firstPlane, planeCount).Run([](const CPixWalkContext& context) {
        Kernels::Invert(context.fReadWrite[0], context.fReadWrite[0]);
        return true;
    });
}

void Copy(CPixmap& dest, CPixmap& source, const PixelRect& destRect, const PixelRect& sourceRect,
          std::int32_t firstPlane, std::int32_t planeCount)
{
    CPixWalker(source, dest, sourceRect, destRect, firstPlane, planeCount)
        .Run([](const CPixWalkContext& context) {
            Kernels::Copy(context.fWrite[0], context.fRead[0]);
            return true;
        });
}

void Exchange(CPixmap& a, CPixmap& b, const PixelRect& rectA, const PixelRect& rectB,
              std::int32_t firstPlane, std::int32_t planeCount)
{
    const CPixWalker walker({{&a, rectA, firstPlane, planeCount, Access::kReadWrite},
                             {&b, rectB, firstPlane, planeCount, Access::kReadWrite}});
    walker.Run([](const CPixWalkContext& context) {
        Kernels::Exchange(context.fReadWrite[0], context.fReadWrite[1]);
        return true;
    });
}

void CPixmap::Erase()
{
    const std::int32_t bits = GetPixelBits();
    if (bits != 8 && bits != 16 && bits != 32 && bits != 64)
        return;
    const std::int64_t planes = std::max(GetPlaneCount(), 0);
    const std::vector<std::uint8_t> zeros(static_cast<std::size_t>(planes * (bits / 8)));
    Fill(*this, GetBounds(), zeros.data(), 0, -1);
}

} // namespace Kesto
