#include "controls/sliders/orlen_slider.h"

namespace Kesto {

double COrlenSlider::FillOrigin() const
{
    const SValueRange& range = GetRange();
    return range.Low() < 0.0 && range.High() > 0.0 ? 0.0 : range.first;
}

bool COrlenSlider::PrimaryMultiClick(const CMouseEvent&, int count)
{
    if (IsUsable() && count == 2)
        ChangeValue(fDefaultValue, GetValue(), CValueMessage::kPhase_Final);
    return true;
}

} // namespace Kesto
