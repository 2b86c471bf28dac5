// PStaticView, a raised part of a window: a ground for other views.
#pragma once

#include "layout/build/pane_builder.h"
#include "view/tree/pane.h"

namespace Project {

class PStaticView : public Kesto::CPane {
public:
    PStaticView(const Kesto::Rect& frame, Kesto::CObjID id, std::uint32_t options,
                std::uint32_t binding);

    void DrawBackground() override;
};

} // namespace Project

template <>
class Kesto::CPaneBuilder<Project::PStaticView> : public CPaneBuilder<CPane> {
public:
    using CPaneBuilder<CPane>::CPaneBuilder;

protected:
    std::unique_ptr<CPane> MakePane(const PaneParameters& parameters) const override;
};
