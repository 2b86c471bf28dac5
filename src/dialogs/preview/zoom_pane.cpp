#include "dialogs/preview/zoom_pane.h"

namespace Kesto {

std::unique_ptr<CPane> CPaneBuilder<CZoomPane>::MakePane(const PaneParameters& parameters) const
{
    return std::make_unique<CZoomPane>(parameters.frame, parameters.id, parameters.options,
                                       parameters.binding);
}

} // namespace Kesto
