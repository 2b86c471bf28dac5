#include "controls/sliders/custom_slider.h"

#include "controls/sliders/slider_tracker.h"
#include "drawing/frames/widget_skin.h"
#include "drawing/ports/system_port.h"
#include "drawing/tools/draw_tools.h"
#include "view/messages/key_codes.h"

#include <algorithm>
#include <cmath>

namespace Kesto {

namespace {

constexpr double kMinorsInMajor = 10.0;
constexpr double kWideGroove = 8.0;
constexpr double kHalfThumb = CWidgetSkin::kThumbSize / 2;
constexpr double kTickLength = 4.0;
constexpr double kEndRoom = kHalfThumb + 1.0; // from an end of the slider to the thumb's middle

// How many steps a key goes, in minor ones or in major ones.
struct SKeyStep {
    double minor = 0.0;
    double major = 0.0;
};

SKeyStep StepOf(std::uint32_t key)
{
    switch (key) {
    case kKeyCode_Right:
    case kKeyCode_Up:
        return {.minor = 1.0};
    case kKeyCode_Left:
    case kKeyCode_Down:
        return {.minor = -1.0};
    case kKeyCode_PageUp:
        return {.major = 1.0};
    case kKeyCode_PageDown:
        return {.major = -1.0};
    default:
        return {};
    }
}

} // namespace

// --------------------------------------------------------------------------------------- Values

void CCustomSlider::SetValue(double value)
{
    value = fRange.Snapped(value);
    if (value == fValue || std::isnan(value))
        return;
    fValue = value;
    InvalidateAll();
}

void CCustomSlider::SetRange(const SValueRange& range)
{
    if (!std::isfinite(range.first) || !std::isfinite(range.last))
        return;
    fRange = range;
    fValue = fRange.Snapped(fValue);
    InvalidateAll();
}

void CCustomSlider::SetIncrements(double minor, double major)
{
    fMinorIncrement = minor;
    fMajorIncrement = major;
}

double CCustomSlider::MinorIncrement() const
{
    return fMinorIncrement > 0.0 ? fMinorIncrement : fRange.NaturalStep();
}

double CCustomSlider::MajorIncrement() const
{
    return fMajorIncrement > 0.0 ? fMajorIncrement : MinorIncrement() * kMinorsInMajor;
}

double CCustomSlider::StepFrom(double value, double delta) const
{
    return fRange.Stepped(value, fRange.first <= fRange.last ? delta : -delta);
}

void CCustomSlider::SendNumber(double oldValue, double startValue, std::uint32_t phase)
{
    if (GetID().IsNone())
        return;
    CValMsg<CNumber> message(this, GetID(), fValue, oldValue, startValue, phase);
    Send(message);
}

void CCustomSlider::ChangeValue(double value, double startValue, std::uint32_t phase)
{
    const double old = fValue;
    SetValue(value);
    if (fValue != old)
        SendNumber(old, startValue, phase);
}

void CCustomSlider::SendFinal(double startValue)
{
    SendNumber(startValue, startValue, CValueMessage::kPhase_Final);
}

// ---------------------------------------------------------------------------------------- Places

void CCustomSlider::SetLook(const SSliderLook& look)
{
    fLook = look;
    InvalidateAll();
}

bool CCustomSlider::IsVertical() const
{
    if (fLook.orientation == kSlider_AutoOrient)
        return GetBounds().Height() > GetBounds().Width();
    return fLook.orientation == kSlider_Vertical;
}

Point CCustomSlider::ThumbMiddle(double value) const
{
    const Rect& bounds = GetBounds();
    const double share = fRange.ShareOf(value);
    if (IsVertical())
        return {(bounds.left + bounds.right) / 2,
                bounds.bottom - kEndRoom - share * std::max(bounds.Height() - 2 * kEndRoom, 0.0)};
    return {bounds.left + kEndRoom + share * std::max(bounds.Width() - 2 * kEndRoom, 0.0),
            (bounds.top + bounds.bottom) / 2};
}

double CCustomSlider::ValueAt(const Point& place) const
{
    const Rect& bounds = GetBounds();
    const bool vertical = IsVertical();
    const double along = vertical ? bounds.bottom - place.y : place.x - bounds.left;
    const double way = (vertical ? bounds.Height() : bounds.Width()) - 2 * kEndRoom;
    return way > 0.0 ? fRange.ValueAt((along - kEndRoom) / way) : fValue;
}

Point CCustomSlider::GripOf(const Point& press) const
{
    const Point middle = ThumbMiddle(fValue);
    const Point from{press.x - middle.x, press.y - middle.y};
    const bool isOnThumb = std::abs(IsVertical() ? from.y : from.x) <= kHalfThumb;
    return isOnThumb ? from : Point{};
}

// ----------------------------------------------------------------------------------------- Using

void CCustomSlider::PrimaryClick(const CMouseEvent& event)
{
    if (IsUsable())
        RunTracker(std::make_unique<CSliderTracker>(*this, event));
}

bool CCustomSlider::MouseWheel(const CMouseEvent& event)
{
    const double notches = event.fWheel.y != 0.0 ? event.fWheel.y : event.fWheel.x;
    if (!IsUsable() || notches == 0.0)
        return false;
    ChangeValue(StepFrom(fValue, notches * MinorIncrement()), fValue, CValueMessage::kPhase_Final);
    return true;
}

bool CCustomSlider::HandleKey(CKeyboardMessage& message)
{
    if (!IsBullseye() || !IsPlainKeyDown(message))
        return CDrawnControl::HandleKey(message);
    double to = fValue;
    if (message.fKeyCode == kKeyCode_Home) {
        to = fRange.first;
    } else if (message.fKeyCode == kKeyCode_End) {
        to = fRange.last;
    } else {
        const SKeyStep step = StepOf(message.fKeyCode);
        if (step.minor == 0.0 && step.major == 0.0)
            return CDrawnControl::HandleKey(message);
        const bool isMajor = (message.fModifiers & CMessage::kModifier_Shift) != 0;
        to = StepFrom(fValue, step.minor * (isMajor ? MajorIncrement() : MinorIncrement()) +
                                  step.major * MajorIncrement());
    }
    ChangeValue(to, fValue, CValueMessage::kPhase_Final);
    return true;
}

// --------------------------------------------------------------------------------------- Drawing

Rect CCustomSlider::GrooveRect() const
{
    const Rect& bounds = GetBounds();
    const double thick = fLook.HasWideGroove() ? kWideGroove : CWidgetSkin::kGrooveSize;
    if (IsVertical()) {
        const double left = bounds.left + std::floor((bounds.Width() - thick) / 2);
        return {left, bounds.top + 1.0, left + thick, bounds.bottom - 1.0};
    }
    const double top = bounds.top + std::floor((bounds.Height() - thick) / 2);
    return {bounds.left + 1.0, top, bounds.right - 1.0, top + thick};
}

// The part between where the fill begins and the thumb is in the accent.
void CCustomSlider::DrawGroove(CSystemPort& port) const
{
    const Rect groove = GrooveRect();
    const bool vertical = IsVertical();
    CWidgetSkin::DrawGroove(port, groove, vertical, 0.0, IsUsable());
    if (fLook.HasFill() && IsUsable())
        return DrawFill(port,
                        {groove.left + 1, groove.top + 1, groove.right - 1, groove.bottom - 1},
                        vertical, fLook);
    const double origin = FillOrigin();
    const Point from = ThumbMiddle(origin);
    const Point to = ThumbMiddle(fValue);
    Rect part = groove;
    if (vertical) {
        part.top = std::min(from.y, to.y);
        part.bottom = origin == fRange.first ? groove.bottom : std::max(from.y, to.y);
    } else {
        part.left = origin == fRange.first ? groove.left : std::min(from.x, to.x);
        part.right = std::max(from.x, to.x);
    }
    if (fValue != origin && !part.IsEmpty())
        port.Paint(RoundRect{part, CWidgetSkin::kGrooveSize / 2},
                   ToolColour(IsUsable() ? kColour_Accent : kColour_AccentDisabled));
}

// Below the groove, or right of it.
void CCustomSlider::DrawTick(CSystemPort& port, double value) const
{
    const Point middle = ThumbMiddle(value);
    const Rect& bounds = GetBounds();
    const double across = std::floor(IsVertical() ? middle.y : middle.x);
    const Rect tick =
        IsVertical() ? Rect{bounds.right - 1 - kTickLength, across, bounds.right - 1, across + 1}
                     : Rect{across, bounds.bottom - 1 - kTickLength, across + 1, bounds.bottom - 1};
    port.Paint(tick, ToolColour(IsUsable() ? kColour_Sign : kColour_BorderDisabled));
}

void CCustomSlider::DrawInContext(const CPaintEvent&)
{
    CSystemPort& port = *GetPort();
    if (fLook.tick)
        DrawTick(port, *fLook.tick);
    DrawGroove(port);
    const Point middle = ThumbMiddle(fValue);
    if (fLook.style == kSlider_Standard)
        CWidgetSkin::DrawSliderThumb(port, middle, GetDrawState());
    else
        CWidgetSkin::DrawSliderBlock(port, middle, IsVertical(), GetDrawState());
    if (ShowsFocus())
        CWidgetSkin::DrawFocusLine(port, GetBounds());
}

} // namespace Kesto
