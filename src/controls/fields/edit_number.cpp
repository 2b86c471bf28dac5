#include "controls/fields/edit_number.h"

#include "platform/system/locale.h"
#include "view/messages/key_codes.h"
#include "view/messages/message_ids.h"
#include "view/tree/context.h"
#include "view/tree/view_hold.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

namespace Kesto {

CEditNumber::CEditNumber(const Rect& frame, CObjID id, std::uint32_t options, std::uint32_t binding)
    : CEditString(frame, id, options, binding)
{
    PutTextFlag(kText_IsNumber, true);
    fRules.decimalPoint = Platform::DecimalPoint();
    ShowValue();
}

CText CEditNumber::ValueToText(double value) const
{
    return fRules.ValueToText(value);
}

double CEditNumber::TextToValue(const CText& text, bool& ok) const
{
    const std::optional<double> value = fRules.TextToValue(text.View());
    ok = value.has_value();
    return value.value_or(fValue);
}

std::optional<double> CEditNumber::Reading() const
{
    if (fIndeterminate)
        return fValue;
    const CText text = GetText();
    double value = fValue;
    bool ok = false;
    if (fParser != nullptr)
        ok = fParser(text, value, fParserData);
    else
        value = TextToValue(text, ok);
    return ok && !std::isnan(value) ? std::optional(value) : std::nullopt;
}

double CEditNumber::ReadText() const
{
    return Reading().value_or(fValue);
}

double CEditNumber::ReadAndClamp() const
{
    return fRules.Clamp(ReadText());
}

// What the field wrote itself is good: rounded, a limit may read as beyond itself.
bool CEditNumber::IsTextInRange() const
{
    return fIndeterminate || GetText() == fShown || fRules.IsInRange(ReadText());
}

bool CEditNumber::IsTextValid() const
{
    return Reading().has_value();
}

bool CEditNumber::LooksInvalid() const
{
    return !IsTextValid() || !IsTextInRange();
}

void CEditNumber::SetValue(double value)
{
    fValue = fRules.Clamp(value);
    ShowValue();
}

// What the field writes itself is no news.
void CEditNumber::ShowValue()
{
    CText text;
    if (!fIndeterminate && (fFormatter == nullptr || !fFormatter(fValue, text, fFormatterData)))
        text = ValueToText(fValue);
    PutText(text);
    fShown = text;
    fLive = ReadAndClamp();
}

void CEditNumber::SetMinimum(double minimum)
{
    SetRange(minimum, fRules.maximum);
}

void CEditNumber::SetMaximum(double maximum)
{
    SetRange(fRules.minimum, maximum);
}

void CEditNumber::SetRange(double minimum, double maximum)
{
    SetValueAndRange(fValue, minimum, maximum);
}

void CEditNumber::SetValueAndRange(double value, double minimum, double maximum)
{
    fRules.minimum = minimum;
    fRules.maximum = maximum;
    SetValue(value);
}

void CEditNumber::SetIndeterminate(bool on)
{
    if (fIndeterminate == on)
        return;
    fIndeterminate = on;
    ShowValue();
    if (on)
        ResignBullseye(true);
}

// What was typed is kept; what the field wrote itself may read as less than the value is.
void CEditNumber::PutFormat(std::uint32_t bit, bool on)
{
    const double value = IsEdited() ? ReadAndClamp() : fValue;
    fRules.format = on ? fRules.format | bit : fRules.format & ~bit;
    SetValue(value);
}

void CEditNumber::SetDecimal(bool on)
{
    PutFormat(kNumber_Decimal, on);
}

void CEditNumber::SetFixedDecimal(bool on)
{
    PutFormat(kNumber_FixedDecimal, on);
}

void CEditNumber::SetPadInteger(bool on)
{
    PutFormat(kNumber_PadInteger, on);
}

void CEditNumber::SetShowPlus(bool on)
{
    PutFormat(kNumber_ShowPlus, on);
}

void CEditNumber::SetWrapAround(bool on)
{
    PutFormat(kNumber_WrapAround, on);
}

void CEditNumber::SetDigits(std::int32_t digits)
{
    fRules.digits = digits;
    PutFormat(0, true);
}

void CEditNumber::SetNumberFormat(std::uint32_t format)
{
    fRules.format = format;
    PutFormat(0, true);
}

void CEditNumber::SetNoExpressions(bool on)
{
    fRules.noExpressions = on;
    PutFormat(0, true);
}

void CEditNumber::SetFormatter(Formatter formatter, void* data)
{
    fFormatter = formatter;
    fFormatterData = data;
    PutFormat(0, true);
}

void CEditNumber::SetParser(Parser parser, void* data)
{
    fParser = parser;
    fParserData = data;
}

void CEditNumber::SetIncrements(double minor, double major)
{
    fMinorIncrement = minor;
    fMajorIncrement = major;
}

double CEditNumber::Step(double value, double delta) const
{
    return fRules.Step(value, delta);
}

void CEditNumber::StepUp(double delta)
{
    const double old = fValue;
    const double next = Step(old, delta);
    if (next == old)
        return;
    const CViewHold hold(*this);
    fIndeterminate = false;
    SetValue(next);
    SelectAll();
    if (IsVisible())
        InvalidateAll(true);
    if (!hold.IsOver())
        SendNumber(kPhase_Step, fValue, old, old);
}

bool CEditNumber::FilterKey(const CKeyboardMessage& message) const
{
    const Platform::TextRange selection = GetSelection();
    return CEditString::FilterKey(message) &&
           fRules.LetsIn(message.fChar, std::min(selection.from, selection.to) == 0);
}

void CEditNumber::HandleFieldKey(CKeyboardMessage& message, bool& eaten)
{
    constexpr std::uint32_t kOthers = CMessage::kModifier_Control | CMessage::kModifier_Alt;
    const bool isUp = message.fKeyCode == kKeyCode_Up;
    if (message.fID != kMessage_KeyDown || (!isUp && message.fKeyCode != kKeyCode_Down) ||
        (message.fModifiers & kOthers) != 0 || HasTextOption(kEdit_ReadOnly)) {
        CEditString::HandleFieldKey(message, eaten);
        return;
    }
    const bool isMajor = (message.fModifiers & CMessage::kModifier_Shift) != 0;
    const double delta = isMajor ? fMajorIncrement : fMinorIncrement;
    eaten = true;
    if (isUp)
        StepUp(delta);
    else
        StepDown(delta);
}

void CEditNumber::TextWasEdited()
{
    fIndeterminate = false;
    CEditString::TextWasEdited();
}

void CEditNumber::PrimaryClick(const CMouseEvent&)
{
    if (!fIndeterminate || !IsUsable() || !IsActive())
        return;
    const CViewHold hold(*this);
    SetIndeterminate(false);
    InvalidateAll(true);
    if (!hold.IsOver())
        SendNumber(kPhase_Return, fValue, fValue, fValue);
}

// Once for each change of what the text reads; a text that reads as nothing changes nothing.
void CEditNumber::CheckLiveValue()
{
    if (HasTextOption(kText_AlertIsUp) || GetID().IsNone())
        return;
    const std::optional<double> reading = Reading();
    if (!reading)
        return;
    const double value = fRules.Clamp(*reading);
    if (std::exchange(fLive, value) != value)
        SendNumber(kPhase_Live, value, fValue, fValue);
}

bool CEditNumber::CommitWith(std::uint32_t phase, bool mayAlert)
{
    const CViewHold hold(*this);
    const bool inRange = IsTextInRange();
    const bool valid = IsTextValid();
    const double old = fValue;
    SetValue(ReadText());
    if (HasTextOption(kText_NoCommit))
        return true;
    // The field has its good text before the alert, a window in which anything may happen to it.
    bool lets = true;
    if (mayAlert && !inRange)
        lets = !ShowRangeAlert();
    else if (mayAlert && !valid)
        lets = !ShowInvalidAlert();
    if (hold.IsOver())
        return lets;
    if (!fIndeterminate)
        SendNumber(phase, fValue, old, old);
    if (!lets && !hold.IsOver())
        SelectAll();
    return lets;
}

bool CEditNumber::CanSurrender(bool force)
{
    const bool inRange = IsTextInRange();
    const bool valid = IsTextValid();
    if (inRange && valid)
        return true;
    const CViewHold hold(*this);
    SetValue(ReadText());
    if (force || !(inRange ? ShowInvalidAlert() : ShowRangeAlert()))
        return true;
    if (!hold.IsOver())
        SelectAll();
    return false;
}

void CEditNumber::SendNumber(std::uint32_t phase, double value, double oldValue, double startValue)
{
    if (GetID().IsNone())
        return;
    CValMsg<CNumber> message(this, GetID(), value, oldValue, startValue, phase);
    Send(message);
}

bool CEditNumber::Scrub(double factor, const CMouseEvent& event, std::uint32_t phase,
                        bool takeFocus)
{
    const CViewHold hold(*this);
    if (phase != kPhase_Scrub && phase != kPhase_ScrubEnd)
        fScrubStart = fValue;
    const CMessenger* const window = GetContext();
    if (takeFocus && window != nullptr && window->IsTarget() && !IsBullseye() &&
        !BecomeBullseye(SupressSurrenders()))
        return false;
    const double old = fValue;
    switch (phase) {
    case kPhase_ScrubBegin:
        SendNumber(phase, fValue, fValue, fValue);
        return true;
    case kPhase_ScrubEnd:
        SendNumber(phase, fValue, fScrubStart, fScrubStart);
        // A drag is one change, however many values it went through.
        if (!hold.IsOver() && fValue != fScrubStart)
            SendNumber(kPhase_Return, fValue, fScrubStart, fScrubStart);
        return true;
    default:
        break;
    }
    const bool isMajor = (event.fModifiers & CMessage::kModifier_Shift) != 0;
    const double next = Step(fValue, factor * (isMajor ? fMajorIncrement : fMinorIncrement));
    if (next == old)
        return true;
    fIndeterminate = false;
    SetValue(next);
    if (IsVisible()) {
        SelectAll();
        InvalidateAll(true);
    }
    if (!hold.IsOver())
        SendNumber(phase, fValue, old, fScrubStart);
    return true;
}

void CEditNumber::BreakOffScrub(const CMouseEvent& event)
{
    SetValue(fScrubStart);
    Scrub(0.0, event, kPhase_ScrubEnd, false);
}

} // namespace Kesto
