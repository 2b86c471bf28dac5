#include "pixels/tile_view.h"

#include "pixels/basic_pixmap.h"

namespace Kesto {

CTileView::CTileView(CPixmap& pixmap, const Rect& rect, std::int32_t firstPlane, std::int32_t planeCount, bool)
{
    if (const auto* basic = dynamic_cast<const CBasicPixmap*>(&pixmap))
        basic->GetView(fView, rect, firstPlane, planeCount);
}

} // namespace Kesto
