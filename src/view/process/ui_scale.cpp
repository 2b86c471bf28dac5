#include "view/process/ui_scale.h"

namespace Kesto {
namespace {

UiScaleMode gMode{};
double gScale = 1.0;

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
    gScale = scale;
}

double GetUiScale()
{
    return gScale;
}

} // namespace Kesto
