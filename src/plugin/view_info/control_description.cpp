#include "plugin/view_info/control_description.h"

#include "controls/buttons/button.h"
#include "plugin/view_info/view_description.h"
#include "view/window/alert_window.h"

#include <array>

namespace Kesto {
namespace {

constexpr std::array kKinds = {"pushButton", "checkButton", "radioButton", "ctaGroupButton"};
constexpr std::array kValues = {"off", "on", "neutral"};
constexpr std::array kStates = {"normal", "press", "rollover", "disabled", "inactive", "disactive"};
constexpr std::array kStyles = {"default",    "bevel",      "push",       "check",
                                "radio",      "round",      "smallCheck", "smallRadio",
                                "smallRound", "disclosure", "tool",       "none"};

// The name of a number, or a word that says that it has none.
template <std::size_t Count>
CText NameOf(const std::array<const char*, Count>& names, std::size_t number,
             const char* unexpected)
{
    return CText(number < Count ? names[number] : unexpected);
}

void DescribeButton(const CCustomButton& button, CDescriptionRecord& record)
{
    const auto kind = static_cast<std::size_t>(button.GetKind());
    const auto value = static_cast<std::size_t>(button.GetValue());
    record.PutText("Type", "button");
    record.PutText("Knd ", NameOf(kKinds, kind, "unexpected button kind"));
    record.PutText("Vl  ", NameOf(kValues, value, "unexpected button value"));
    const auto* const drawn = dynamic_cast<const CButton*>(&button);
    const CButtonGraphic* const graphic = drawn != nullptr ? drawn->GetGraphic() : nullptr;
    if (graphic == nullptr)
        return;
    const auto state = static_cast<std::size_t>(button.GetDrawState());
    const auto style = static_cast<std::size_t>(graphic->GetStyle());
    record.PutText("Stte", NameOf(kStates, state, "unexpected button state"));
    record.PutText("Styl", NameOf(kStyles, style, "unexpected button style"));
}

} // namespace

void DescribeControl(const CView& view, CDescriptionRecord& record)
{
    if (const auto* const button = dynamic_cast<const CCustomButton*>(&view))
        DescribeButton(*button, record);
    if (const auto* const alert = dynamic_cast<const CMessageAlert*>(&view)) {
        record.PutText("Type", "alert");
        record.PutText("string", alert->CopyText());
    }
}

} // namespace Kesto
