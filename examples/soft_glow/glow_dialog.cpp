#include "glow_dialog.h"

#include "glow.h"

#include "controls/buttons/custom_button.h"
#include "controls/sliders/edit_slider.h"
#include "dialogs/plugin_dialog/dialog_builder.h"
#include "dialogs/plugin_dialog/dialog_ids.h"
#include "dialogs/preview/preview_classes.h"
#include "view/messages/message.h"

#include <algorithm>

namespace SoftGlow {

using namespace Kesto;

namespace {

const CObjID kRadius("SoftGlow/Radius");
const CObjID kAmount("SoftGlow/Amount");
const CObjID kUndo("SoftGlow/Undo");
const CObjID kModes[] = {CObjID("SoftGlow/Mode0"), CObjID("SoftGlow/Mode1"),
                         CObjID("SoftGlow/Mode2")};

// The last value of a change; those before it come while typing and dragging go on.
bool IsFinal(uint32_t phase)
{
    return phase == CValueMessage::kPhase_Final || phase == CEditNumber::kPhase_Return ||
           phase == CEditNumber::kPhase_Step || phase == CEditNumber::kPhase_Leave;
}

} // namespace

Dialog::Dialog(const CWindowPlan& plan, Filter& filter)
    : CMessenger(nullptr, plan.id), PDialog(plan), fFilter(filter), fOpened(filter.GlowSettings())
{
}

void Dialog::CreateViews()
{
    PDialog::CreateViews();
    if (auto* const pane = dynamic_cast<Project::PPreviewPane*>(GetPreview()))
        pane->SetFilter(this);
    SetValuesFromSettings(false);
}

void Dialog::SetValuesFromSettings(bool)
{
    const Settings& settings = fFilter.GlowSettings();
    if (auto* const radius = dynamic_cast<CEditSlider*>(FindChild(kRadius, true)))
        radius->SetValue(settings.radius);
    if (auto* const amount = dynamic_cast<CEditSlider*>(FindChild(kAmount, true)))
        amount->SetValue(settings.amount);
    for (int32_t mode = 0; mode < std::ssize(kModes); ++mode)
        if (auto* const button = dynamic_cast<CCustomButton*>(FindChild(kModes[mode], true)))
            button->SetValue(mode == settings.mode ? kOn : kOff);
    ShowPreview();
}

void Dialog::ShowPreview()
{
    if (auto* const pane = dynamic_cast<Project::PPreviewPane*>(GetPreview()))
        pane->SettingsChanged();
}

void Dialog::Change(CObjID control, const Settings& next)
{
    const Settings before = fBefore.value_or(fFilter.GlowSettings());
    fBefore.reset();
    if (next == before)
        return; // fields tell their value whenever they are left
    fFilter.GlowSettings() = next;
    GetTaskStack().Do(std::make_unique<Project::PSettingsTask>(before.Clone(), control, true));
    SetValuesFromSettings(false);
}

bool Dialog::HandleValue(CValueMessage& message)
{
    const auto* const number = dynamic_cast<const CValMsg<CNumber>*>(&message);
    if (number == nullptr || (message.fID != kRadius && message.fID != kAmount))
        return PDialog::HandleValue(message);
    Settings next = fFilter.GlowSettings();
    const auto value = static_cast<int32_t>(number->fValue);
    if (message.fID == kRadius)
        next.radius = std::clamp(value, 1, kMostRadius);
    else
        next.amount = std::clamp(value, 0, 100);
    if (IsFinal(message.fPhase)) {
        Change(message.fID, next);
        return true;
    }
    if (!fBefore)
        fBefore = fFilter.GlowSettings();
    fFilter.GlowSettings() = next;
    ShowPreview();
    return true;
}

bool Dialog::HandleCommand(CCommandMessage& message)
{
    if (message.fID == kUndo) {
        GetTaskStack().Undo();
        return true;
    }
    const auto* const mode = std::ranges::find(kModes, message.fID);
    if (mode == std::end(kModes))
        return PDialog::HandleCommand(message);
    Settings next = fFilter.GlowSettings();
    next.mode = static_cast<int32_t>(mode - kModes);
    Change(message.fID, next);
    return true;
}

bool Dialog::FilterPreview(const Project::PreviewPixels& source,
                           const Project::PreviewPixels& result)
{
    Settings scaled = fFilter.GlowSettings();
    scaled.radius = std::max(static_cast<int32_t>(scaled.radius * source.scale + 0.5), 1);
    Glow(scaled, source.depth, source.planes, source.planes,
         {source.bytes, source.stride, source.width, source.height}, 0, 0,
         {result.bytes, result.stride, result.width, result.height});
    return true;
}

int32_t Dialog::PreviewReach() const
{
    return Reach(fFilter.GlowSettings());
}

std::unique_ptr<Dialog> LoadGlowDialog(Filter& filter)
{
    Project::RegisterPreviewClasses();
    std::unique_ptr<Project::PDialog> made =
        Project::LoadDialog("SOFT_GLOW.VEX", [&](const CWindowPlan& plan) {
            return std::make_unique<Dialog>(plan, filter);
        });
    return std::unique_ptr<Dialog>(static_cast<Dialog*>(made.release()));
}

} // namespace SoftGlow
