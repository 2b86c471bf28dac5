#include "plugin/frame/run_dialog.h"

#include "foundation/alerts/reporter.h"

#include <stdexcept>

namespace Kesto {

bool RunPluginDialog(CPluginDialog* dialog, CSettingsRecord& settings)
{
    PluginSettings& prefs = settings.Get();
    if (dialog == nullptr)
        throw std::logic_error("Warning! (dialog != nullptr)");
    dialog->TakeState(prefs);
    dialog->UseModalStyle();
    const bool accepted = dialog->RunModal();
    dialog->StoreState(prefs);
    Reported([&] { settings.Save(); });
    return accepted;
}

} // namespace Kesto
