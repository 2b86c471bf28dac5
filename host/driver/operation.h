// One operation of the host on one file: the format record, its callbacks and the file.
//
// Callbacks of the protocol are plain functions without a context, so one operation is at work at a
// time.
#pragma once

#include "driver/plugin_module.h"
#include "driver/row_exchange.h"
#include "lumograph/file_service_control.h"
#include "lumograph/lumograph.h"
#include "progress.h"

#include <exception>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace Host {

// What the user may set about all operations.
struct OperationOptions {
    int64_t memoryLimit = int64_t{4} << 20; // bytes of buffers that Space() starts from
    int64_t abortAt = 0; // the abortCheck, counted from 1, that answers yes; 0: only the user's key
    bool interactive = false; // the module may show its dialogs
    bool showProgress = true;
    bool verbose = false; // each selector and the books go to the error stream
};

// A group of selectors of one purpose.
struct Phases {
    int16_t prepare, start, proceed, finish;
    const char* deed; // "open", for messages
};

inline constexpr Phases kReadPhases = {kFormatReadPrepare, kFormatReadStart, kFormatReadContinue,
                                       kFormatReadFinish, "open"};
inline constexpr Phases kOptionsPhases = {kFormatOptionsPrepare, kFormatOptionsStart,
                                          kFormatOptionsContinue, kFormatOptionsFinish,
                                          "ask for options of"};
inline constexpr Phases kEstimatePhases = {kFormatEstimatePrepare, kFormatEstimateStart,
                                           kFormatEstimateContinue, kFormatEstimateFinish,
                                           "estimate"};
inline constexpr Phases kWritePhases = {kFormatWritePrepare, kFormatWriteStart,
                                        kFormatWriteContinue, kFormatWriteFinish, "save"};

class Operation {
public:
    // Binds a fresh record to `file`. `data` is the module's data word, which outlives the
    // operation.
    Operation(const PluginModule& module, intptr_t& data, const std::filesystem::path& file,
              const OperationOptions& options);
    ~Operation();
    Operation(const Operation&) = delete;
    Operation& operator=(const Operation&) = delete;

    HostFormatRecord& Record() { return fRecord; }

    // What exchangeRows does; without it rows are refused.
    void SetExchange(std::function<void(const HostFormatRecord&)> exchange)
    {
        fExchange = std::move(exchange);
    }
    void SetProgress(ProgressBar* progress) { fProgress = progress; }

    // Calls the module once and returns its result code.
    int16_t Call(int16_t selector);

    // Runs prepare, start, `started`, continue and finish. A failure of prepare or start ends the
    // group at once; after a start that succeeded the finish is called whatever happens. While
    // `more` says so the continue is repeated. Throws what failed first.
    void Run(const Phases& phases, const std::function<void()>& started = {},
             const std::function<bool()>& more = {});

    // Gives the written file its name. Throws Failure when that or any write failed.
    void Commit();

    // What the module has left open or allocated, a line each; empty when everything was given
    // back.
    std::vector<std::string> Leftovers() const;

private:
    static uint8_t AbortCheck();
    static void ReportProgress(int32_t current, int32_t total);
    static int16_t ExchangeRows();

    void BuildRecord();
    void RequireCall(int16_t selector, const Phases& phases);

    const PluginModule& fModule;
    intptr_t& fData;
    std::filesystem::path fFile;
    OperationOptions fOptions;
    HostFormatRecord fRecord = {};
    HostPlaybackBlock fPlayback = {};
    std::function<void(const HostFormatRecord&)> fExchange;
    std::exception_ptr
        fCallbackFailure; // thrown in a callback, kept while the module is on the stack
    ProgressBar* fProgress = nullptr;
    int64_t fAbortChecks = 0;
};

} // namespace Host
