#include "controls/text/static_view.h"

#include "drawing/ports/system_port.h"
#include "drawing/tools/draw_tools.h"

namespace Project {

PStaticView::PStaticView(const Kesto::Rect& frame, Kesto::CObjID id, std::uint32_t options,
                         std::uint32_t binding)
    : CPane(frame, id, options, binding)
{
    SetOpaque(true);
}

void PStaticView::DrawBackground()
{
    GetPort()->Paint(GetBounds(), Kesto::ToolColour(Kesto::kColour_Panel));
}

} // namespace Project

namespace Kesto {

std::unique_ptr<CPane>
CPaneBuilder<Project::PStaticView>::MakePane(const PaneParameters& parameters) const
{
    return std::make_unique<Project::PStaticView>(parameters.frame, parameters.id,
                                                  parameters.options, parameters.binding);
}

} // namespace Kesto
