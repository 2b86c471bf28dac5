// What the foundation asks of the process above it: translations, the thread and window of the user
// interface.
//
// The process class derives from this and makes itself current for as long as it lives. Without
// one, the base answers. The pointer kept here is the only one to the current process: the layers
// above see the same object by their own types.
#pragma once

#include "foundation/base/text.h"
#include "platform/system/alert.h"

#include <atomic>
#include <cstdint>
#include <mutex>
#include <optional>

namespace Kesto {

class CProcessLink; // the process as the layer of messages sees it

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

    // Calls `use` with the current process as its link, null without one, and returns its answer.
    // Until then a thread that takes the process away waits, so `use` takes no other lock for long
    // and sets no current process.
    template <class Use>
    static auto WithCurrentLink(Use use)
    {
        const std::lock_guard lock(gMutex);
        return use(CurrentLink());
    }

    // The same link without the lock: for the thread on which processes come and go.
    static CProcessLink* CurrentLink()
    {
        CProcessServices* const current = gCurrent.load(std::memory_order_acquire);
        return current != nullptr ? current->AsLink() : nullptr;
    }

    virtual CProcessLink* AsLink() { return nullptr; }

    // Replaces the "$$$/" literal by its translation and returns true, or leaves it and returns
    // false.
    virtual bool TranslateKey(CText& literal);

    // True: texts come from the module alone, and TranslateKey is never asked. The answer is asked
    // for once; HasOwnStringsOnly keeps it.
    virtual bool UsesOwnStringsOnly();
    bool HasOwnStringsOnly();

    // The window that an alert is shown in front of when its caller names none; null for none.
    virtual Platform::NativeWindow AlertParent();

    // True on the thread that started the process; in the base, on the thread that first asked.
    virtual bool IsMainThread();

    // Has DebugReport called again with these arguments on the main thread, later, and returns
    // true; false if there is nothing to post to. Texts are constants. Called from any thread.
    virtual bool PostDebugReport(const char* message, const char* file, std::uint32_t line,
                                 bool throwIt);

protected:
    ~CProcessServices() = default;

private:
    static std::atomic<CProcessServices*> gCurrent;
    static std::mutex gMutex; // held while the pointer changes, and while a link is used

    std::optional<bool> fOwnStringsOnly; // as far as it is known
};

} // namespace Kesto
