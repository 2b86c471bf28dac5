#include "controls/base/natural_size.h"

#include "drawing/ports/image_port.h"
#include "drawing/tools/draw_tools.h"
#include "layout/build/layout_owner.h"
#include "view/tree/view.h"

namespace Kesto {

void SetNaturalSize(ViewLayoutRecord& record, const Point& size)
{
    if (!ViewLayoutRecord::IsGiven(record.width))
        record.width = size.x;
    if (!ViewLayoutRecord::IsGiven(record.height))
        record.height = size.y;
}

CSystemPort& MeasuringPort(const LayoutOwner& owner, EFontKind font)
{
    static CImagePort port; // on nothing: only its fonts are asked
    port.SetScaleFactor(owner.fCurrentView != nullptr ? owner.fCurrentView->GetScale() : 1.0);
    port.SetFont(CDrawTools::Get().GetFont(font));
    return port;
}

} // namespace Kesto
