#include "layout/build/interiors.h"

#include "view/tree/view.h"

namespace Kesto {

CView& InteriorOf(CView& view, std::int32_t number)
{
    auto* const interiors = dynamic_cast<CInteriors*>(&view);
    return interiors != nullptr ? interiors->Interior(number) : view;
}

} // namespace Kesto
