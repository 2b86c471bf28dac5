// PPreviewScroller, the scroller around a preview: both bars and the frame of a well, unless the
// layout says otherwise.
#pragma once

#include "controls/scrolling/scroller.h"

namespace Project {

class PPreviewScroller : public Kesto::CScroller {
public:
    explicit PPreviewScroller(const Kesto::Rect& frame = {}, Kesto::CObjID id = {},
                              std::uint32_t options = Kesto::kView_NoOptions,
                              std::uint32_t binding = Kesto::kBind_Fixed);
};

} // namespace Project

template <>
class Kesto::CPaneBuilder<Project::PPreviewScroller> : public CPaneBuilder<CScroller> {
public:
    using CPaneBuilder<CScroller>::CPaneBuilder;

protected:
    std::unique_ptr<CPane> MakePane(const PaneParameters& parameters) const override;
};
