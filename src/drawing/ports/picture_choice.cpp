#include "drawing/ports/picture_choice.h"

namespace Kesto {

CPictureChoice ChoosePicture(const CDualPicture& picture, double scale)
{
    const EDensity wanted = scale > 1.0 ? kDensity_High : kDensity_Low;
    const EDensity other = wanted == kDensity_High ? kDensity_Low : kDensity_High;
    const CMemoryPixmap* pixmap = picture.GetPixmap(wanted);
    if (pixmap == nullptr)
        pixmap = picture.GetPixmap(other);
    return {pixmap,
            {static_cast<double>(picture.GetWidth()), static_cast<double>(picture.GetHeight())}};
}

} // namespace Kesto
