// The one object of a group of projects of which only one can be at work, filters or exports, and
// what is done around its handlers.
#pragma once

#include "plugin/frame/lumograph_plugin.h"
#include "plugin/frame/process_setup.h"
#include "view/process/clean_up_list.h"

#include <memory>
#include <stdexcept>

namespace Kesto {

template <class Plugin, class Record>
class CSinglePlugin {
public:
    using Factory = std::unique_ptr<Plugin> (*)(ProjectIndex);
    using Handler = int16_t (Plugin::*)(Record*, intptr_t*);

    // What the host passed to an entry, and how to make the object.
    struct Call {
        int16_t selector;
        void* record;
        intptr_t* data;
        ProjectIndex index;
        Factory factory;
    };

    // `ended` is called whenever an object has been deleted and the clean-up list has run.
    explicit CSinglePlugin(void (*ended)() = [] {}) : fEnded(ended) {}

    // When the host ends without a finish, the object is not destroyed: what its destructor would
    // use, such as the message queue, may be gone by now.
    ~CSinglePlugin() { static_cast<void>(fPlugin.release()); }
    CSinglePlugin(const CSinglePlugin&) = delete;
    CSinglePlugin& operator=(const CSinglePlugin&) = delete;

    // Serves a call: its result is that of `serve`. An exception ends the object and makes it
    // kHostFailed.
    void Dispatch(const Call& call, int16_t& result, int16_t (*serve)(const Call&))
    {
        try {
            result = serve(call);
        } catch (...) {
            End();
            result = kHostFailed;
        }
    }

    // The shapes of selectors, each with the result that the host gets. Open makes the object when
    // there is none, and tells it the host's properties; a failure ends it. Tell and Finish do
    // nothing without an object; Finish ends it. About is served by an object of its own. Open and
    // About throw std::logic_error when the module has no class for the project.

    int16_t Open(const Call& call, Handler handler)
    {
        auto* const record = static_cast<Record*>(call.record);
        Plugin& plugin = Acquire(call, record != nullptr ? record->basicSuite : nullptr);
        const int16_t result = (plugin.*handler)(record, call.data);
        if (result != kHostNoError)
            End();
        return result;
    }

    int16_t Tell(const Call& call, Handler handler)
    {
        return fPlugin != nullptr
                   ? ((*fPlugin).*handler)(static_cast<Record*>(call.record), call.data)
                   : int16_t{kHostNoError};
    }

    int16_t Finish(const Call& call, Handler handler)
    {
        const int16_t result = Tell(call, handler);
        End();
        return result;
    }

    int16_t About(const Call& call)
    {
        std::unique_ptr<Plugin> plugin = Make(call);
        const int16_t result =
            plugin->HandleAbout(static_cast<const HostAboutRecord*>(call.record), call.data);
        CleanUpAfter(std::move(plugin));
        return result;
    }

private:
    // The process is set up for the object.
    static std::unique_ptr<Plugin> Make(const Call& call)
    {
        SetUpProcess();
        std::unique_ptr<Plugin> plugin = call.factory(call.index);
        if (plugin == nullptr)
            throw std::logic_error("Warning! (plugin != nullptr)");
        plugin->projectIndex = call.index;
        return plugin;
    }

    Plugin& Acquire(const Call& call, const HostBasicSuite* basicSuite)
    {
        if (fPlugin == nullptr) {
            std::unique_ptr<Plugin> plugin = Make(call);
            plugin->SetupHighDPI(basicSuite);
            plugin->UpdateHostProperties(basicSuite);
            fPlugin = std::move(plugin);
        }
        fPlugin->MakeCurrentPlugin();
        return *fPlugin;
    }

    void End() { CleanUpAfter(std::move(fPlugin)); }

    void CleanUpAfter(std::unique_ptr<Plugin> plugin)
    {
        plugin.reset();
        RunCleanUpList();
        fEnded();
    }

    std::unique_ptr<Plugin> fPlugin;
    void (*fEnded)();
};

} // namespace Kesto
