// What the foundation asks of the process above it: translations, the thread and window of the user
// interface.
//
// The process class derives from this and makes itself current for as long as it lives. Without
// one, the base answers.
#pragma once

#include "foundation/base/text.h"
#include "platform/system/alert.h"

#include <cstdint>

namespace Kesto {

class CProcessServices {
public:
    CProcessServices() = default;
    CProcessServices(const CProcessServices&) = delete;
    CProcessServices& operator=(const CProcessServices&) = delete;

    // The current process, or a process that gives the base's answers. May be called from any
    // thread.
    static CProcessServices& Current();

    // Makes `services` current, which its maker keeps alive; null for none. Returns the former one
    // or null.
    static CProcessServices* SetCurrent(CProcessServices* services);

    // Replaces the "$$$/" literal by its translation and returns true, or leaves it and returns
    // false.
    virtual bool TranslateKey(CText& literal);

    // True: texts come from the module alone, and TranslateKey is never asked.
    virtual bool UsesOwnStringsOnly();

    // The window that an alert stands before when its caller names none; null for none.
    virtual Platform::NativeWindow AlertParent();

    // True on the thread that started the process; in the base, on the thread that first asked.
    virtual bool IsMainThread();

    // Has DebugReport called again with these arguments on the main thread, later, and returns
    // true; false if there is nothing to post to. Texts are constants. Called from any thread.
    virtual bool PostDebugReport(const char* message, const char* file, std::uint32_t line,
                                 bool throwIt);

protected:
    ~CProcessServices() = default;
};

} // namespace Kesto
