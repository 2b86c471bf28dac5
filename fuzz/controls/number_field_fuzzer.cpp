// Any keys and pasted texts in a number field: after a commit its value is in the range, the focus
// goes only from a good text, and no alert comes over another.
#include "controls/field_window.h"
#include "platform/windows/clipboard.h"

#include <cmath>
#include <cstdint>
#include <cstdlib>

namespace {

using namespace Kesto;

void Demand(bool holds)
{
    if (!holds)
        std::abort();
}

// While it is up the field is asked everything that could bring another one.
class NestedAlerts final : public CAlertHook {
public:
    AlertButton Show(const AlertBox&) override
    {
        Demand(depth == 0);
        ++depth;
        field->ReplaceSelection("((");
        field->CanSurrender(false);
        field->Commit();
        --depth;
        return AlertButton::kOK;
    }

    CEditNumber* field = nullptr;
    int depth = 0;
};

bool IsGood(const CEditNumber& field)
{
    return field.GetMinimum() <= field.GetValue() && field.GetValue() <= field.GetMaximum();
}

void Act(Testing::FieldStage& stage, std::uint8_t byte)
{
    CEditNumber& field = *stage.field;
    constexpr std::uint32_t kKeys[] = {kKeyCode_Backspace, kKeyCode_Delete, kKeyCode_Left,
                                       kKeyCode_Right,     kKeyCode_Up,     kKeyCode_Down};
    if (byte < 0x80)
        return stage.Type(std::u32string(1, byte));
    if (byte < 0xA0)
        return stage.Press(kKeys[byte % std::size(kKeys)]);
    if (byte < 0xC0) { // a text that no filter has seen
        Platform::SetClipboardText(std::string(byte % 8 * 60U, '9') + "e" + std::to_string(byte));
        field.SelectAll();
        field.ReplaceSelection(Platform::ClipboardText().value_or(""));
        return;
    }
    if (byte < 0xD0) {
        field.Commit();
        return Demand(IsGood(field) && field.IsBullseye());
    }
    const bool wasGood = field.IsTextValid() && field.IsTextInRange();
    stage.Press(byte < 0xE8 ? kKeyCode_Tab : kKeyCode_Return);
    Demand(IsGood(field));
    Demand(wasGood || field.IsBullseye());
    field.BecomeBullseye(true);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size < 2 || size > 64)
        return 0;
    Testing::FieldStage stage;
    NestedAlerts alerts;
    auto made = std::make_unique<CEditNumber>(Rect{}, CObjID("field"));
    made->SetNumberFormat(data[0] & 0x1F);
    made->SetNoExpressions((data[0] & 0x20) != 0);
    made->SetDigits(data[1] % 5);
    made->SetValueAndRange(1, (data[0] & 0x40) != 0 ? -12.5 : 0.0, data[1]);
    alerts.field = &stage.Open(std::move(made));
    for (std::size_t i = 2; i < size; ++i)
        Act(stage, data[i]);
    return 0;
}
