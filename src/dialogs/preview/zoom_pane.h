// CZoomPane, a pane whose picture is zoomed in steps, between two limits.
#pragma once

#include "dialogs/preview/preview_scale.h"
#include "dialogs/preview/scale_pane.h"

namespace Kesto {

class CZoomPane : public CScalePane {
public:
    using CScalePane::CScalePane;

    double GetMinimumScale() const { return Project::kLeastPreviewScale; }
    double GetMaximumScale() const { return Project::kMostPreviewScale; }
    bool CanZoomIn() const { return GetImageScale() < GetMaximumScale(); }
    bool CanZoomOut() const { return GetImageScale() > GetMinimumScale(); }

    // To the next step; at the limit nothing happens.
    void StepIn() { SetImageScale(Project::NextScale(GetImageScale())); }
    void StepOut() { SetImageScale(Project::PreviousScale(GetImageScale())); }

protected:
    double GetRoundedScale(double scale) const override { return Project::RoundScale(scale); }
};

template <>
class CPaneBuilder<CZoomPane> : public CPaneBuilder<CScalePane> {
public:
    using CPaneBuilder<CScalePane>::CPaneBuilder;

protected:
    std::unique_ptr<CPane> MakePane(const PaneParameters& parameters) const override;
};

} // namespace Kesto
