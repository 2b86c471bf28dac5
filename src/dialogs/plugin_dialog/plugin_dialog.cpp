#include "dialogs/plugin_dialog/plugin_dialog.h"

#include "controls/buttons/custom_button.h"
#include "dialogs/plugin_dialog/dialog_ids.h"
#include "dialogs/plugin_dialog/stored_placement.h"
#include "foundation/localization/localize.h"
#include "foundation/localization/marks.h"
#include "foundation/settings/plugin_settings.h"
#include "view/messages/message_ids.h"
#include "view/process/process.h"
#include "view/tree/view_hold.h"

#include <string>

namespace Project {

using namespace Kesto;

namespace {

constexpr double kModifierPeriod = 1.0 / 15.0; // seconds
constexpr Point kLeastSize{50.0, 33.0};

CWindowPlan WithFeatures(CWindowPlan plan)
{
    plan.features |= PDialog::kFeatures;
    return plan;
}

// What stays free around the preview: on the left and top twice a unit of whole device pixels.
constexpr double kRightMargin = 2.0;
double LeftMargin(double scale)
{
    return 2.0 * ToDevice(1.0, scale) / scale;
}

} // namespace

PDialog::CModifierIdler::CModifierIdler(PDialog& dialog) : CIdler(kModifierPeriod), fDialog(dialog)
{
}

void PDialog::CModifierIdler::Idle()
{
    const std::uint32_t keys = ReadModifiers(KeyMoment::kNow);
    fDialog.ShowModifiers((keys & CMessage::kModifier_Alt) != 0,
                          (keys & CMessage::kModifier_Control) != 0);
}

PDialog::PDialog(CWindowPlan plan)
    : CMessenger(nullptr, plan.id), CDialog(WithFeatures(plan)), fTitle(plan.title)
{
    SetSizeLimits({kLeastSize});
    Localize(fTitle);
}

PDialog::~PDialog()
{
    fModifierIdler.StopIdling();
}

PPreview* PDialog::GetPreview() const
{
    return dynamic_cast<PPreview*>(FindChild(kDialog_PreviewPane, true));
}

void PDialog::CreateViews()
{
    if (PPreview* const preview = GetPreview()) {
        preview->SetDialog(*this);
        preview->StartPreview();
    }
    if (auto* const panel = dynamic_cast<PZoomSteps*>(FindChild(kDialog_ZoomPanel, true)))
        panel->SetTaskStack(fTaskStack);
    ComposeTitle();
}

void PDialog::SetTitle(const CText& title)
{
    fTitle = title;
    Localize(fTitle);
    ComposeTitle();
}

void PDialog::ComposeTitle()
{
    const PPreview* const preview = GetPreview();
    if (preview == nullptr) {
        CDialog::SetTitle(fTitle);
        return;
    }
    CText percent("$$$/Kesto/ZoomPanel/ZoomStr=^0%");
    Localize(percent);
    ReplaceArgument(percent, 0, std::to_string(RoundHalfAway(preview->GetScale() * 100.0)));
    CDialog::SetTitle(CText::Join({fTitle.View(), " ", percent.View()}));
}

// ------------------------------------------------------------------------------------------ A run

void PDialog::TakeState(const PluginSettings& settings)
{
    SetPlacement(PlacementOf(settings.window));
}

void PDialog::StoreState(PluginSettings& settings)
{
    settings.window = WindowStateOf(GetPlacement());
}

std::string_view PDialog::ClassNameOf(const CView& view) const
{
    const auto found = fClassNames.find(&view);
    return found != fClassNames.end() ? std::string_view(found->second) : std::string_view();
}

bool PDialog::RunModal()
{
    fAccepted = false;
    CProcess* const process = CProcess::Current();
    if (process == nullptr || process->HasUser())
        Run();
    else
        process->NoteDialogEnd(DialogEnd::kCancelled);
    return fAccepted;
}

void PDialog::OnStart()
{
    fModifierIdler.StartIdling();
    CDialog::OnStart();
}

void PDialog::OnStop()
{
    fModifierIdler.StopIdling();
    CDialog::OnStop();
}

bool PDialog::Accept()
{
    if (CProcess* const process = CProcess::Current())
        process->NoteDialogEnd(DialogEnd::kAccepted);
    fAccepted = true;
    EndRun(1);
    return true;
}

bool PDialog::Dismiss()
{
    if (CProcess* const process = CProcess::Current())
        process->NoteDialogEnd(DialogEnd::kCancelled);
    fAccepted = false;
    EndRun(1);
    return true;
}

// Taken back: somebody refused, and what was answered doesn't count.
void PDialog::SetDone(bool done)
{
    CDialog::SetDone(done);
    if (done)
        return;
    fAccepted = false;
    if (CProcess* const process = CProcess::Current())
        process->NoteDialogEnd(DialogEnd::kNone);
}

std::intptr_t PDialog::OnSize(const Platform::WindowMessage& message)
{
    const CViewHold hold(*this);
    const std::intptr_t answer = CDialog::OnSize(message);
    if (hold.IsOver())
        return answer;
    const Rect content = GetContentFrame();
    const double margin = LeftMargin(GetScale());
    SetPreviewFrame({content.left + margin, content.top + margin, content.right - kRightMargin,
                     content.bottom - kRightMargin});
    return answer;
}

// --------------------------------------------------------------------------------------- Commands

bool PDialog::HandleCommand(CCommandMessage& message)
{
    const CViewHold hold(*this);
    if (message.fID == kDialog_OKButton || message.fID == kDefault_Ok)
        fResult = Accept();
    else if (message.fID == kDialog_CancelButton || message.fID == kDefault_Cancel)
        PressCancel(message);
    else if (message.fID == kWindow_CloseBox) {
        Dismiss();
        // The dialog may have ended with its run.
        return hold.IsOver() || CDialog::HandleCommand(message);
    } else if (ZoomScaleOf(message.fID))
        SetZoom(message.fID);
    else if (message.fID == kCommand_ZoomIn || message.fID == kCommand_ZoomOut) {
        if (PPreview* const preview = GetPreview()) {
            message.fID == kCommand_ZoomIn ? preview->ZoomIn(0) : preview->ZoomOut(0);
            ComposeTitle();
        }
    } else
        return CDialog::HandleCommand(message);
    return true;
}

bool PDialog::HandleMenu(CMenuMessage& message)
{
    if (!ZoomScaleOf(message.fID))
        return CDialog::HandleMenu(message);
    message.fEnable = GetPreview() != nullptr;
    return true;
}

void PDialog::SetZoom(CObjID command)
{
    PPreview* const preview = GetPreview();
    const auto scale = ZoomScaleOf(command);
    if (preview == nullptr || !scale)
        return;
    preview->SetScale(*scale);
    ComposeTitle();
}

// ----------------------------------------------------------------------------------- Cancel's keys

void PDialog::SetResetAllowed(bool on)
{
    fResetAllowed = on;
    ShowCancelLabel();
}

void PDialog::ShowModifiers(bool alt, bool control)
{
    control = control && !alt;
    if (alt == fAltDown && control == fControlDown)
        return;
    fAltDown = alt;
    fControlDown = control;
    ShowCancelLabel();
}

void PDialog::ShowCancelLabel()
{
    auto* const button = dynamic_cast<CCustomButton*>(FindChild(kDialog_CancelButton, true));
    if (button == nullptr)
        return;
    CText label(fAltDown && fResetAllowed       ? "$$$/OrlenPlugin/Shared/Reset=Reset"
                : fControlDown && fResetAllowed ? "$$$/OrlenPlugin/Shared/Default=Default"
                                                : "$$$/OrlenPlugin/Shared/Cancel=Cancel");
    button->SetLabel(Localize(label));
}

// The keyboard is left by force first: nobody is asked.
void PDialog::PressCancel(const CMessage& message)
{
    const CViewHold hold(*this);
    ShowModifiers((message.fModifiers & CMessage::kModifier_Alt) != 0,
                  (message.fModifiers & CMessage::kModifier_Control) != 0);
    if (fAltDown && fResetAllowed) {
        OnReset();
    } else if (fControlDown && fResetAllowed) {
        OnDefault();
    } else {
        fResult = false;
        ResignBullseyeToParent(true);
        if (!hold.IsOver())
            Dismiss();
    }
}

// --------------------------------------------------------------------------------------- Settings

CMessenger* PDialog::FocusOfControl(CObjID control)
{
    CPane* const pane = FindChild(control, true);
    return pane != nullptr ? pane->FirstTabStopOrSelf() : nullptr;
}

CMessenger* PDialog::PreviewMessenger()
{
    return GetPreview() != nullptr ? FindChild(kDialog_PreviewPane, true) : nullptr;
}

} // namespace Project
