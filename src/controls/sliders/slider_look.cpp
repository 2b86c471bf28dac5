#include "controls/sliders/slider_look.h"

#include "drawing/ports/system_port.h"

#include <algorithm>
#include <cmath>

namespace Kesto {

namespace {

constexpr double kMost = 255.0;

std::uint8_t ToByte(double component)
{
    return static_cast<std::uint8_t>(
        RoundHalfAway(std::isnan(component) ? 0.0 : std::clamp(component, 0.0, kMost)));
}

double Share(double number, double most)
{
    return std::isnan(number) ? 0.0 : std::clamp(number / most, 0.0, 1.0);
}

// Each channel is full for a third of the circle around its own hue and falls off beside it.
Colour FromHue(double degrees, double saturation, double value)
{
    const double hue = Share(degrees, 360.0) * 6.0;
    const auto channel = [&](double shift) {
        const double k = std::fmod(shift + hue, 6.0);
        const double dip = std::clamp(std::min(k, 4.0 - k), 0.0, 1.0);
        return ToByte((value - value * saturation * dip) * kMost);
    };
    return {channel(5.0), channel(3.0), channel(1.0)};
}

bool IsHueFill(ESliderFill fill)
{
    return fill == kSliderFill_SolidHSV || fill == kSliderFill_GradientHSV;
}

} // namespace

Colour FillColour(ESliderFill fill, const std::array<double, 3>& components)
{
    const auto& [a, b, c] = components;
    if (fill == kSliderFill_SolidCMY || fill == kSliderFill_GradientCMY)
        return {ToByte(kMost - a), ToByte(kMost - b), ToByte(kMost - c)};
    if (IsHueFill(fill))
        return FromHue(a, Share(b, 100.0), Share(c, 100.0));
    return {ToByte(a), ToByte(b), ToByte(c)};
}

Colour FillColourAt(const SSliderLook& look, double share)
{
    if (!look.IsGradient())
        return FillColour(look.fill, look.colours[0]);
    std::array<double, 3> mixed{};
    for (std::size_t i = 0; i < mixed.size(); ++i)
        mixed[i] = look.colours[0][i] * (1.0 - share) + look.colours[1][i] * share;
    return FillColour(look.fill, mixed);
}

void DrawFill(CSystemPort& port, const Rect& groove, bool vertical, const SSliderLook& look)
{
    const double length = vertical ? groove.Height() : groove.Width();
    const double stripe = look.IsGradient() ? 1.0 : length;
    for (double at = 0.0; at < length; at += stripe) {
        const double end = std::min(at + stripe, length);
        const Colour colour = FillColourAt(look, (at + end) / 2 / length);
        port.Paint(vertical
                       ? Rect{groove.left, groove.bottom - end, groove.right, groove.bottom - at}
                       : Rect{groove.left + at, groove.top, groove.left + end, groove.bottom},
                   colour);
    }
}

} // namespace Kesto
