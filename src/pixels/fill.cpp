#include "pixels/fill.h"

#include "pixels/basic_pixmap.h"

#include <algorithm>

namespace Kesto {
namespace {

template <class Pixel>
void FillView(const CPixView& view, const void* values)
{
    const Pixel* const value = static_cast<const Pixel*>(values);
    for (std::int32_t plane = 0; plane < view.planeCount; ++plane)
        for (std::int32_t y = 0; y < view.height; ++y) {
            std::uint8_t* const row = view.planePointers[plane] + std::int64_t{y} * view.rowBytes;
            std::fill_n(reinterpret_cast<Pixel*>(row), view.width, value[plane]);
        }
}

} // namespace

void Fill(CPixmap& pixmap, const Rect& rect, const void* values, std::int32_t firstPlane, std::int32_t planeCount)
{
    const auto* const basic = dynamic_cast<CBasicPixmap*>(&pixmap);
    if (basic == nullptr)
        return;
    CPixView view;
    basic->GetView(view, rect, firstPlane, planeCount);
    switch (pixmap.GetPixelBits()) {
    case 8:
        return FillView<std::uint8_t>(view, values);
    case 16:
        return FillView<std::uint16_t>(view, values);
    case 32:
        return FillView<std::uint32_t>(view, values);
    default:
        return;
    }
}

} // namespace Kesto
