#include "dialogs/preview/preview_scroller.h"

namespace Project {

using namespace Kesto;

PPreviewScroller::PPreviewScroller(const Rect& frame, CObjID id, std::uint32_t options,
                                   std::uint32_t binding)
    : CMessenger(nullptr, id), CScroller(frame, id, options, binding)
{
    SetAttributes(kAttributes);
}

} // namespace Project

std::unique_ptr<Kesto::CPane>
Kesto::CPaneBuilder<Project::PPreviewScroller>::MakePane(const PaneParameters& parameters) const
{
    return std::make_unique<Project::PPreviewScroller>(parameters.frame, parameters.id,
                                                       parameters.options, parameters.binding);
}
