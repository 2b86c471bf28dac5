#include "driver/document_run.h"

#include "console.h"
#include "driver/basic_suite.h"
#include "driver/host_memory.h"
#include "failure.h"
#include "messages.h"

#include <algorithm>
#include <cstdio>
#include <limits>
#include <utility>

namespace Host {

DocumentRun* DocumentRun::gCurrent = nullptr;

DocumentRun::DocumentRun(const PluginModule& module, const OperationOptions& options,
                         ServedSettings::Pairs settings, const char* title, std::string what)
    : fSettings(std::move(settings)), fOuter(std::exchange(gCurrent, this)), fModule(module),
      fOptions(options), fWhat(std::move(what)), fProgress(title)
{
    if (fOuter != nullptr)
        return;
    SetMemoryLimit(options.memoryLimit);
    SetMemoryHeadRoom(0);
    ResetBuffers();
}

DocumentRun::~DocumentRun()
{
    gCurrent = fOuter;
    if (fOuter != nullptr)
        return;
    ResetBuffers();
    ReleaseHandles();
}

void DocumentRun::RequireSides(const PictureInfo& info)
{
    constexpr int32_t kMost = std::numeric_limits<int16_t>::max();
    if (std::max(info.width, info.height) > kMost)
        throw Failure("the picture is too large for filters and exports: " +
                          std::to_string(info.width) + " x " + std::to_string(info.height) +
                          ", the limit is " + std::to_string(kMost) + " a side",
                      "Make it smaller or cut it into parts.", kHostBadMode);
}

int16_t DocumentRun::Call(int16_t selector, const char* name, void* record)
{
    const int16_t code = fModule.Call(selector, record, fData);
    if (fOptions.verbose)
        std::fprintf(stderr, "%2d %-18s %s\n", selector, name, ResultLine(code).c_str());
    return code;
}

void DocumentRun::Require(int16_t selector, const char* name, void* record)
{
    const int16_t code = Call(selector, name, record);
    if (fCallbackFailure)
        std::rethrow_exception(std::exchange(fCallbackFailure, nullptr));
    if (code == kHostBadParameter)
        fSettings.RequireAccepted();
    if (code != kHostNoError)
        throw FailureOf("can't " + fWhat, code);
}

void DocumentRun::CallAtEnd(int16_t selector, const char* name, void* record)
{
    Call(selector, name, record);
    fCallbackFailure = nullptr;
}

int16_t DocumentRun::Keep(int16_t code)
{
    fCallbackFailure = std::current_exception();
    return code == kHostNoError ? static_cast<int16_t>(kHostFailed) : code;
}

int32_t DocumentRun::Budget() const
{
    return static_cast<int32_t>(
        std::min<int64_t>(fOptions.memoryLimit, std::numeric_limits<int32_t>::max()));
}

void DocumentRun::ReportBooks() const
{
    if (fOuter != nullptr)
        return; // whose memory can't be told from this one's
    const MemoryBook& memory = Memory();
    if (memory.buffers > 0)
        std::fprintf(stderr, "lumohost: the module left behind: %d buffers of %lld bytes\n",
                     int{memory.buffers}, static_cast<long long>(memory.used));
    if (const int suites = AcquiredSuites(); suites > 0)
        std::fprintf(stderr, "lumohost: the module left behind: %d suites not released\n", suites);
    if (fOptions.verbose)
        std::fprintf(stderr, "memory: peak %lld bytes in buffers, limit %lld\n",
                     static_cast<long long>(memory.peak), static_cast<long long>(memory.limit));
}

uint8_t DocumentRun::AbortCheck()
{
    const bool chosen = IsRunning() && ++gCurrent->fAbortChecks == gCurrent->fOptions.abortAt;
    return chosen || Interrupted() ? 1 : 0;
}

void DocumentRun::ReportProgress(int32_t current, int32_t total)
{
    if (IsRunning())
        gCurrent->fProgress.Show(current, total);
}

} // namespace Host
