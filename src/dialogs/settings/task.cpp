#include "dialogs/settings/task.h"

#include "dialogs/settings/settings_dialog.h"
#include "view/process/process.h"

#include <stdexcept>
#include <utility>

namespace Project {
namespace {

using Kesto::CMessenger;
using Kesto::CObjID;

void FocusOn(PSettingsDialog& dialog, CObjID control)
{
    CMessenger* focus = dialog.FocusOfControl(control);
    if (focus == nullptr || !focus->CanTarget())
        focus = dialog.PreviewMessenger();
    if (focus == nullptr)
        focus = &dialog.DialogMessenger();
    if (focus->CanBullseye() && !focus->IsBullseye())
        focus->BecomeBullseye(false);
}

} // namespace

bool PTaskStack::GetLimit(std::uint32_t& limit) const
{
    limit = kLimit;
    return true;
}

PSettingsTask::PSettingsTask(std::unique_ptr<PSettings> other, CObjID control, bool done)
    : PTask(done), fOther(std::move(other)), fControl(control)
{
    if (fOther == nullptr)
        throw std::invalid_argument("a settings task without settings");
}

bool PSettingsTask::GetName(Kesto::CText& name) const
{
    name = "$$$/KestoFilter/Task/Setting/Changed=Filter Setting";
    return true;
}

void PSettingsTask::DoUndo()
{
    Exchange();
}

void PSettingsTask::DoDo()
{
    Exchange();
}

void PSettingsTask::Exchange()
{
    auto* const owner = dynamic_cast<PSettingsOwner*>(Kesto::CProcess::Current());
    if (owner == nullptr)
        throw std::logic_error("Warning! (the process has no settings)");
    PSettingsDialog* const dialog = owner->CurrentDialog();
    fChanged = true;
    std::swap(fOther, owner->CurrentSettings());
    if (dialog == nullptr)
        return;
    dialog->SetValuesFromSettings(false);
    FocusOn(*dialog, fControl);
}

} // namespace Project
