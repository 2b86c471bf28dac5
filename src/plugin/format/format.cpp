#include "plugin/format/format.h"

#include "foundation/alerts/reporter.h"
#include "plugin/frame/lumograph_error.h"

#include <stdexcept>

namespace Project {

int16_t PFormat::Forward(int16_t selector)
{
    int16_t code = kHostNoError;
    DoPluginMain(selector, GetFormatRecord(), pluginData, &code);
    return code;
}

bool PFormat::ForwardChecked(int16_t selector)
{
    const int16_t code = Forward(selector);
    if (code != kHostNoError)
        throw Kesto::CLumographError(code);
    return true;
}

bool PFormat::WithRequiredMemory()
{
    return true;
}

bool PFormat::RunDialog()
{
    const Kesto::CProcessScope scope(*this);
    Kesto::PluginSettings& prefs = GetPrefsBag();
    const std::unique_ptr<Kesto::CPluginDialog> dialog = GetDialog();
    if (dialog == nullptr)
        throw std::logic_error("Warning! (dialog != nullptr)");
    dialog->TakeState(prefs);
    dialog->UseModalStyle();
    const bool accepted = dialog->RunModal();
    dialog->StoreState(prefs);
    Kesto::Reported([this] { fPrefs.Save(); });
    return accepted;
}

} // namespace Project
