#include "controls/buttons/button_graphic.h"

#include "controls/base/label_text.h"
#include "controls/buttons/button_looks.h"
#include "drawing/frames/widget_skin.h"
#include "drawing/ports/system_port.h"
#include "drawing/tools/draw_tools.h"
#include "foundation/base/service.h"

#include <algorithm>
#include <cmath>

namespace Kesto {
namespace {

// Units between a box and its label.
constexpr double kBoxGap = 4.0;
constexpr double kSmallBox = 12.0;
constexpr double kFocusRoom = 4.0; // after a label, for the line around it all

constexpr double kLeastPushWidth = 72.0;

bool IsPush(EButtonStyle style)
{
    return style == kButtonStyle_Default || style == kButtonStyle_Push;
}

// The label lies within a body, rather than beside a box.
bool HasBody(EButtonStyle style)
{
    return IsPush(style) || style == kButtonStyle_Bevel || style == kButtonStyle_Tool;
}

bool IsSmall(EButtonStyle style)
{
    return style == kButtonStyle_SmallCheck || style == kButtonStyle_SmallRadio ||
           style == kButtonStyle_SmallRound;
}

bool IsCheck(EButtonStyle style)
{
    return style == kButtonStyle_Check || style == kButtonStyle_SmallCheck;
}

double BoxSize(EButtonStyle style)
{
    return IsSmall(style) ? kSmallBox : CWidgetSkin::kBoxSize;
}

EMark MarkOf(EButtonValue value)
{
    switch (value) {
    case kOn:
        return EMark::kOn;
    case kNeutral:
        return EMark::kMixed;
    default:
        return EMark::kNone;
    }
}

using Draw = void (CButtonGraphic::*)(CSystemPort&);

// By state and value.
constexpr Draw kDraws[kButtonStateCount][3] = {
    {&CButtonGraphic::DrawNormalOff, &CButtonGraphic::DrawNormalOn,
     &CButtonGraphic::DrawNormalNeutral},
    {&CButtonGraphic::DrawPressOff, &CButtonGraphic::DrawPressOn,
     &CButtonGraphic::DrawPressNeutral},
    {&CButtonGraphic::DrawRolloverOff, &CButtonGraphic::DrawRolloverOn,
     &CButtonGraphic::DrawRolloverNeutral},
    {&CButtonGraphic::DrawDisabledOff, &CButtonGraphic::DrawDisabledOn,
     &CButtonGraphic::DrawDisabledNeutral},
    {&CButtonGraphic::DrawInactiveOff, &CButtonGraphic::DrawInactiveOn,
     &CButtonGraphic::DrawInactiveNeutral},
    {&CButtonGraphic::DrawDisactiveOff, &CButtonGraphic::DrawDisactiveOn,
     &CButtonGraphic::DrawDisactiveNeutral},
};

} // namespace

CButtonGraphic::CButtonGraphic(CView* owner, EButtonStyle style, CText label)
    : fOwner(owner), fStyle(style), fLabel(std::move(label))
{
}

void CButtonGraphic::Draw(CSystemPort& port)
{
    if (fIsDefault && fState == EButtonState::kNormal)
        return DrawDefaultRing(port);
    const auto state = std::min(static_cast<std::uint32_t>(fState), kButtonStateCount);
    const bool isKnown = state < kButtonStateCount;
    const auto value = fValue >= kOff && fValue <= kNeutral ? fValue : kOff;
    (this->*kDraws[isKnown ? state : 0][value])(port);
}

void CButtonGraphic::GetInsets(Rect& insets) const
{
    insets = IsPush(fStyle) ? Rect{12, 4, 12, 4} : Rect{BoxSize(fStyle) + kBoxGap, 2, 0, 2};
}

Rect CButtonGraphic::GetDefaultInsets() const
{
    Rect insets;
    GetInsets(insets);
    return insets;
}

double CButtonGraphic::GetWidth() const
{
    Rect insets;
    GetInsets(insets);
    const double width = GetContentWidth() + insets.left + insets.right;
    return IsPush(fStyle) ? std::max(width, kLeastPushWidth) : width;
}

double CButtonGraphic::GetHeight() const
{
    Rect insets;
    GetInsets(insets);
    return GetContentHeight() + insets.top + insets.bottom;
}

double CButtonGraphic::GetContentWidth() const
{
    const double label = MeasureLabel(fLabel.View(), fFont, fOwner);
    const bool hasLine = !HasBody(fStyle) && fStyle != kButtonStyle_None && !fLabel.IsEmpty();
    return hasLine ? label + kFocusRoom : label;
}

double CButtonGraphic::GetContentHeight() const
{
    return CWidgetSkin::kTextHeight;
}

void CButtonGraphic::DrawDefaultRing(CSystemPort& port)
{
    if (!IsPush(fStyle))
        return DrawLook(port, EButtonState::kNormal, fValue);
    CWidgetSkin::DrawPushButton(port, fFrame, EButtonState::kNormal, true, fFocused);
    DrawLabel(port, EButtonState::kNormal, fFrame);
}

void CButtonGraphic::DrawLook(CSystemPort& port, EButtonState state, EButtonValue value)
{
    if (IsPush(fStyle)) {
        CWidgetSkin::DrawPushButton(port, fFrame, state, false, fFocused);
        return DrawLabel(port, state, fFrame);
    }
    const double size = BoxSize(fStyle);
    const double top = fFrame.top + std::floor((fFrame.Height() - size) / 2);
    const Rect box{fFrame.left, top, fFrame.left + size, top + size};
    if (IsCheck(fStyle))
        CWidgetSkin::DrawCheckBox(port, box, state, MarkOf(value));
    else
        CWidgetSkin::DrawRadioButton(port, box, state, MarkOf(value));
    DrawLabel(port, state, {box.right + kBoxGap, fFrame.top, fFrame.right, fFrame.bottom});
    DrawFocus(port, 0.0);
}

void CButtonGraphic::DrawFocus(CSystemPort& port, double inset) const
{
    if (fFocused)
        CWidgetSkin::DrawFocusLine(port, {fFrame.left + inset, fFrame.top + inset,
                                          fFrame.right - inset, fFrame.bottom - inset});
}

void CButtonGraphic::DrawLabel(CSystemPort& port, EButtonState state, const Rect& frame)
{
    if (fLabel.IsEmpty())
        return;
    const bool push = HasBody(fStyle);
    port.SetFont(CDrawTools::Get().GetFont(fFont));
    port.SetTextColour(
        ToolColour(push ? CWidgetSkin::ButtonTextRole(state) : CWidgetSkin::LabelRole(state)));
    Rect insets;
    GetInsets(insets);
    const double shift = push ? CWidgetSkin::PressedShift(state) : 0.0;
    DrawLabelLine(port, fLabel.View(),
                  {push ? frame.left + 2 : frame.left, frame.top + shift,
                   frame.right - fTail - (push ? 2 : 0), frame.bottom + shift},
                  (push ? kText_Centred : kText_Left) | kText_Ellipsis |
                      (fCues ? kText_Mnemonic : kText_HideMnemonic));
}

CButtonGraphics::CButtonGraphics()
{
    Register("CButtonGraphic", MakeLook<CButtonGraphic>);
    Register("CBevelButtonGraphic", MakeLook<CBevelButtonGraphic>);
    Register("CDisclosureButtonGraphic", MakeLook<CDisclosureButtonGraphic>);
    Register("CToolButtonGraphic", MakeLook<CToolButtonGraphic>);
    Register("CEmptyButtonGraphic", MakeLook<CEmptyButtonGraphic>);
}

CButtonGraphics& CButtonGraphics::Get()
{
    return *CServiceT<CButtonGraphics>::Get();
}

void CButtonGraphics::Register(std::string name, Factory factory)
{
    fFactories.insert_or_assign(std::move(name), std::move(factory));
}

std::unique_ptr<CButtonGraphic> CButtonGraphics::Make(std::string_view name, CView* owner,
                                                      EButtonStyle style, const CText& label) const
{
    const auto found = fFactories.find(name);
    return found != fFactories.end() ? found->second(owner, style, label) : nullptr;
}

std::string_view CButtonGraphics::ClassOf(EButtonStyle style)
{
    switch (style) {
    case kButtonStyle_Bevel:
        return "CBevelButtonGraphic";
    case kButtonStyle_Disclosure:
        return "CDisclosureButtonGraphic";
    case kButtonStyle_Tool:
        return "CToolButtonGraphic";
    case kButtonStyle_None:
        return "CEmptyButtonGraphic";
    default:
        return "CButtonGraphic";
    }
}

} // namespace Kesto
