// The handlers: each hands its selector and its operation to the shape that it has in common with
// others.
#include "plugin/format/lumograph_format.h"

#include "plugin/frame/exception_frame.h"
#include "plugin/suites/host_properties.h"

namespace Kesto {
namespace {

int16_t ResultOf(bool ok)
{
    return ok ? int16_t{kHostNoError} : int16_t{kHostFailed};
}

} // namespace

void CLumographFormat::BeginSelector(int16_t selector, HostFormatRecord* record, intptr_t* data)
{
    RememberCall(record, data, selector);
    flags |= kFlag_Working;
}

int16_t CLumographFormat::Prepare(int16_t selector, HostFormatRecord* record, intptr_t* data,
                                  Question operation)
{
    BeginSelector(selector, record, data);
    return RunInFrame([&] { return ResultOf(WithRequiredMemory() && (this->*operation)()); });
}

int16_t CLumographFormat::StartPhase(int16_t selector, HostFormatRecord* record, intptr_t* data,
                                     Question operation)
{
    BeginSelector(selector, record, data);
    return RunInFrame([&] {
        PrepareMemory();
        return ResultOf((this->*operation)());
    });
}

int16_t CLumographFormat::Ask(int16_t selector, HostFormatRecord* record, intptr_t* data,
                              Question operation)
{
    BeginSelector(selector, record, data);
    return RunInFrame([&] { return ResultOf((this->*operation)()); });
}

int16_t CLumographFormat::Tell(int16_t selector, HostFormatRecord* record, intptr_t* data,
                               Command operation)
{
    BeginSelector(selector, record, data);
    return RunInFrame([&] {
        (this->*operation)();
        return ResultOf(true);
    });
}

int16_t CLumographFormat::HandleAbout(const HostAboutRecord* record, intptr_t* data)
{
    return RunInFrame([&] {
        if (record != nullptr && CHostProperties(record->basicSuite).IsAvailable()) {
            SetupHighDPI(record->basicSuite);
            UpdateHostProperties(record->basicSuite);
        }
        aboutRecord = record;
        pluginData = data;
        hostSelector = kFormatAbout;
        flags = (flags & ~kFlag_Working) | kFlag_About;
        RunAbout();
        flags &= ~kFlag_About;
        return ResultOf(true);
    });
}

// The one handler without the reporter: its answer only says whether the file is of the format.
int16_t CLumographFormat::HandleFilterFile(HostFormatRecord* record, intptr_t* data)
{
    RememberCall(record, data, kFormatFilterFile);
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
    RememberCall(record, data, selector);
    flags &= ~kFlag_Working;
    return RunInFrame([&] {
        DoForwarded();
        return ResultOf(true);
    });
}

int16_t CLumographFormat::HandleUnload(bool unloading)
{
    flags |= kFlag_Working;
    return RunInFrame([&] {
        DoUnload(unloading);
        return ResultOf(true);
    });
}

int16_t CLumographFormat::HandleReadPrepare(HostFormatRecord* record, intptr_t* data)
{
    return Prepare(kFormatReadPrepare, record, data, &CLumographFormat::DoReadPrepare);
}

int16_t CLumographFormat::HandleReadStart(HostFormatRecord* record, intptr_t* data)
{
    return StartPhase(kFormatReadStart, record, data, &CLumographFormat::DoReadStart);
}

int16_t CLumographFormat::HandleReadContinue(HostFormatRecord* record, intptr_t* data)
{
    return Ask(kFormatReadContinue, record, data, &CLumographFormat::DoReadContinue);
}

int16_t CLumographFormat::HandleReadFinish(HostFormatRecord* record, intptr_t* data)
{
    return Tell(kFormatReadFinish, record, data, &CLumographFormat::DoReadFinish);
}

int16_t CLumographFormat::HandleExtraReadStart(HostFormatRecord* record, intptr_t* data)
{
    return Ask(kFormatExtraReadStart, record, data, &CLumographFormat::DoExtraReadStart);
}

int16_t CLumographFormat::HandleExtraReadContinue(HostFormatRecord* record, intptr_t* data)
{
    return Ask(kFormatExtraReadContinue, record, data, &CLumographFormat::DoExtraReadContinue);
}

int16_t CLumographFormat::HandleExtraReadFinish(HostFormatRecord* record, intptr_t* data)
{
    return Tell(kFormatExtraReadFinish, record, data, &CLumographFormat::DoExtraReadFinish);
}

int16_t CLumographFormat::HandleOptionsPrepare(HostFormatRecord* record, intptr_t* data)
{
    return Prepare(kFormatOptionsPrepare, record, data, &CLumographFormat::DoOptionsPrepare);
}

int16_t CLumographFormat::HandleOptionsStart(HostFormatRecord* record, intptr_t* data)
{
    return StartPhase(kFormatOptionsStart, record, data, &CLumographFormat::DoOptionsStart);
}

int16_t CLumographFormat::HandleOptionsContinue(HostFormatRecord* record, intptr_t* data)
{
    return Ask(kFormatOptionsContinue, record, data, &CLumographFormat::DoOptionsContinue);
}

int16_t CLumographFormat::HandleOptionsFinish(HostFormatRecord* record, intptr_t* data)
{
    return Tell(kFormatOptionsFinish, record, data, &CLumographFormat::DoOptionsFinish);
}

int16_t CLumographFormat::HandleEstimatePrepare(HostFormatRecord* record, intptr_t* data)
{
    return Prepare(kFormatEstimatePrepare, record, data, &CLumographFormat::DoEstimatePrepare);
}

int16_t CLumographFormat::HandleEstimateStart(HostFormatRecord* record, intptr_t* data)
{
    return StartPhase(kFormatEstimateStart, record, data, &CLumographFormat::DoEstimateStart);
}

int16_t CLumographFormat::HandleEstimateContinue(HostFormatRecord* record, intptr_t* data)
{
    return Ask(kFormatEstimateContinue, record, data, &CLumographFormat::DoEstimateContinue);
}

int16_t CLumographFormat::HandleEstimateFinish(HostFormatRecord* record, intptr_t* data)
{
    return Tell(kFormatEstimateFinish, record, data, &CLumographFormat::DoEstimateFinish);
}

int16_t CLumographFormat::HandleWritePrepare(HostFormatRecord* record, intptr_t* data)
{
    return Prepare(kFormatWritePrepare, record, data, &CLumographFormat::DoWritePrepare);
}

int16_t CLumographFormat::HandleWriteStart(HostFormatRecord* record, intptr_t* data)
{
    return StartPhase(kFormatWriteStart, record, data, &CLumographFormat::DoWriteStart);
}

int16_t CLumographFormat::HandleWriteContinue(HostFormatRecord* record, intptr_t* data)
{
    return Ask(kFormatWriteContinue, record, data, &CLumographFormat::DoWriteContinue);
}

int16_t CLumographFormat::HandleWriteFinish(HostFormatRecord* record, intptr_t* data)
{
    return Tell(kFormatWriteFinish, record, data, &CLumographFormat::DoWriteFinish);
}

int16_t CLumographFormat::HandleExtraWriteStart(HostFormatRecord* record, intptr_t* data)
{
    return Ask(kFormatExtraWriteStart, record, data, &CLumographFormat::DoExtraWriteStart);
}

int16_t CLumographFormat::HandleExtraWriteContinue(HostFormatRecord* record, intptr_t* data)
{
    return Ask(kFormatExtraWriteContinue, record, data, &CLumographFormat::DoExtraWriteContinue);
}

int16_t CLumographFormat::HandleExtraWriteFinish(HostFormatRecord* record, intptr_t* data)
{
    return Tell(kFormatExtraWriteFinish, record, data, &CLumographFormat::DoExtraWriteFinish);
}

int16_t CLumographFormat::HandleExtension20(HostFormatRecord* record, intptr_t* data)
{
    return Tell(kFormatExtension20, record, data, &CLumographFormat::DoExtension20);
}

int16_t CLumographFormat::HandleExtension23(HostFormatRecord* record, intptr_t* data)
{
    return Tell(kFormatExtension23, record, data, &CLumographFormat::DoExtension23);
}

int16_t CLumographFormat::HandleExtension21(HostFormatRecord* record, intptr_t* data)
{
    return Tell(kFormatExtension21, record, data, &CLumographFormat::DoExtension21);
}

int16_t CLumographFormat::HandleExtension22(HostFormatRecord* record, intptr_t* data)
{
    return Tell(kFormatExtension22, record, data, &CLumographFormat::DoExtension22);
}

int16_t CLumographFormat::HandleExtension34(HostFormatRecord* record, intptr_t* data)
{
    return Tell(kFormatExtension34, record, data, &CLumographFormat::DoExtension34);
}

int16_t CLumographFormat::HandleExtension26(HostFormatRecord* record, intptr_t* data)
{
    return Tell(kFormatExtension26, record, data, &CLumographFormat::DoExtension26);
}

} // namespace Kesto
