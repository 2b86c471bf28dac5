#include "controls/base/natural_size.h"

#include "layout/build/view_layout_record.h"

namespace Kesto {

void SetNaturalSize(ViewLayoutRecord& record, const Point& size)
{
    if (!ViewLayoutRecord::IsGiven(record.width))
        record.width = size.x;
    if (!ViewLayoutRecord::IsGiven(record.height))
        record.height = size.y;
}

} // namespace Kesto
