// The base of all plug-in objects: what the host told, the host's user-interface state, and the
// memory bargain.
#pragma once

#include "plugin/frame/host_call.h"
#include "plugin/frame/project_index.h"
#include "plugin/suites/host_suites.h"
#include "view/process/process.h"

#include "lumograph/lumograph.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <vector>

namespace Kesto {

class CIdler;

class CLumographPlugin : public CProcess {
public:
    // Bits of `flags`.
    static constexpr uint32_t kFlag_Working = 1U << 3; // a selector is in its working phase
    static constexpr uint32_t kFlag_About = 1U << 5;   // the about box is up

    CLumographPlugin();
    ~CLumographPlugin() override;

    // Reads the host's user-interface state into the fields below. A property that the host doesn't
    // know leaves its field as it is.
    virtual void UpdateHostProperties(const HostBasicSuite* basicSuite);

    // Splits the host's memory between the module's buffers (first) and the rest (second). False:
    // it is too little.
    virtual bool SplitMemory(int32_t total, int32_t& first, int32_t& second);

    // SplitMemory on a budget: keeps the first share in memoryShare and returns the sum of both.
    // Throws CError when there is too little, with memoryShare 0.
    int32_t ShareMemory(int32_t budget);

    // Sets the limit of the tile store from the machine's memory, and opens the store if it isn't
    // open yet.
    virtual void PrepareMemory();

    // Shows the about box inside a process scope.
    virtual void RunAbout();

    // The about box itself; a plug-in that has one shows it here.
    virtual void DoAbout();

    // Folders where the tile store may keep its scratch files; none: the store looks for itself.
    virtual std::vector<std::filesystem::path> GetScratchFolders();

    // Where suites come from: what the current record says, or null.
    virtual const HostBasicSuite* GetBasicSuite();

    // The host's suites; each stays acquired from its first use to the end of the object.
    const CHostSuites& HostSuites();

    // The memory that PrepareMemory goes by, in bytes.
    virtual uint64_t GetHostMemory();

    // Whether the host lets a plug-in choose how its windows scale.
    virtual bool AllowsScaleHook();

    // Hands the host's scaling of windows to the toolkit, once for each object.
    void SetupHighDPI(const HostBasicSuite* basicSuite);

    // Has the host look into the plug-in's windows, and takes that back. Done when the first of
    // them opens and the last one has closed; a host without the suite is left alone, and so is one
    // that refuses. (view_info/view_info_hook.cpp)
    void RegisterViewInfoHook();
    void UnregisterViewInfoHook();
    void WindowOpened() override;
    void WindowClosed() override;

    // Has windows take the theme and the scale that the host told. Done when the first one opens,
    // so that a host can change its mind while a window is up.
    void UseHostLook() const;

    // There is a display, or the host takes turns. (view_info/view_info_hook.cpp)
    bool HasUser() override;

    // Nothing is stored, and nothing read back, while the host shuts the settings off.
    bool ReadSettingsData(const CText& keyPath, const CText& valueName, const CText& fileName,
                          CContainer& out, bool useRegistry) override;
    bool WriteSettingsData(const CText& keyPath, const CText& valueName, const CText& fileName,
                           CContainer& in, bool useRegistry) override;

    // The families of its windows' class names begin with the prefix.
    virtual const char* WindowClassPrefix() const { return "LGPlugin_"; }
    CText WindowClassName(uint32_t kind) override;
    CText ModalClassName() override;
    CText DefaultClassName() override;

    // The object of a project, of whichever kind; null when none lives.
    static CLumographPlugin* FindPlugin(ProjectIndex project);

    // The plug-in that the host last called, or null. The object doesn't outlive its place here.
    static CLumographPlugin* CurrentPlugin();
    void MakeCurrentPlugin();

    // What one selector brings: the record and the data word are valid until it returns.
    void RememberCall(const HostCall& call);
    void ForgetCall();

    uint32_t flags = 0;
    const HostAboutRecord* aboutRecord = nullptr;
    bool highDpiReady = false;
    int32_t uiBrightness = 0; // the theme of its windows: 0 light to 3 dark
    bool highContrast = false;
    bool largeTabs = false;
    float uiScale = 1.0F;
    intptr_t* pluginData = nullptr;
    void* hostRecord = nullptr;
    int16_t hostSelector = 0;
    int32_t memoryShare = 0; // bytes for the module's own buffers
    bool keepAlive = false;  // resident: outlives its sessions
    ProjectIndex projectIndex{};

protected:
    // Sets the tile store's limit in bytes, and opens it if it isn't open yet.
    void OpenTileStore(uint64_t limit);

private:
    bool AreSettingsOff();

    CHostSuites fSuites;
    const HostUIHooksSuite4* fHooks = nullptr; // where the view-info hook is registered
    std::unique_ptr<CIdler> fTurns;            // of the host, while it is
    bool fHasWindows = false;
    CLumographPlugin* fNextPlugin; // of those that live
};

} // namespace Kesto
