#include "plugin/format/format.h"

#include "plugin/frame/lumograph_error.h"
#include "plugin/frame/run_dialog.h"

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
    GetPrefsBag(); // before the dialog is built, which may ask for them
    const std::unique_ptr<Kesto::CPluginDialog> dialog = GetDialog();
    return Kesto::RunPluginDialog(dialog.get(), fPrefs);
}

} // namespace Project
