#include "plugin/format/format.h"

#include "foundation/alerts/reporter.h"
#include "plugin/frame/lumograph_error.h"

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
    const std::unique_ptr<Kesto::CFormatDialog> dialog = GetDialog();
    if (dialog == nullptr)
        return true;
    Kesto::PluginSettings& prefs = GetPrefsBag();
    dialog->Prepare(prefs);
    dialog->ShowModal();
    const bool accepted = dialog->RunModal();
    dialog->StoreState(prefs);
    Kesto::Reported([this] { fPrefs.Save(); });
    return accepted;
}

bool PFormat::DoReadPrepare()
{
    return ForwardChecked(kFormatReadPrepare);
}

bool PFormat::DoReadStart()
{
    return ForwardChecked(kFormatReadStart);
}

bool PFormat::DoReadContinue()
{
    return ForwardChecked(kFormatReadContinue);
}

void PFormat::DoReadFinish()
{
    Forward(kFormatReadFinish);
}

bool PFormat::DoExtraReadStart()
{
    return ForwardChecked(kFormatExtraReadStart);
}

bool PFormat::DoExtraReadContinue()
{
    return ForwardChecked(kFormatExtraReadContinue);
}

void PFormat::DoExtraReadFinish()
{
    Forward(kFormatExtraReadFinish);
}

bool PFormat::DoOptionsPrepare()
{
    return ForwardChecked(kFormatOptionsPrepare);
}

bool PFormat::DoOptionsStart()
{
    return ForwardChecked(kFormatOptionsStart);
}

bool PFormat::DoOptionsContinue()
{
    return ForwardChecked(kFormatOptionsContinue);
}

void PFormat::DoOptionsFinish()
{
    Forward(kFormatOptionsFinish);
}

bool PFormat::DoEstimatePrepare()
{
    return ForwardChecked(kFormatEstimatePrepare);
}

bool PFormat::DoEstimateStart()
{
    return ForwardChecked(kFormatEstimateStart);
}

bool PFormat::DoEstimateContinue()
{
    return ForwardChecked(kFormatEstimateContinue);
}

void PFormat::DoEstimateFinish()
{
    Forward(kFormatEstimateFinish);
}

bool PFormat::DoWritePrepare()
{
    return ForwardChecked(kFormatWritePrepare);
}

bool PFormat::DoWriteStart()
{
    return ForwardChecked(kFormatWriteStart);
}

bool PFormat::DoWriteContinue()
{
    return ForwardChecked(kFormatWriteContinue);
}

void PFormat::DoWriteFinish()
{
    Forward(kFormatWriteFinish);
}

bool PFormat::DoExtraWriteStart()
{
    return ForwardChecked(kFormatExtraWriteStart);
}

bool PFormat::DoExtraWriteContinue()
{
    return ForwardChecked(kFormatExtraWriteContinue);
}

void PFormat::DoExtraWriteFinish()
{
    Forward(kFormatExtraWriteFinish);
}

void PFormat::DoExtension20()
{
    Forward(kFormatExtension20);
}

void PFormat::DoExtension23()
{
    Forward(kFormatExtension23);
}

void PFormat::DoExtension21()
{
    Forward(kFormatExtension21);
}

void PFormat::DoExtension22()
{
    Forward(kFormatExtension22);
}

void PFormat::DoExtension34()
{
    Forward(kFormatExtension34);
}

void PFormat::DoExtension26()
{
    Forward(kFormatExtension26);
}

} // namespace Project
