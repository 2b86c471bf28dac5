#include "plugin/frame/run_dialog.h"

#include "foundation/alerts/reporter.h"

#include <stdexcept>
#include <utility>

namespace Kesto {

bool RunPluginDialog(CPluginDialog* dialog, CSettingsRecord& settings)
{
    PluginSettings& prefs = settings.Get();
    if (dialog == nullptr)
        throw std::logic_error("Warning! (dialog != nullptr)");
    dialog->TakeState(prefs);
    dialog->UseModalStyle();
    std::unique_ptr<Project::PSettings> before = prefs.project->Clone();
    const bool accepted = dialog->RunModal();
    if (!accepted)
        prefs.project = std::move(before);
    dialog->StoreState(prefs);
    Reported([&] { settings.Save(); });
    return accepted;
}

} // namespace Kesto
