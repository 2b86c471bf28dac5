#include "formats/electricimage/format_electricimage.h"

#include "formats/electricimage/choose_frame.h"
#include "formats/electricimage/plugin_main.h"
#include "formats/electricimage/preference_names.h"
#include "foundation/localization/localize.h"

namespace Project {

void PFormatElectricImage::DoPluginMain(int16_t selector, HostFormatRecord* record, intptr_t* data,
                                        int16_t* result)
{
    EIPluginMain(selector, record, data, result);
}

std::unique_ptr<Kesto::CPluginDialog> PFormatElectricImage::GetDialog()
{
    const FrameDialogMaker maker = GetFrameDialogMaker();
    return maker != nullptr ? maker() : nullptr;
}

Kesto::CText PFormatElectricImage::GetProductName()
{
    Kesto::CText name("$$$/OrlenPlugin/TAGLInfo/PluginName/ElectricImage=ElectricImage");
    return Kesto::Localize(name);
}

void PFormatElectricImage::GetSettingsLocation(Kesto::CText& keyPath, Kesto::CText& fileName)
{
    GetElectricImageSettingsLocation(Kesto::HostEdition(), keyPath, fileName);
}

} // namespace Project
