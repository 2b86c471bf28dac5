// What the operations of a format do until a plug-in says otherwise.
#include "plugin/format/lumograph_format.h"

#include "plugin/frame/lumograph_error.h"

namespace Kesto {

HostFormatRecord* CLumographFormat::GetFormatRecord()
{
    return static_cast<HostFormatRecord*>(hostRecord);
}

int16_t CLumographFormat::GetSelector()
{
    return hostSelector;
}

bool CLumographFormat::WithRequiredMemory()
{
    HostFormatRecord* const record = GetFormatRecord();
    if (record == nullptr)
        throw CLumographError(kHostBadParameter);
    memoryShare = 0;
    int32_t first = 0;
    int32_t second = 0;
    if (!SplitMemory(record->memoryBudget, first, second))
        throw CError(CText("$$$/Kesto/LumographPlugin/Error/NotEnoughMemory=This plugin requires "
                           "more memory than the host can "
                           "currently supply."));
    record->memoryBudget = first + second;
    memoryShare = first;
    PrepareMemory();
    return true;
}

bool CLumographFormat::CanFilterFile()
{
    return false;
}

bool CLumographFormat::DoReadPrepare()
{
    return true;
}

bool CLumographFormat::DoReadStart()
{
    return false;
}

bool CLumographFormat::DoReadContinue()
{
    return true;
}

void CLumographFormat::DoReadFinish() {}

bool CLumographFormat::DoExtraReadStart()
{
    return true;
}

bool CLumographFormat::DoExtraReadContinue()
{
    return true;
}

void CLumographFormat::DoExtraReadFinish() {}

bool CLumographFormat::DoOptionsPrepare()
{
    return true;
}

bool CLumographFormat::DoOptionsStart()
{
    return false;
}

bool CLumographFormat::DoOptionsContinue()
{
    return true;
}

void CLumographFormat::DoOptionsFinish() {}

bool CLumographFormat::DoEstimatePrepare()
{
    return true;
}

bool CLumographFormat::DoEstimateStart()
{
    return false;
}

bool CLumographFormat::DoEstimateContinue()
{
    return true;
}

void CLumographFormat::DoEstimateFinish() {}

bool CLumographFormat::DoWritePrepare()
{
    return true;
}

bool CLumographFormat::DoWriteStart()
{
    return false;
}

bool CLumographFormat::DoWriteContinue()
{
    return true;
}

void CLumographFormat::DoWriteFinish() {}

bool CLumographFormat::DoExtraWriteStart()
{
    return true;
}

bool CLumographFormat::DoExtraWriteContinue()
{
    return true;
}

void CLumographFormat::DoExtraWriteFinish() {}

void CLumographFormat::DoExtension20() {}

void CLumographFormat::DoExtension23() {}

void CLumographFormat::DoExtension21() {}

void CLumographFormat::DoExtension22() {}

void CLumographFormat::DoExtension34() {}

void CLumographFormat::DoExtension26() {}

void CLumographFormat::DoForwarded() {}

void CLumographFormat::DoLoad() {}

void CLumographFormat::DoUnload(bool) {}

} // namespace Kesto
