// Sliders, dials and progress: values and places, mouse and keys.
#include "controls/control_panel.h"
#include "controls/sliders/progress_bar.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace Kesto;

namespace {

TEST(ProgressBar, ShowsItselfOnlyWhileSomethingGoesOn)
{
    ControlPanel panel;
    auto& bar = panel.Add<CProgressBar>("bar", {0, 0, 100, 8});
    bar.SetAutoHide(true);
    bar.SetRange(0, 8);
    const struct {
        double value;
        bool shown;
    } rows[] = {{0, false}, {1, true}, {7.5, true}, {8, false}, {9, false}, {-1, false}, {3, true}};
    for (const auto& row : rows) {
        bar.SetValue(row.value);
        EXPECT_EQ(bar.IsVisible(), row.shown) << row.value;
    }
    bar.SetValue(std::numeric_limits<double>::quiet_NaN());
    bar.SetRange(0, std::numeric_limits<double>::infinity());
    EXPECT_EQ(bar.GetValue(), 3);
    bar.SetValue(8);
    bar.SetAutoHide(false);
    EXPECT_TRUE(bar.IsVisible());
}

} // namespace
