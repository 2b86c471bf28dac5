#include "controls/sliders/angle_slider.h"

#include "drawing/frames/widget_skin.h"
#include "drawing/ports/system_port.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace Kesto {

namespace {

constexpr double kDegreesInRadian = 180.0 / std::numbers::pi;

// Into [0, whole).
double Wrapped(double number, double whole)
{
    const double rest = std::fmod(number, whole);
    return rest < 0.0 ? rest + whole : rest;
}

} // namespace

void CAngleSlider::SetDial(std::uint32_t options, double offset, double range)
{
    fOptions = options;
    fOffset = std::isfinite(offset) ? offset : 0.0;
    fArc = range > 0.0 && range < kTurn ? range : kTurn;
    InvalidateAll();
}

double CAngleSlider::FirstAngle() const
{
    const bool bothWays = (fOptions & kAngleSlider_BiDirectional) != 0;
    return fOffset - (bothWays ? Direction() * fArc / 2 : 0.0);
}

double CAngleSlider::AngleOf(double value) const
{
    return Wrapped(FirstAngle() + Direction() * fArc * GetRange().ShareOf(value), kTurn);
}

// Where the values end, and on a dial that pins, the mouse may go on: then the end that is nearer
// to the present value stays.
double CAngleSlider::ValueAt(const Point& place) const
{
    const Rect& bounds = GetBounds();
    const Point from{place.x - (bounds.left + bounds.right) / 2,
                     (bounds.top + bounds.bottom) / 2 - place.y};
    if (from == Point{})
        return GetValue();
    const double angle = std::atan2(from.y, from.x) * kDegreesInRadian;
    double share = Wrapped(Direction() * (angle - FirstAngle()), kTurn) / fArc;
    if (GoesRound())
        return GetRange().ValueAt(share);
    const double present = GetRange().ShareOf(GetValue());
    const double turn = kTurn / fArc;
    if (share - present > turn / 2)
        share -= turn;
    else if (present - share > turn / 2)
        share += turn;
    return GetRange().ValueAt(share);
}

double CAngleSlider::StepFrom(double value, double delta) const
{
    const SValueRange& range = GetRange();
    const double way = range.High() - range.Low();
    if (!GoesRound() || way <= 0.0)
        return CCustomSlider::StepFrom(value, delta);
    const double forward = range.first <= range.last ? delta : -delta;
    return range.Snapped(range.Low() + Wrapped(value + forward - range.Low(), way));
}

void CAngleSlider::DrawInContext(const CPaintEvent&)
{
    CSystemPort& port = *GetPort();
    CWidgetSkin::DrawDial(port, GetBounds(), AngleOf(GetValue()) / kDegreesInRadian,
                          GetDrawState());
    if (ShowsFocus())
        CWidgetSkin::DrawFocusLine(port, GetBounds());
}

} // namespace Kesto
