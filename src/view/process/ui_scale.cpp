#include "view/process/ui_scale.h"

namespace Kesto {
namespace {

UiScaleMode gMode{};

}

void SetUiScaleMode(UiScaleMode mode)
{
    gMode = mode;
}

UiScaleMode GetUiScaleMode()
{
    return gMode;
}

} // namespace Kesto
