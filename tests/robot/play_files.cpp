#include "robot/play_files.h"

#include "dialogs/plugin_dialog/stored_placement.h"
#include "foundation/base/service.h"
#include "foundation/settings/plugin_settings.h"
#include "foundation/settings/settings_file.h"
#include "foundation/streams/memory_container.h"
#include "layout/build/layout_owner.h"
#include "platform/graphics/monitors.h"
#include "plugin/view_info/window_requests.h"
#include "robot/golden_pictures.h"
#include "support/testing.h"
#include "view/window/window.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <map>
#include <memory>
#include <stdexcept>
#include <string_view>
#include <utility>

namespace fs = std::filesystem;

namespace {

const fs::path kFolder = fs::path(SIDECAR_SOURCE_DIR) / "tests" / "robot";

// "# layout: NAME.vex" is the first line.
std::string LayoutOf(const fs::path& script)
{
    std::string line;
    std::ifstream file(script);
    std::getline(file, line);
    constexpr std::string_view kBegin = "# layout: ";
    if (!line.starts_with(kBegin))
        throw std::runtime_error(script.string() + " doesn't begin with \"# layout: NAME.vex\"");
    return line.substr(kBegin.size());
}

std::string TextOf(const fs::path& path)
{
    std::ifstream file(path);
    return {std::istreambuf_iterator<char>(file), {}};
}

Kesto::CView* HindmostWindow()
{
    Kesto::CDesktopWindow* at = Kesto::CServiceT<Kesto::CDesktop>::Get()->FrontWindow();
    while (at->fNext != nullptr)
        at = at->fNext;
    return dynamic_cast<Kesto::CWindow*>(at);
}

// What a program would do for these layouts: a button with the id "Robot/Open/NAME" runs NAME.vex
// as a modal dialog above its window, one with "Robot/OpenOverHindmost/NAME" above the hindmost.
// Where the dialog of a name stood is kept for the next time.
class DialogKeeper {
public:
    bool operator()(Kesto::CCommandMessage& command)
    {
        const std::string id = command.fID.Name();
        const std::string folder = id.substr(0, id.rfind('/'));
        if (folder != "Robot/Open" && folder != "Robot/OpenOverHindmost")
            return false;
        Run(id.substr(folder.size() + 1),
            folder == "Robot/Open" ? Kesto::FindWindowOf(nullptr) : HindmostWindow());
        return true;
    }

private:
    void Run(const std::string& name, Kesto::CView* owner)
    {
        Kesto::LayoutOwner layout;
        layout.fParent = owner;
        Kesto::LoadLayoutFromText(layout, TextOf(kFolder / (name + ".vex")).c_str());
        const std::unique_ptr<Kesto::CWindow> dialog = layout.TakeWindow();
        Kesto::CMemoryContainer& kept = fKept[name];
        if (kept.GetSize() != 0) {
            Kesto::PluginSettings settings;
            Kesto::SettingsFileLoad(settings, kept);
            dialog->SetPlacement(Project::PlacementOf(settings.window));
        }
        dialog->SetModal(true);
        dialog->Run();
        Kesto::PluginSettings settings;
        settings.window = Project::WindowStateOf(dialog->GetPlacement());
        kept.SetSize(0);
        Kesto::SettingsFileSave(settings, kept);
    }

    std::map<std::string, Kesto::CMemoryContainer> fKept; // as a program's store has it
};

// Each play begins with the same one where there is no display. False with one.
bool MakeUpMonitor()
{
    constexpr Platform::PixelRect kAll{0, 0, 1920, 1080};
    return Platform::MakeUpMonitors({{kAll, kAll, 1.0}});
}

bool NamesMonitors(const fs::path& script)
{
    const auto actions = Host::LoadScript(script.string()).actions;
    return std::ranges::find(actions, Host::Verb::kMonitors, &Host::Action::verb) != actions.end();
}

} // namespace

std::vector<std::string> PlayNames()
{
    std::vector<std::string> names;
    const bool hasMonitors = MakeUpMonitor() || Platform::ListMonitors().size() > 1;
    for (const auto& entry : fs::directory_iterator(kFolder))
        if (entry.path().extension() == ".play" && (hasMonitors || !NamesMonitors(entry.path())))
            names.push_back(entry.path().stem().string());
    std::ranges::sort(names);
    return names;
}

void ExpectPlays(const std::string& name, const Kesto::CHostHands& hands)
{
    const PictureFolder pictures;
    const fs::path script = kFolder / (name + ".play");
    const Host::PlayOutcome outcome =
        PlayOn(LayoutOf(script), Host::LoadScript(script.string()), hands);
    EXPECT_EQ(outcome.words, "");
    EXPECT_EQ(outcome.status, Host::PlayOutcome::kPlayed);
    const std::string lines = pictures.LinesFor(name);
    EXPECT_EQ(lines, KeptLines(name, lines))
        << "If that is right now, run tests/robot/golden/make.";
}

Host::PlayOutcome PlayOn(const std::string& layout, Host::Script script,
                         const Kesto::CHostHands& hands, const std::string& messages)
{
    Vex::PlayOptions options;
    options.build.opens = true;
    options.messages = messages;
    options.hands = hands;
    MakeUpMonitor();
    DialogKeeper dialogs;
    options.commands = std::ref(dialogs);
    return Vex::Play(Vex::CSourceText::Load((kFolder / layout).string()), std::move(script),
                     options);
}
