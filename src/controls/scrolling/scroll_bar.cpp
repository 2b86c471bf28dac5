#include "controls/scrolling/scroll_bar.h"

#include "controls/scrolling/scroll_bar_tracker.h"
#include "drawing/frames/widget_skin.h"
#include "drawing/ports/system_port.h"
#include "drawing/tools/draw_tools.h"

#include <algorithm>
#include <cmath>

namespace Kesto {

namespace {

constexpr double kLine = 16.0;      // of text
constexpr double kWheelLines = 3.0; // in a notch
constexpr double kPageShare = 0.9;  // some of what was seen is seen again
constexpr double kThumbRoom = 3.5;  // beside the thumb, to each edge of the bar
constexpr double kSmallThumb = 2.5; // the same of a small bar

EArrow ArrowOf(EScrollPart part, bool vertical)
{
    if (part == kScrollPart_ButtonBack)
        return vertical ? EArrow::kUp : EArrow::kLeft;
    return vertical ? EArrow::kDown : EArrow::kRight;
}

} // namespace

CScrollBar::CScrollBar(const Rect& frame, CObjID id, std::uint32_t options, std::uint32_t binding)
    : CDrawnControl(frame, id, options | kView_NoFocusOnClick | kView_SupressSurrenders, binding)
{
}

bool CScrollBar::IsVertical() const
{
    if (fOrientation == kControlOrient_Horizontal || fOrientation == kControlOrient_Vertical)
        return fOrientation == kControlOrient_Vertical;
    return GetBounds().Height() > GetBounds().Width();
}

void CScrollBar::SetOrientation(EControlOrientation orientation)
{
    fOrientation = orientation;
    InvalidateAll();
}

void CScrollBar::SetValue(double value)
{
    value = fRange.Pinned(value);
    if (value == fValue || std::isnan(value))
        return;
    fValue = value;
    InvalidateAll();
}

void CScrollBar::SetRange(double first, double last, double page)
{
    if (!std::isfinite(first) || !std::isfinite(last) || !std::isfinite(page))
        return;
    if (first == fRange.first && last == fRange.last && page == fPage)
        return;
    fRange = {first, last};
    fPage = page;
    fValue = fRange.Pinned(fValue);
    InvalidateAll();
}

void CScrollBar::SetIncrements(double button, double page)
{
    fButtonIncrement = button;
    fPageIncrement = page;
}

// ------------------------------------------------------------------------------------- Geometry

double CScrollBar::Length() const
{
    return IsVertical() ? GetBounds().Height() : GetBounds().Width();
}

double CScrollBar::Along(const Point& local) const
{
    const Rect& bounds = GetBounds();
    return IsVertical() ? local.y - bounds.top : local.x - bounds.left;
}

double CScrollBar::ButtonLength() const
{
    const double across = IsVertical() ? GetBounds().Width() : GetBounds().Height();
    return std::min(across, std::floor(Length() / 2));
}

SScrollTrack CScrollBar::Track() const
{
    return {std::max(Length() - 2 * ButtonLength(), 0.0), fRange.High() - fRange.Low(), fPage};
}

double CScrollBar::ThumbBegin() const
{
    const double distance = std::abs(fValue - fRange.first);
    return ButtonLength() + Track().ThumbStart(distance);
}

double CScrollBar::ValueOfThumb(double along) const
{
    const double distance = Track().DistanceAt(along - ButtonLength());
    return fRange.Pinned(fRange.first < fRange.last ? fRange.first + distance
                                                    : fRange.first - distance);
}

Rect CScrollBar::Stretch(double from, double to) const
{
    const Rect& bounds = GetBounds();
    if (IsVertical())
        return {bounds.left, bounds.top + from, bounds.right, bounds.top + to};
    return {bounds.left + from, bounds.top, bounds.left + to, bounds.bottom};
}

Rect CScrollBar::PartRect(EScrollPart part) const
{
    const double button = ButtonLength();
    const double end = Length();
    if (part == kScrollPart_ButtonBack)
        return Stretch(0.0, button);
    if (part == kScrollPart_ButtonForward)
        return Stretch(end - button, end);
    const SScrollTrack track = Track();
    if (!track.HasThumb())
        return {};
    const double from = ThumbBegin();
    const double to = from + track.ThumbLength();
    switch (part) {
    case kScrollPart_PageBack:
        return Stretch(button, from);
    case kScrollPart_Thumb:
        return Stretch(from, to);
    case kScrollPart_PageForward:
        return Stretch(to, end - button);
    default:
        return {};
    }
}

EScrollPart CScrollBar::PartAt(const Point& local) const
{
    for (const EScrollPart part : {kScrollPart_ButtonBack, kScrollPart_PageBack, kScrollPart_Thumb,
                                   kScrollPart_PageForward, kScrollPart_ButtonForward}) {
        const Rect rect = PartRect(part);
        if (local.x >= rect.left && local.x < rect.right && local.y >= rect.top &&
            local.y < rect.bottom)
            return part;
    }
    return kScrollPart_None;
}

// ---------------------------------------------------------------------------------------- Using

void CScrollBar::ScrollToValue(double value, EScrollPart part)
{
    value = fRange.Pinned(value);
    const double delta = value - fValue;
    if (delta == 0.0 || std::isnan(delta))
        return;
    SetValue(value);
    CScrollMessage message(this, GetID(), delta, part);
    Send(message);
}

void CScrollBar::UsePart(EScrollPart part)
{
    const double line = fButtonIncrement > 0.0 ? fButtonIncrement : kLine;
    // Less than what shows, so that some of it stays in sight.
    const double page = fPageIncrement > 0.0 ? fPageIncrement
                        : fPage > 0.0        ? std::max(fPage * kPageShare, line)
                                             : fRange.NaturalStep() * 10;
    const double forward = fRange.first <= fRange.last ? 1.0 : -1.0;
    switch (part) {
    case kScrollPart_ButtonBack:
        return ScrollToValue(fValue - line * forward, part);
    case kScrollPart_ButtonForward:
        return ScrollToValue(fValue + line * forward, part);
    case kScrollPart_PageBack:
        return ScrollToValue(fValue - page * forward, part);
    case kScrollPart_PageForward:
        return ScrollToValue(fValue + page * forward, part);
    default:
        return;
    }
}

void CScrollBar::SetPressedPart(EScrollPart part)
{
    if (part == fPressedPart)
        return;
    fPressedPart = part;
    InvalidateAll();
}

void CScrollBar::PrimaryClick(const CMouseEvent& event)
{
    const EScrollPart part = PartAt(PortToLocal(event.fPortPoint));
    if (IsUsable() && part != kScrollPart_None)
        RunTracker(std::make_unique<CScrollBarTracker>(*this, part, event));
}

void CScrollBar::MouseOver(const CMouseEvent& event)
{
    const EScrollPart part = PartAt(PortToLocal(event.fPortPoint));
    if (part == fHotPart)
        return;
    fHotPart = part;
    InvalidateAll();
}

void CScrollBar::MouseExit()
{
    fHotPart = kScrollPart_None;
    CDrawnControl::MouseExit();
}

// A horizontal bar is turned by either wheel.
bool CScrollBar::MouseWheel(const CMouseEvent& event)
{
    const double notches = IsVertical() || event.fWheel.x == 0.0 ? -event.fWheel.y : event.fWheel.x;
    if (!IsUsable() || notches == 0.0 || fRange.first == fRange.last)
        return false;
    const double line = fButtonIncrement > 0.0 ? fButtonIncrement : kLine;
    const double forward = fRange.first < fRange.last ? 1.0 : -1.0;
    ScrollToValue(fValue + notches * kWheelLines * line * forward, kScrollPart_Wheel);
    return true;
}

// -------------------------------------------------------------------------------------- Drawing

EButtonState CScrollBar::StateOf(EScrollPart part) const
{
    const bool usable = IsUsable() && fRange.first != fRange.last;
    return ButtonStateOf(true, usable, fPressedPart == part, fHotPart == part);
}

void CScrollBar::DrawArrow(CSystemPort& port, EScrollPart part) const
{
    const Rect rect = PartRect(part);
    if (StateOf(part) == EButtonState::kPress)
        port.Paint(rect, ToolColour(kColour_ButtonPressed));
    CWidgetSkin::DrawArrow(port, {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2},
                           ArrowOf(part, IsVertical()), StateOf(part) != EButtonState::kDisabled);
}

void CScrollBar::DrawInContext(const CPaintEvent&)
{
    CSystemPort& port = *GetPort();
    CWidgetSkin::DrawScrollTrack(port, GetBounds());
    DrawArrow(port, kScrollPart_ButtonBack);
    DrawArrow(port, kScrollPart_ButtonForward);
    Rect thumb = PartRect(kScrollPart_Thumb);
    if (thumb.IsEmpty())
        return;
    const bool vertical = IsVertical();
    // A bar that is narrower than usual has little to spare beside its thumb.
    const double room =
        (vertical ? thumb.Width() : thumb.Height()) < kWidth ? kSmallThumb : kThumbRoom;
    if (vertical)
        thumb = {thumb.left + room, thumb.top, thumb.right - room, thumb.bottom};
    else
        thumb = {thumb.left, thumb.top + room, thumb.right, thumb.bottom - room};
    CWidgetSkin::DrawScrollThumb(port, thumb, StateOf(kScrollPart_Thumb));
}

} // namespace Kesto
