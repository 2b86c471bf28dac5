// How a slider is drawn: its shape, its tick, and what its groove is filled with.
#pragma once

#include "drawing/ports/drawing_state.h"
#include "foundation/base/geometry.h"
#include "layout/vocabulary/slider_options.h"

#include <array>
#include <optional>

namespace Kesto {

class CSystemPort;

struct SSliderLook {
    ESliderStyle style = kSlider_Standard; // a round thumb; a block; a block on a wide groove
    ESliderOrientation orientation = kSlider_AutoOrient;
    std::optional<double> tick = std::nullopt; // the value that is marked
    ESliderFill fill = kSliderFill_None;
    // Of a fill, at the first end and at the last, as its components: red, green, blue; cyan,
    // magenta, yellow; all from 0 to 255; or a hue of 360 degrees with percents of saturation and
    // value.
    std::array<std::array<double, 3>, 2> colours{};

    bool HasFill() const { return fill >= kSliderFill_SolidRGB; }
    bool IsGradient() const { return fill >= kSliderFill_GradientRGB; }
    bool HasWideGroove() const { return HasFill() || style == kSlider_Daybench; }
};

// The colour of a fill's components; anything beyond their limits counts as the limit.
Colour FillColour(ESliderFill fill, const std::array<double, 3>& components);
// At a share of the way; components go evenly from one to the other.
Colour FillColourAt(const SSliderLook& look, double share);

// Fills a groove's frame with the look's colours; 0 is at the left or at the bottom.
void DrawFill(CSystemPort& port, const Rect& groove, bool vertical, const SSliderLook& look);

} // namespace Kesto
