#include "dialogs/plugin_dialog/dialog_ids.h"

namespace Project {

Kesto::CObjID ZoomCommand(std::uint32_t index)
{
    return {"Project/Command/Zoom", static_cast<std::uint32_t>(kZoomScales.size()), index};
}

std::optional<double> ZoomScaleOf(Kesto::CObjID command)
{
    const std::uint32_t index = command.Value() - ZoomCommand(0).Value();
    return index < kZoomScales.size() ? std::optional(kZoomScales[index]) : std::nullopt;
}

} // namespace Project
