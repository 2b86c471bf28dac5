#include "plugin/view_info/control_description.h"

#include "controls/buttons/button.h"
#include "controls/fields/edit_number.h"
#include "controls/popups/menu_popup.h"
#include "controls/scrolling/scroll_bar.h"
#include "controls/sliders/edit_slider.h"
#include "controls/sliders/progress_bar.h"
#include "platform/windows/clipboard.h"
#include "plugin/view_info/view_description.h"
#include "view/window/alert_window.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

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

void DescribeText(const CEditString& field, CDescriptionRecord& record)
{
    const CText text = field.GetText();
    const Platform::TextRange selection = field.GetSelection();
    // A selection that was made towards the beginning has its ends exchanged.
    const auto [start, end] = std::minmax(selection.from, selection.to);
    const bool isEditable = !field.HasTextOption(kEdit_ReadOnly) && field.IsUsable();
    record.PutText("Type", "editString");
    record.PutFlag("isEditable", isEditable);
    record.PutText("string", text);
    record.PutFlag("hasSelection", start < end);
    if (start < end) {
        record.PutInteger("start", static_cast<std::int32_t>(start));
        record.PutInteger("end", static_cast<std::int32_t>(end));
    }
    const auto lineEnds = std::ranges::count(text.View(), '\n');
    record.PutInteger("lineCount", static_cast<std::int32_t>(lineEnds) + 1);
    record.PutFlag("hasFrame", !field.HasTextOption(kEdit_NoFrame));
    record.PutFlag("canUndo", field.CanUndo());
    record.PutFlag("canPaste", isEditable && Platform::ClipboardText().has_value());
}

std::int32_t WholeOf(double number)
{
    constexpr double kLeast = std::numeric_limits<std::int32_t>::min();
    constexpr double kMost = std::numeric_limits<std::int32_t>::max();
    return std::isnan(number) ? 0 : RoundHalfAway(std::clamp(number, kLeast, kMost));
}

// Numbers both as whole ones, cut to their range, and as they are.
void DescribeNumber(const CEditNumber& field, CDescriptionRecord& record)
{
    record.PutText("Type", "editNumber");
    record.PutText("string", field.GetText());
    record.PutInteger("integerValue", WholeOf(field.GetValue()));
    record.PutNumber("floatValue", field.GetValue());
    record.PutInteger("integerMinimum", WholeOf(field.GetMinimum()));
    record.PutNumber("floatMinimum", field.GetMinimum());
    record.PutInteger("integerMaximum", WholeOf(field.GetMaximum()));
    record.PutNumber("floatMaximum", field.GetMaximum());
    record.PutFlag("mixed", field.IsIndeterminate());
    record.PutFlag("canScrub", field.IsUsable());
    record.PutFlag("valueInRange", field.IsTextValid() && field.IsTextInRange());
}

// Anything that shows where a value is between two ends.
template <class Control>
void DescribeRange(const Control& control, const char* type, CDescriptionRecord& record)
{
    record.PutText("Type", type);
    record.PutNumber("floatValue", control.GetValue());
    record.PutNumber("floatMinimum", control.GetRange().first);
    record.PutNumber("floatMaximum", control.GetRange().last);
}

void DescribePopup(const CMenuPopup& popup, CDescriptionRecord& record)
{
    const unsigned chosen = popup.GetChosen();
    record.PutText("Type", "popup");
    record.PutText("string", popup.GetShownText());
    record.PutInteger("integerValue",
                      chosen != CMenuPopup::kNoItem ? static_cast<std::int32_t>(chosen) : -1);
}

void DescribeValue(const CView& view, CDescriptionRecord& record)
{
    if (const auto* const slider = dynamic_cast<const CCustomSlider*>(&view))
        DescribeRange(*slider, "slider", record);
    else if (const auto* const bar = dynamic_cast<const CScrollBar*>(&view))
        DescribeRange(*bar, "scrollBar", record);
    else if (const auto* const progress = dynamic_cast<const CProgressBar*>(&view))
        DescribeRange(*progress, "progress", record);
    else if (const auto* const both = dynamic_cast<const CEditSlider*>(&view)) {
        record.PutText("Type", "editSlider");
        record.PutNumber("floatValue", both->GetValue());
    } else if (const auto* const popup = dynamic_cast<const CMenuPopup*>(&view))
        DescribePopup(*popup, record);
}

} // namespace

void DescribeControl(const CView& view, CDescriptionRecord& record)
{
    if (const auto* const button = dynamic_cast<const CCustomButton*>(&view))
        DescribeButton(*button, record);
    if (const auto* const number = dynamic_cast<const CEditNumber*>(&view))
        DescribeNumber(*number, record);
    else if (const auto* const text = dynamic_cast<const CEditString*>(&view))
        DescribeText(*text, record);
    else
        DescribeValue(view, record);
    if (const auto* const alert = dynamic_cast<const CMessageAlert*>(&view)) {
        record.PutText("Type", "alert");
        record.PutText("string", alert->CopyText());
    }
}

} // namespace Kesto
