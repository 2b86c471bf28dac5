#include "view/tree/draw_buffer.h"

#include <algorithm>

namespace Kesto {

CImage* CDrawBuffer::Take(std::int32_t width, std::int32_t height)
{
    width = std::max(width, kSmallest);
    height = std::max(height, kSmallest);
    if (!fImage) {
        fImage.emplace(width, height);
        return &*fImage;
    }
    const PixelPoint had = fImage->GetSize();
    if (had.x < width || had.y < height)
        fImage->Resize(std::max(width, had.x), std::max(height, had.y));
    return &*fImage;
}

} // namespace Kesto
