#include "driver/operation.h"

#include "console.h"
#include "driver/basic_suite.h"
#include "driver/host_memory.h"
#include "driver/selector_names.h"
#include "failure.h"
#include "messages.h"

#include <algorithm>
#include <cstdio>
#include <limits>
#include <utility>

namespace Host {
namespace {

// The operation that the callbacks serve.
Operation* gCurrent = nullptr;

std::string Counted(int64_t count, const char* thing)
{
    return std::to_string(count) + " " + thing + (count == 1 ? "" : "s");
}

} // namespace

Operation::Operation(const PluginModule& module, intptr_t& data, const std::filesystem::path& file,
                     const OperationOptions& options)
    : fModule(module), fData(data), fFile(file), fOptions(options)
{
    SetMemoryLimit(options.memoryLimit);
    SetMemoryHeadRoom(0);
    ResetBuffers();
    BuildRecord();
    Require(FileServiceBind(&fRecord, TextOf(file).c_str()), TextOf(file));
    gCurrent = this;
}

Operation::~Operation()
{
    gCurrent = nullptr;
    FileServiceUnbind(&fRecord);
    ResetBuffers();
}

// What a host has to fill before the first selector; the picture's fields come from the module or
// from the document.
void Operation::BuildRecord()
{
    fRecord.abortCheck = AbortCheck;
    fRecord.progressReport = ReportProgress;
    fRecord.memoryBudget = static_cast<int32_t>(
        std::min<int64_t>(fOptions.memoryLimit, std::numeric_limits<int32_t>::max()));
    fRecord.exchangeRows = ExchangeRows;
    fRecord.bufferSuite = BufferSuite();
    fRecord.handleSuite = HandleSuite();
    fRecord.basicSuite = BasicSuite();
    fPlayback.playMode = kHostPlaySilent;
    fRecord.playbackBlock = fOptions.interactive ? nullptr : &fPlayback;
    fRecord.quietOpen = fOptions.interactive ? 0 : 1;
    for (int16_t i = 0; i < 4; ++i)
        fRecord.planeOrder[i] = i;
}

int16_t Operation::Call(int16_t selector)
{
    const int16_t code = fModule.Call(selector, &fRecord, fData);
    if (fOptions.verbose)
        std::fprintf(stderr, "%2d %-18s %s\n", selector, SelectorName(selector),
                     ResultLine(code).c_str());
    return code;
}

void Operation::RequireCall(int16_t selector, const Phases& phases)
{
    const int16_t code = Call(selector);
    if (fCallbackFailure)
        std::rethrow_exception(std::exchange(fCallbackFailure, nullptr));
    if (code == kHostNoError)
        return;
    const FileServiceReport files = FileServiceInspect(&fRecord);
    const std::string what = std::string("can't ") + phases.deed + " " + TextOf(fFile);
    // The module has one code for all that is wrong with a file; the file service knows better when
    // the system refused.
    if (code == kHostCannotRead && files.openResult != kHostNoError)
        throw FailureOf(what, files.openResult);
    throw FailureOf(what, code);
}

void Operation::Run(const Phases& phases, const std::function<void()>& started,
                    const std::function<bool()>& more)
{
    RequireCall(phases.prepare, phases);
    SetMemoryHeadRoom(fRecord.memoryBudget);
    RequireCall(phases.start, phases);
    // Once the start has done well the module is owed its finish, whatever happens in between.
    std::exception_ptr failure;
    try {
        if (started)
            started();
        do
            RequireCall(phases.proceed, phases);
        while (more && more());
    } catch (...) {
        failure = std::current_exception();
        Call(phases.finish);
        std::rethrow_exception(failure);
    }
    RequireCall(phases.finish, phases);
}

void Operation::Commit()
{
    Require(FileServiceCommit(&fRecord), "can't save " + TextOf(fFile));
}

std::vector<std::string> Operation::Leftovers() const
{
    const MemoryBook& memory = Memory();
    std::vector<std::string> lines;
    if (memory.buffers > 0)
        lines.push_back(Counted(memory.buffers, "buffer") + " not given back, " +
                        Counted(memory.used, "byte"));
    if (memory.locked > 0)
        lines.push_back(Counted(memory.locked, "buffer") + " still locked");
    if (memory.faults > 0)
        lines.push_back(Counted(memory.faults, "call") + " with a buffer or handle that isn't one");
    if (const int32_t files = FileServiceInspect(&fRecord).openFiles; files > 0)
        lines.push_back(Counted(files, "file") + " not closed");
    return lines;
}

uint8_t Operation::AbortCheck()
{
    const bool chosen = gCurrent && ++gCurrent->fAbortChecks == gCurrent->fOptions.abortAt;
    return chosen || Interrupted() ? 1 : 0;
}

void Operation::ReportProgress(int32_t current, int32_t total)
{
    if (gCurrent && gCurrent->fProgress)
        gCurrent->fProgress->Show(current, total);
}

// Nothing is thrown through the module: a failure waits in fCallbackFailure, and the module gets
// its code.
int16_t Operation::ExchangeRows()
{
    if (!gCurrent || !gCurrent->fExchange)
        return kHostBadParameter;
    try {
        gCurrent->fExchange(gCurrent->fRecord);
        return kHostNoError;
    } catch (const Failure& failure) {
        gCurrent->fCallbackFailure = std::current_exception();
        return failure.Code() == kHostNoError ? static_cast<int16_t>(kHostFailed) : failure.Code();
    } catch (...) {
        gCurrent->fCallbackFailure = std::current_exception();
        return kHostIoError;
    }
}

} // namespace Host
