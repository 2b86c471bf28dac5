#include "drawing/frames/widget_skin.h"

#include "drawing/ports/system_port.h"
#include "drawing/tools/draw_tools.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace Kesto {
namespace {

constexpr double kButtonRadius = 4.0;
constexpr double kRingRadius = 5.0;
constexpr double kRingWidth = 2.0;
constexpr double kFieldRadius = 3.0;
constexpr double kBoxRadius = 3.0;
constexpr double kBlockWidth = 8.0; // of a slider's block along its groove, and across
constexpr double kBlockLength = 16.0;

Rect Inset(const Rect& rect, double by)
{
    return {rect.left + by, rect.top + by, rect.right - by, rect.bottom - by};
}

Point Middle(const Rect& rect)
{
    return {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
}

Rect Around(const Point& middle, double width, double height)
{
    return {middle.x - width / 2, middle.y - height / 2, middle.x + width / 2,
            middle.y + height / 2};
}

bool IsOff(EButtonState state)
{
    return state == EButtonState::kDisabled || state == EButtonState::kDisactive;
}

// A body and its edge of 1 unit: the edge's shape filled, and the body's on it.
void PaintBody(CSystemPort& port, const Rect& frame, double radius, EColourRole edge,
               EColourRole body)
{
    port.Paint(RoundRect{frame, radius}, ToolColour(edge));
    port.Paint(RoundRect{Inset(frame, 1.0), std::max(radius - 1.0, 0.0)}, ToolColour(body));
}

// An edge on whatever ground there is.
void PaintEdge(CSystemPort& port, const Rect& frame, double radius, EColourRole edge, double width)
{
    port.Frame(RoundRect{frame, radius}, CPen{ToolColour(edge), width});
}

struct SBodyRoles {
    EColourRole edge;
    EColourRole body;
};

SBodyRoles ButtonRoles(EButtonState state)
{
    switch (state) {
    case EButtonState::kPress:
        return {kColour_Border, kColour_ButtonPressed};
    case EButtonState::kRollover:
        return {kColour_BorderHot, kColour_ButtonHot};
    case EButtonState::kInactive:
        return {kColour_Border, kColour_ButtonInactive};
    case EButtonState::kDisabled:
    case EButtonState::kDisactive:
        return {kColour_BorderDisabled, kColour_ButtonDisabled};
    case EButtonState::kNormal:
        break;
    }
    return {kColour_Border, kColour_Button};
}

// The body of a button in its room of 1 unit. A disabled one has no ground.
void PaintButtonBody(CSystemPort& port, const Rect& cell, EButtonState state)
{
    const Rect body = Inset(cell, 1.0);
    const SBodyRoles roles = ButtonRoles(state);
    if (IsOff(state)) {
        PaintEdge(port, body, kButtonRadius, roles.edge, 1.0);
        return;
    }
    PaintBody(port, body, kButtonRadius, roles.edge, roles.body);
    if (state == EButtonState::kPress) // sunken: the top edge is double
        port.Paint(Rect{body.left + 3, body.top + 1, body.right - 3, body.top + 2},
                   ToolColour(roles.edge));
}

// Of check boxes and radio buttons.
SBodyRoles BoxRoles(EButtonState state, bool marked)
{
    switch (state) {
    case EButtonState::kPress:
        return marked ? SBodyRoles{kColour_AccentPressed, kColour_AccentPressed}
                      : SBodyRoles{kColour_BoxEdge, kColour_ButtonPressed};
    case EButtonState::kRollover:
        return marked ? SBodyRoles{kColour_AccentEdge, kColour_AccentHot}
                      : SBodyRoles{kColour_BorderHot, kColour_Box};
    case EButtonState::kDisabled:
    case EButtonState::kDisactive:
        return marked ? SBodyRoles{kColour_AccentDisabled, kColour_AccentDisabled}
                      : SBodyRoles{kColour_BorderDisabled, kColour_ButtonDisabled};
    case EButtonState::kNormal:
    case EButtonState::kInactive:
        break;
    }
    return marked ? SBodyRoles{kColour_AccentEdge, kColour_Accent}
                  : SBodyRoles{kColour_BoxEdge, kColour_Box};
}

// A tick of even strength, in a box of 16 units scaled to this one.
void PaintTick(CSystemPort& port, const Rect& box, const Colour& colour)
{
    constexpr std::array<Point, 6> kTick{
        {{3.6, 8.2}, {5.0, 6.8}, {7.0, 8.8}, {11.2, 4.4}, {12.6, 5.8}, {7.0, 11.6}}};
    const double scale = box.Width() / CWidgetSkin::kBoxSize;
    std::array<Point, kTick.size()> corners;
    std::ranges::transform(kTick, corners.begin(), [&](const Point& corner) {
        return Point{box.left + corner.x * scale, box.top + corner.y * scale};
    });
    port.FillPolygon(corners, colour);
}

void PaintTriangle(CSystemPort& port, const Point& middle, double height, const Colour& colour)
{
    // 7 wide; a height above 0 points down.
    const std::array<Point, 3> corners{{{middle.x - 3.5, middle.y - height / 2},
                                        {middle.x + 3.5, middle.y - height / 2},
                                        {middle.x, middle.y + height / 2}}};
    port.FillPolygon(corners, colour);
}

// A square of whole pixels around a middle, so that what is round stays round at any position.
Rect SquareAt(const CSystemPort& port, const Point& middle, double side)
{
    const double scale = port.GetScaleFactor();
    const Point origin = port.GetWindowOrigin();
    const std::int32_t pixels = ToDevice(side, scale);
    const double left = RoundHalfAway((middle.x + origin.x) * scale - pixels / 2.0) / scale;
    const double top = RoundHalfAway((middle.y + origin.y) * scale - pixels / 2.0) / scale;
    return {left - origin.x, top - origin.y, left - origin.x + pixels / scale,
            top - origin.y + pixels / scale};
}

// The same number of pixels from each side.
Rect InsetByPixels(const CSystemPort& port, const Rect& rect, double by)
{
    return Inset(rect, ToDevice(by, port.GetScaleFactor()) / port.GetScaleFactor());
}

double Share(double filled)
{
    return std::isnan(filled) ? 0.0 : std::clamp(filled, 0.0, 1.0);
}

} // namespace

double CWidgetSkin::BaseLine(double cellHeight)
{
    return std::floor((cellHeight - kTextHeight) / 2) + 12.0;
}

EColourRole CWidgetSkin::LabelRole(EButtonState state)
{
    return IsOff(state) ? kColour_LabelDisabled : kColour_Label;
}

EColourRole CWidgetSkin::ButtonTextRole(EButtonState state)
{
    return IsOff(state) ? kColour_LabelDisabled : kColour_ButtonText;
}

void CWidgetSkin::DrawPushButton(CSystemPort& port, const Rect& cell, EButtonState state,
                                 bool isDefault, bool focused)
{
    PaintButtonBody(port, cell, state);
    if (isDefault && state == EButtonState::kNormal) {
        port.Paint(RoundRect{cell, kRingRadius}, ToolColour(kColour_DefaultRing));
        port.Paint(RoundRect{Inset(cell, kRingWidth), kRingRadius - kRingWidth},
                   ToolColour(kColour_Button));
    }
    if (focused && !IsOff(state) && state != EButtonState::kInactive)
        PaintEdge(port, Inset(cell, 1.0 + 3.0), 1.0, kColour_Focus, 1.0);
}

void CWidgetSkin::DrawToolButton(CSystemPort& port, const Rect& cell, EButtonState state, bool on)
{
    const bool isFlat = state != EButtonState::kPress && state != EButtonState::kRollover;
    if (on)
        PaintBody(port, Inset(cell, 1.0), kFieldRadius,
                  IsOff(state) ? kColour_BorderDisabled : kColour_AccentEdge,
                  kColour_ButtonPressed);
    else if (!isFlat)
        PaintButtonBody(port, cell, state);
}

void CWidgetSkin::DrawBevelButton(CSystemPort& port, const Rect& cell, EButtonState state, bool on)
{
    const bool sunken = on || state == EButtonState::kPress;
    const SBodyRoles roles = ButtonRoles(sunken && !IsOff(state) ? EButtonState::kPress : state);
    port.Paint(cell, ToolColour(sunken ? kColour_GroupDark : kColour_GroupLight));
    port.Paint(Rect{cell.left + 1, cell.top + 1, cell.right, cell.bottom},
               ToolColour(sunken ? kColour_GroupLight : kColour_GroupDark));
    port.Paint(Inset(cell, 1.0), ToolColour(roles.body));
}

void CWidgetSkin::DrawCheckBox(CSystemPort& port, const Rect& box, EButtonState state, EMark mark)
{
    const SBodyRoles roles = BoxRoles(state, mark != EMark::kNone);
    const Rect body = Inset(box, 1.0);
    if (IsOff(state) && mark == EMark::kNone)
        PaintEdge(port, body, kBoxRadius, roles.edge, 1.0);
    else
        PaintBody(port, body, kBoxRadius, roles.edge, roles.body);
    const Colour sign = ToolColour(kColour_AccentMark);
    if (mark == EMark::kOn)
        PaintTick(port, box, sign);
    else if (mark == EMark::kMixed)
        port.Paint(Around(Middle(box), box.Width() / 2, 2.0), sign);
}

void CWidgetSkin::DrawRadioButton(CSystemPort& port, const Rect& box, EButtonState state,
                                  EMark mark)
{
    const SBodyRoles roles = BoxRoles(state, mark != EMark::kNone);
    const Rect body = Inset(box, 1.0);
    if (IsOff(state) && mark == EMark::kNone) {
        port.Frame(Oval{body}, CPen{ToolColour(roles.edge), 1.0});
    } else {
        port.Paint(Oval{body}, ToolColour(roles.edge));
        port.Paint(Oval{Inset(body, 1.0)}, ToolColour(roles.body));
    }
    const double dot = box.Width() * 3 / 8;
    if (mark == EMark::kOn)
        port.Paint(Oval{Around(Middle(box), dot, dot)}, ToolColour(kColour_AccentMark));
    else if (mark == EMark::kMixed)
        port.Paint(Around(Middle(box), dot, 2.0), ToolColour(kColour_AccentMark));
}

void CWidgetSkin::DrawFocusLine(CSystemPort& port, const Rect& frame)
{
    PaintEdge(port, frame, 2.0, kColour_Focus, 1.0);
}

void CWidgetSkin::DrawField(CSystemPort& port, const Rect& cell, const SFieldLook& look)
{
    const Rect body = Inset(cell, 1.0);
    const EColourRole ground =
        look.enabled && !look.readOnly ? kColour_Field : kColour_FieldDisabled;
    if (look.enabled && (look.invalid || look.focused)) {
        port.Paint(RoundRect{cell, kFieldRadius + 1.0},
                   ToolColour(look.invalid ? kColour_Invalid : kColour_Focus));
        port.Paint(RoundRect{Inset(cell, kRingWidth), kFieldRadius - 1.0}, ToolColour(ground));
        return;
    }
    const EColourRole edge = !look.enabled ? kColour_BorderDisabled
                             : look.hot    ? kColour_BorderHot
                                           : kColour_Border;
    PaintBody(port, body, kFieldRadius, edge, ground);
}

void CWidgetSkin::DrawPopup(CSystemPort& port, const Rect& cell, EButtonState state, bool focused)
{
    PaintButtonBody(port, cell, state);
    if (focused && !IsOff(state) && state != EButtonState::kInactive) {
        port.Paint(RoundRect{cell, kRingRadius}, ToolColour(kColour_Focus));
        port.Paint(RoundRect{Inset(cell, kRingWidth), kRingRadius - kRingWidth},
                   ToolColour(ButtonRoles(state).body));
    }
    const Colour sign = ToolColour(IsOff(state) ? kColour_LabelDisabled : kColour_Sign);
    const Point middle{cell.right - 12.0, Middle(cell).y};
    PaintTriangle(port, {middle.x, middle.y - 4.0}, -4.0, sign);
    PaintTriangle(port, {middle.x, middle.y + 4.0}, 4.0, sign);
}

void CWidgetSkin::DrawGroove(CSystemPort& port, const Rect& groove, bool vertical, double filled,
                             bool enabled)
{
    const double radius = kGrooveSize / 2;
    PaintBody(port, groove, radius, enabled ? kColour_Border : kColour_BorderDisabled,
              kColour_Groove);
    const double part = Share(filled);
    if (part <= 0)
        return;
    // A vertical slider has its least value at the bottom.
    Rect full = groove;
    if (vertical)
        full.top = groove.bottom - groove.Height() * part;
    else
        full.right = groove.left + groove.Width() * part;
    port.Paint(RoundRect{full, radius},
               ToolColour(enabled ? kColour_Accent : kColour_AccentDisabled));
}

void CWidgetSkin::DrawSliderThumb(CSystemPort& port, const Point& middle, EButtonState state)
{
    const SBodyRoles roles = ButtonRoles(state);
    const Rect thumb = SquareAt(port, middle, kThumbSize);
    port.Paint(Oval{thumb}, ToolColour(IsOff(state) ? kColour_BorderDisabled : kColour_AccentEdge));
    port.Paint(Oval{InsetByPixels(port, thumb, 1.0)}, ToolColour(roles.body));
    if (!IsOff(state))
        port.Paint(Oval{InsetByPixels(port, thumb, 4.0)}, ToolColour(kColour_Accent));
}

void CWidgetSkin::DrawSliderBlock(CSystemPort& port, const Point& middle, bool vertical,
                                  EButtonState state)
{
    const double width = vertical ? kBlockLength : kBlockWidth;
    const double height = vertical ? kBlockWidth : kBlockLength;
    const EColourRole edge = IsOff(state) ? kColour_BorderDisabled : kColour_AccentEdge;
    PaintBody(port, Around(middle, width, height), kFieldRadius, edge, ButtonRoles(state).body);
}

void CWidgetSkin::DrawDial(CSystemPort& port, const Rect& frame, double angle, EButtonState state)
{
    constexpr double kPointer = 1.25; // half its width
    const double side = std::min(frame.Width(), frame.Height()) - 2.0;
    const Rect face = SquareAt(port, Middle(frame), side);
    const SBodyRoles roles = ButtonRoles(state);
    port.Paint(Oval{face}, ToolColour(roles.edge));
    port.Paint(Oval{InsetByPixels(port, face, 1.0)}, ToolColour(roles.body));
    const Point hub = Middle(face);
    const Point along{std::cos(angle), -std::sin(angle)};
    const Point across{-along.y * kPointer, along.x * kPointer};
    const auto at = [&](double share, double sideways) {
        return Point{hub.x + along.x * side / 2 * share + across.x * sideways,
                     hub.y + along.y * side / 2 * share + across.y * sideways};
    };
    const std::array<Point, 4> pointer{at(0.3, -1), at(0.85, -1), at(0.85, 1), at(0.3, 1)};
    port.FillPolygon(pointer,
                     ToolColour(IsOff(state) ? kColour_AccentDisabled : kColour_AccentEdge));
}

// An angle of even strength that points down, turned.
void CWidgetSkin::DrawArrow(CSystemPort& port, const Point& middle, EArrow arrow, bool enabled)
{
    constexpr std::array<Point, 6> kDown{
        {{-4.5, -1.5}, {-3.25, -2.75}, {0.0, 0.5}, {3.25, -2.75}, {4.5, -1.5}, {0.0, 3.0}}};
    const double turn = arrow == EArrow::kUp || arrow == EArrow::kLeft ? -1.0 : 1.0;
    const bool isFlat = arrow == EArrow::kLeft || arrow == EArrow::kRight;
    std::array<Point, kDown.size()> corners;
    std::ranges::transform(kDown, corners.begin(), [&](const Point& corner) {
        return isFlat ? Point{middle.x + turn * corner.y, middle.y + corner.x}
                      : Point{middle.x + corner.x, middle.y + turn * corner.y};
    });
    port.FillPolygon(corners, ToolColour(enabled ? kColour_Sign : kColour_LabelDisabled));
}

void CWidgetSkin::DrawProgress(CSystemPort& port, const Rect& bar, double filled, bool enabled)
{
    const double radius = bar.Height() / 2;
    PaintBody(port, bar, radius, enabled ? kColour_Border : kColour_BorderDisabled, kColour_Groove);
    const double part = Share(filled);
    if (part <= 0)
        return;
    Rect full = bar;
    full.right = std::max(bar.left + bar.Width() * part, bar.left + bar.Height());
    port.Paint(RoundRect{full, radius},
               ToolColour(enabled ? kColour_AccentEdge : kColour_AccentDisabled));
    port.Paint(RoundRect{Inset(full, 1.0), radius - 1.0},
               ToolColour(enabled ? kColour_Accent : kColour_AccentDisabled));
}

void CWidgetSkin::DrawScrollTrack(CSystemPort& port, const Rect& track)
{
    port.Paint(track, ToolColour(kColour_Track));
}

void CWidgetSkin::DrawScrollThumb(CSystemPort& port, const Rect& thumb, EButtonState state)
{
    if (IsOff(state))
        return;
    const bool isHot = state == EButtonState::kRollover || state == EButtonState::kPress;
    const double radius = std::min(thumb.Width(), thumb.Height()) / 2;
    port.Paint(RoundRect{thumb, radius}, ToolColour(isHot ? kColour_ThumbHot : kColour_Thumb));
}

void CWidgetSkin::DrawTab(CSystemPort& port, const Rect& tab, EButtonState state, bool front)
{
    constexpr double kBackDrop = 3.0;
    constexpr double kRadius = 3.0;
    Rect body = tab;
    body.top += front ? 0.0 : kBackDrop;
    // Rounded at the top alone: the shape goes on below the tab, and is cut off there.
    port.SaveState();
    port.IntersectClip(front ? Rect{tab.left, tab.top, tab.right, tab.bottom + 1.0} : tab);
    const Rect shape{body.left, body.top, body.right, body.bottom + 2 * kRadius};
    const EColourRole edge = state == EButtonState::kRollover ? kColour_BorderHot : kColour_Border;
    PaintBody(port, shape, kRadius, edge, front ? kColour_TabFront : kColour_TabBack);
    if (front)
        port.Paint(Rect{body.left + 1, body.top, body.right - 1, body.top + 2},
                   ToolColour(IsOff(state) ? kColour_AccentDisabled : kColour_Accent));
    port.RestoreState();
}

void CWidgetSkin::DrawTabPane(CSystemPort& port, const Rect& pane)
{
    port.Paint(pane, ToolColour(kColour_Border));
    port.Paint(Inset(pane, 1.0), ToolColour(kColour_Panel));
}

void CWidgetSkin::DrawTip(CSystemPort& port, const Rect& frame)
{
    PaintBody(port, frame, 2.0, kColour_TipEdge, kColour_Tip);
}

} // namespace Kesto
