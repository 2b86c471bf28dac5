#include "plugin/format/lumograph_format.h"

#include "plugin/frame/handlers.h"

namespace Kesto {

HostFormatRecord* CLumographFormat::GetFormatRecord()
{
    return static_cast<HostFormatRecord*>(hostRecord);
}

int16_t CLumographFormat::GetSelector()
{
    return hostSelector;
}

const HostBasicSuite* CLumographFormat::GetBasicSuite()
{
    const HostFormatRecord* const record = GetFormatRecord();
    return record != nullptr ? record->basicSuite : CLumographPlugin::GetBasicSuite();
}

bool CLumographFormat::WithRequiredMemory()
{
    HostFormatRecord* const record = GetFormatRecord();
    if (record == nullptr)
        throw CLumographError(kHostBadParameter);
    record->memoryBudget = ShareMemory(record->memoryBudget);
    PrepareMemory();
    return true;
}

int16_t CLumographFormat::HandleAbout(const HostAboutRecord* record, intptr_t* data)
{
    // The reading is within the frame of its own: the host's suite may fail as the box may.
    const int16_t result = RunInFrame([&] {
        if (record != nullptr) {
            SetupHighDPI(record->basicSuite);
            UpdateHostProperties(record->basicSuite);
        }
        return int16_t{kHostNoError};
    });
    auto* const plain = const_cast<HostAboutRecord*>(record);
    return result != kHostNoError ? result : About(*this, {kFormatAbout, plain, data});
}

// The one handler without the reporter: its answer only says whether the file is of the format.
int16_t CLumographFormat::HandleFilterFile(HostFormatRecord* record, intptr_t* data)
{
    RememberCall({kFormatFilterFile, record, data});
    flags &= ~kFlag_Working;
    try {
        return CanFilterFile() ? int16_t{kHostNoError} : int16_t{kHostCannotRead};
    } catch (const CLumographError& error) {
        const bool kept = error.Code() == kHostFilterFileA || error.Code() == kHostFilterFileB;
        return kept ? error.Code() : int16_t{kHostCannotRead};
    } catch (...) {
        return kHostCannotRead;
    }
}

int16_t CLumographFormat::HandleForwarded(int16_t selector, HostFormatRecord* record,
                                          intptr_t* data)
{
    RememberCall({selector, record, data});
    flags &= ~kFlag_Working;
    return RunInFrame([&] {
        DoForwarded();
        return int16_t{kHostNoError};
    });
}

int16_t CLumographFormat::HandleUnload(bool unloading)
{
    flags |= kFlag_Working;
    return RunInFrame([&] {
        DoUnload(unloading);
        return int16_t{kHostNoError};
    });
}

} // namespace Kesto
