// CEditNumber, a field for a number: it keeps a value within a range, shows it, reads what is typed
// as an expression, steps it by arrow keys, and is scrubbed by a drag on its label.
//
// The value is the committed one; what is typed becomes it when Return is pressed or the focus
// moves elsewhere. A text that is no number in the range doesn't let the focus go: it is corrected
// first, and an alert says so. Messages are CValMsg<CNumber>, whose phase tells how the value came
// about; a field without an id sends none. What is not a number is never taken from a text.
#pragma once

#include "controls/base/scrub_target.h"
#include "controls/fields/edit_string.h"
#include "controls/fields/number_text.h"

#include <optional>

namespace Kesto {

class CEditNumber : public CEditString, public CScrubTarget {
public:
    // One more phase.
    static constexpr std::uint32_t kPhase_Step = 3; // an arrow key; those of drags are a target's

    // A client's ways from a value to a text and back; they answer whether they could.
    using Formatter = bool (*)(double value, CText& text, void* data);
    using Parser = bool (*)(const CText& text, double& value, void* data);

    explicit CEditNumber(const Rect& frame = {}, CObjID id = {},
                         std::uint32_t options = kView_TabStop,
                         std::uint32_t binding = kBind_Fixed);

    virtual CText ValueToText(double value) const;

    // `ok` is false, and the value the field's, for a text that is no number.
    virtual double TextToValue(const CText& text, bool& ok) const;

    // The text as a number, by the client's parser if there is one: the field's value when that
    // is no number, or indeterminate. Clamped by the second one.
    virtual double ReadText() const;
    virtual double ReadAndClamp() const;

    double GetValue() const { return fValue; }
    // Clamps and shows it, unless indeterminate. What is not a number stays so.
    virtual void SetValue(double value);

    // Limits clamp the value at once.
    virtual void SetMinimum(double minimum);
    virtual void SetMaximum(double maximum);
    virtual void SetRange(double minimum, double maximum);
    virtual void SetValueAndRange(double value, double minimum, double maximum);
    double GetMinimum() const { return fRules.minimum; }
    double GetMaximum() const { return fRules.maximum; }

    // An indeterminate field shows nothing and keeps its value. It gives the focus up; a click, a
    // step or typing ends that.
    virtual void SetIndeterminate(bool on);
    bool IsIndeterminate() const { return fIndeterminate; }

    // How the value reads; the text follows.
    virtual void SetDecimal(bool on);
    virtual void SetFixedDecimal(bool on);
    virtual void SetPadInteger(bool on);
    virtual void SetShowPlus(bool on);
    void SetWrapAround(bool on);
    virtual void SetDigits(std::int32_t digits);
    void SetNumberFormat(std::uint32_t format); // ENumberFormat
    std::uint32_t GetNumberFormat() const { return fRules.format; }
    void SetNoExpressions(bool on);
    void SetFormatter(Formatter formatter, void* data);
    void SetParser(Parser parser, void* data);

    void SetIncrements(double minor, double major);
    double GetMinorIncrement() const { return fMinorIncrement; }
    double GetMajorIncrement() const { return fMajorIncrement; }

    // The tests of the text, committed or not.
    virtual bool IsTextInRange() const;
    virtual bool IsTextValid() const;

    // A value one step further; steps of the field, which send with phase 3 what they change.
    virtual double Step(double value, double delta) const;
    virtual void StepUp(double delta);
    virtual void StepDown(double delta) { StepUp(-delta); }

    // A drag elsewhere. Its end sends the final value, if that has changed.
    bool Scrub(double factor, const CMouseEvent& event, std::uint32_t phase,
               bool takeFocus) override;
    void BreakOffScrub(const CMouseEvent& event) override;

    // Say that the closest, or the previous, value was put in. False: it wasn't shown, by the
    // options, since one is up already, or since nobody could see what it is about.
    virtual bool ShowRangeAlert();
    virtual bool ShowInvalidAlert();

    // Without `force`, corrects a text that is no number in the range, tells so, and keeps the
    // focus; with it, corrects alone. A good text is left alone.
    bool CanSurrender(bool force) override;

    void CheckLiveValue() override;
    bool FilterKey(const CKeyboardMessage& message) const override;
    void HandleFieldKey(CKeyboardMessage& message, bool& eaten) override;
    void PrimaryClick(const CMouseEvent& event) override;

protected:
    bool CommitWith(std::uint32_t phase, bool mayAlert) override;
    void TextWasEdited() override;
    bool LooksInvalid() const override;

private:
    struct Alert;
    class CAlertIsUp;

    // The number in the field; nothing if it is none.
    std::optional<double> Reading() const;
    void ShowValue();
    void PutFormat(std::uint32_t bit, bool on);
    bool ShowFieldAlert(const Alert& alert);
    void SendNumber(std::uint32_t phase, double value, double oldValue, double startValue);

    CNumberRules fRules;
    double fValue = 0.0;
    double fMinorIncrement = 1.0;
    double fMajorIncrement = 10.0;
    double fScrubStart = 0.0;
    double fLive = 0.0; // what everybody knows that the text reads
    bool fIndeterminate = false;
    CText fShown; // the text that the value was shown as
    Formatter fFormatter = nullptr;
    void* fFormatterData = nullptr;
    Parser fParser = nullptr;
    void* fParserData = nullptr;
};

} // namespace Kesto
