#include "view/process/ui_scale.h"

#include "platform/windows/window_place.h"

namespace Kesto {
namespace {

UiScaleMode gMode{};
double gScale = 1.0;
double gUsualScale = 1.0;

} // namespace

void SetUiScaleMode(UiScaleMode mode)
{
    gMode = mode;
}

UiScaleMode GetUiScaleMode()
{
    return gMode;
}

void SetUiScale(double scale)
{
    constexpr double kMost = 16.0;
    gScale = scale > 0.0 && scale <= kMost ? scale : 1.0;
}

double GetUiScale()
{
    return gScale;
}

double UsualScale()
{
    return gUsualScale;
}

void LookUpUsualScale()
{
    gUsualScale = (gMode != UiScaleMode{1} ? Platform::ScaleOf(nullptr) : 1.0) * gScale;
}

double FontScale(bool followsUiScale)
{
    return followsUiScale ? 1.0 : 1.0 / GetUiScale();
}

} // namespace Kesto
