#include "controls/buttons/radio_group.h"

#include "view/tree/pane.h"

#include <vector>

namespace Kesto {
namespace {

std::vector<CView*> GroupOf(CView& radio)
{
    std::vector<CView*> group;
    const CView* const parent = radio.GetParent();
    for (std::size_t index = 0; parent != nullptr && index < parent->CountChildren(); ++index) {
        CView* const child = parent->GetChild(index);
        const auto* const button = dynamic_cast<CButtonControl*>(child);
        if (button != nullptr && button->IsRadio())
            group.push_back(child);
    }
    return group;
}

} // namespace

void TurnRadioOn(CView& radio)
{
    auto* const clicked = dynamic_cast<CButtonControl*>(&radio);
    auto* const decider = dynamic_cast<CRadioDecider*>(radio.GetParent());
    if (clicked == nullptr || (decider != nullptr && decider->DecideRadio(*clicked)))
        return;
    for (CView* const member : GroupOf(radio))
        if (member != &radio)
            dynamic_cast<CButtonControl*>(member)->SetValue(kOff);
    clicked->SetValue(kOn);
}

CView* NextRadio(CView& radio, bool forward)
{
    const std::vector<CView*> group = GroupOf(radio);
    const std::size_t count = group.size();
    std::size_t own = 0;
    while (own < count && group[own] != &radio)
        ++own;
    for (std::size_t step = 1; step < count; ++step) {
        CView* const other = group[(own + (forward ? step : count - step)) % count];
        if (other->IsVisible() && other->IsUsable())
            return other;
    }
    return nullptr;
}

} // namespace Kesto
