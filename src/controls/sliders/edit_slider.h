// CEditSlider, a slider and a number field with one value, and a label for both; PEditSlider is the
// one of plug-ins' dialogs.
//
// What either part sends is the whole's to send: a CValMsg<CNumber> with the whole's id and the
// phase of the part. The slider's values are rounded to what the field shows. The slider may reach
// less far than the field; then its thumb waits at its end.
#pragma once

#include "controls/fields/edit_number.h"
#include "controls/sliders/custom_slider.h"
#include "controls/text/static_text.h"

#include <memory>

namespace Kesto {

class CEditSlider : public CPane {
public:
    static constexpr double kGap = 8.0; // between the parts
    static constexpr double kFieldHeight = 24.0;

    // Takes the slider that it is given, or has a CCustomSlider.
    explicit CEditSlider(const Rect& frame = {}, CObjID id = {},
                         std::uint32_t options = kView_NoOptions,
                         std::uint32_t binding = kBind_Fixed,
                         std::unique_ptr<CCustomSlider> slider = nullptr);

    // Children, there as long as the whole.
    CEditNumber& Field() { return *fField; }
    CCustomSlider& Slider() { return *fSlider; }

    double GetValue() const { return fValue; }
    void SetValue(double value); // quietly, within the field's range

    // On which side of the slider the field is, and how wide.
    void SetArrangement(EEditPosition position, double fieldWidth);
    void SetLabel(const CText& label, EFontKind font, double width);
    const CText& GetLabel() const { return fLabel->GetText(); }

    // The size of the whole for the width of a field and of a label, 0 for none.
    static Point SizeOf(EEditPosition position, double fieldWidth, double labelWidth);

    bool HandleValue(CValueMessage& message) override;
    void DidResize() override;
    // The focus that the slider is given is its field's.
    CMessenger* DefaultBullseye() override { return fField; }
    void SelectContents() override { fField->SelectContents(); }

private:
    void Arrange();
    void TakeFromField(const CValMsg<CNumber>& message);
    void TakeFromSlider(const CValMsg<CNumber>& message);
    void SendNumber(double oldValue, double startValue, std::uint32_t phase);

    CEditNumber* fField;
    CCustomSlider* fSlider;
    CStaticText* fLabel;
    double fValue = 0.0;
    double fFieldWidth = 56.0;
    double fLabelWidth = 0.0;
    EEditPosition fPosition = kPosEdit_Default;
};

} // namespace Kesto

namespace Project {

class PEditSlider : public Kesto::CEditSlider {
public:
    explicit PEditSlider(const Kesto::Rect& frame = {}, Kesto::CObjID id = {},
                         std::uint32_t options = Kesto::kView_NoOptions,
                         std::uint32_t binding = Kesto::kBind_Fixed);
};

} // namespace Project
