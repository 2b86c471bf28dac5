#include "controls/sliders/edit_slider.h"

#include "controls/sliders/orlen_slider.h"
#include "view/messages/message_ids.h"
#include "view/tree/view_hold.h"

#include <algorithm>
#include <cmath>

namespace Kesto {

namespace {

constexpr double kNaturalSlider = 120.0;

std::unique_ptr<CCustomSlider> OrPlain(std::unique_ptr<CCustomSlider> slider)
{
    return slider != nullptr ? std::move(slider) : std::make_unique<CCustomSlider>();
}

} // namespace

CEditSlider::CEditSlider(const Rect& frame, CObjID id, std::uint32_t options, std::uint32_t binding,
                         std::unique_ptr<CCustomSlider> slider)
    : CPane(frame, id, options | kView_Target, binding),
      fField(AppendChild(std::make_unique<CEditNumber>(Rect{}, kEditSlider_Edit))),
      fSlider(AppendChild(OrPlain(std::move(slider)))),
      fLabel(AppendChild(std::make_unique<CStaticText>(Rect{}, kEditSlider_Text)))
{
    fSlider->SetID(kEditSlider_Slider);
    fLabel->SetScrubId(kEditSlider_Edit);
    Arrange();
}

void CEditSlider::SetValue(double value)
{
    if (std::isnan(value))
        return;
    fField->SetValue(value);
    fValue = fField->GetValue();
    fSlider->SetValue(fValue);
}

void CEditSlider::SetArrangement(EEditPosition position, double fieldWidth)
{
    fPosition = position;
    fFieldWidth = fieldWidth;
    Arrange();
}

void CEditSlider::SetLabel(const CText& label, EFontKind font, double width)
{
    StaticTextStyle style = fLabel->GetStyle();
    style.font = font;
    fLabel->SetStyle(style);
    fLabel->SetText(label);
    fLabelWidth = width;
    Arrange();
}

Point CEditSlider::SizeOf(EEditPosition position, double fieldWidth, double labelWidth)
{
    const double label = labelWidth > 0.0 ? labelWidth + kGap : 0.0;
    if (position == kPosEdit_Above)
        return {std::max(label + fieldWidth, kNaturalSlider),
                kFieldHeight + CCustomSlider::kThickness};
    return {label + kNaturalSlider + kGap + fieldWidth, kFieldHeight};
}

void CEditSlider::DidResize()
{
    const CViewHold hold(*this);
    CPane::DidResize();
    if (!hold.IsOver())
        Arrange();
}

// Label, slider, field; or the slider below the other two.
void CEditSlider::Arrange()
{
    const Rect& all = GetBounds();
    const double fieldLeft = std::max(all.right - fFieldWidth, all.left);
    const double labelRight = std::min(all.left + fLabelWidth, fieldLeft);
    fField->SetFrame({fieldLeft, all.top, all.right, all.top + kFieldHeight});
    const bool isAbove = fPosition == kPosEdit_Above;
    fLabel->SetFrame({all.left, all.top,
                      isAbove ? std::max(fieldLeft - kGap, all.left) : labelRight,
                      all.top + kFieldHeight});
    if (isAbove) {
        fSlider->SetFrame({all.left, all.top + kFieldHeight, all.right,
                           all.top + kFieldHeight + CCustomSlider::kThickness});
        return;
    }
    const double left = fLabelWidth > 0.0 ? labelRight + kGap : all.left;
    const double top = all.top + (kFieldHeight - CCustomSlider::kThickness) / 2;
    fSlider->SetFrame(
        {left, top, std::max(fieldLeft - kGap, left), top + CCustomSlider::kThickness});
}

void CEditSlider::SendNumber(double oldValue, double startValue, std::uint32_t phase)
{
    if (GetID().IsNone())
        return;
    CValMsg<CNumber> message(this, GetID(), fValue, oldValue, startValue, phase);
    Send(message);
}

bool CEditSlider::HandleValue(CValueMessage& message)
{
    const auto* const number = dynamic_cast<CValMsg<CNumber>*>(&message);
    if (number == nullptr || (message.fSource != fField && message.fSource != fSlider))
        return CPane::HandleValue(message);
    const CViewHold hold(*this);
    if (message.fSource == fField)
        TakeFromField(*number);
    else
        TakeFromSlider(*number);
    return true;
}

void CEditSlider::TakeFromField(const CValMsg<CNumber>& message)
{
    fValue = message.fValue;
    fSlider->SetValue(fValue);
    SendNumber(message.fOldValue, message.fStartValue, message.fPhase);
}

// Values that the field shows alike are one.
void CEditSlider::TakeFromSlider(const CValMsg<CNumber>& message)
{
    bool isNumber = false;
    const double shown = fField->TextToValue(fField->ValueToText(message.fValue), isNumber);
    const double old = fValue;
    SetValue(isNumber ? shown : message.fValue);
    if (fValue != old ||
        (message.fPhase == CValueMessage::kPhase_Final && message.fStartValue != message.fValue))
        SendNumber(message.fOldValue, message.fStartValue, message.fPhase);
}

} // namespace Kesto

namespace Project {

PEditSlider::PEditSlider(const Kesto::Rect& frame, Kesto::CObjID id, std::uint32_t options,
                         std::uint32_t binding)
    : CEditSlider(frame, id, options, binding, std::make_unique<Kesto::COrlenSlider>())
{
}

} // namespace Project
