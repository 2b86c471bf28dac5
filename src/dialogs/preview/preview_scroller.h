// PPreviewScroller, the scroller around a preview: both bars and the frame of a well, unless the
// layout says otherwise.
#pragma once

#include "controls/scrolling/scroller.h"

namespace Project {

class PPreviewScroller : public Kesto::CScroller {
public:
    static constexpr std::uint32_t kAttributes =
        Kesto::kScroller_XBar | Kesto::kScroller_YBar | Kesto::kScroller_WellFrame;

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
    std::uint32_t DefaultAttributes() const override
    {
        return Project::PPreviewScroller::kAttributes;
    }
    std::unique_ptr<CPane> MakePane(const PaneParameters& parameters) const override;
};
