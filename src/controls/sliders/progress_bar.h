// CProgressBar, how much of something long has been done.
#pragma once

#include "controls/base/value_range.h"
#include "layout/build/pane_builder.h"
#include "view/tree/pane.h"

namespace Kesto {

class CProgressBar : public CPane {
public:
    static constexpr double kHeight = 8.0;

    using CPane::CPane;

    // From the first end, nothing done, to the last, all done. A value that is no number, or an end
    // that is no finite one, changes nothing.
    void SetValue(double value);
    void SetRange(double first, double last);
    double GetValue() const { return fValue; }
    const SValueRange& GetRange() const { return fRange; }

    // Hidden while nothing or all is done.
    void SetAutoHide(bool on);

    void DrawInContext(const CPaintEvent& event) override;
    void DidEnable() override { InvalidateAll(); }
    void DidDisable() override { InvalidateAll(); }

private:
    void Follow();

    SValueRange fRange;
    double fValue = 0.0;
    bool fAutoHide = false;
};

template <>
class CPaneBuilder<CProgressBar> : public CPaneBuilder<CPane> {
public:
    using CPaneBuilder<CPane>::CPaneBuilder;
    CView* AdjustLayout(CView* parent, LayoutOwner& owner) override;
    void AppendRows(std::vector<PropertyRows>& rows) const override;

protected:
    std::unique_ptr<CPane> MakePane(const PaneParameters& parameters) const override;
    void ReadKeys(CPane& pane, LayoutOwner& owner) const override;
};

} // namespace Kesto
