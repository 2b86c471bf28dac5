// DocumentRun, what a run of a filter and one of an export share: the calls of the module, its
// questions, and its settings.
//
// Callbacks of the protocol are plain functions without a context, so they serve the newest run:
// one may begin and end while another one's module has a dialog up. Memory is that of the
// outermost.
#pragma once

#include "driver/document.h"
#include "driver/operation.h"
#include "driver/plugin_module.h"
#include "failure.h"
#include "progress.h"
#include "suites/settings.h"

#include <exception>

namespace Host {

class DocumentRun {
public:
    DocumentRun(const DocumentRun&) = delete;
    DocumentRun& operator=(const DocumentRun&) = delete;

protected:
    // `title` is shown before the progress bar; `what` is the deed in messages, "filter a.png".
    DocumentRun(const PluginModule& module, const OperationOptions& options,
                ServedSettings::Pairs settings, const char* title, std::string what);
    ~DocumentRun();

    // Throws Failure for a picture that the records' rectangles of 16 bits can't tell of.
    static void RequireSides(const PictureInfo& info);

    // Calls the module once. Throws what it or a callback failed with.
    void Require(int16_t selector, const char* name, void* record);
    // The same for a call whose code no longer matters.
    void CallAtEnd(int16_t selector, const char* name, void* record);

    // Runs `body` for a callback: nothing is thrown through the module; a failure waits until the
    // selector returns, and the module gets its code.
    template <class Body>
    int16_t Guarded(Body body)
    try {
        body();
        return kHostNoError;
    } catch (const Failure& failure) {
        return Keep(failure.Code());
    } catch (const std::bad_alloc&) {
        return Keep(kHostMemoryFull);
    } catch (...) {
        return Keep(kHostFailed);
    }

    // Tells on the error stream what the module left behind; with --verbose the memory too. Of an
    // outermost run only.
    void ReportBooks() const;

    // The memory that the record tells of, in bytes.
    int32_t Budget() const;

    static uint8_t AbortCheck();
    static void ReportProgress(int32_t current, int32_t total);
    // The run that the callbacks serve.
    template <class Run>
    static Run& Current()
    {
        return static_cast<Run&>(*gCurrent);
    }
    static bool IsRunning() { return gCurrent != nullptr; }

    ServedSettings fSettings;

private:
    int16_t Call(int16_t selector, const char* name, void* record);
    int16_t Keep(int16_t code);

    static DocumentRun* gCurrent;

    DocumentRun* const fOuter;
    const PluginModule& fModule;
    OperationOptions fOptions;
    std::string fWhat;
    ProgressBar fProgress;
    intptr_t fData = 0;
    int64_t fAbortChecks = 0;
    std::exception_ptr fCallbackFailure;
};

} // namespace Host
