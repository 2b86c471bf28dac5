#include "robot/play_files.h"

#include "foundation/base/service.h"
#include "layout/build/layout_owner.h"
#include "plugin/view_info/window_requests.h"
#include "view/window/window.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
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
bool OpenDialog(Kesto::CCommandMessage& command)
{
    const std::string id = command.fID.Name();
    const std::string folder = id.substr(0, id.rfind('/'));
    if (folder != "Robot/Open" && folder != "Robot/OpenOverHindmost")
        return false;
    Kesto::LayoutOwner owner;
    owner.fParent = folder == "Robot/Open" ? Kesto::FindWindowOf(nullptr) : HindmostWindow();
    Kesto::LoadLayoutFromText(owner,
                              TextOf(kFolder / (id.substr(folder.size() + 1) + ".vex")).c_str());
    const std::unique_ptr<Kesto::CWindow> dialog = owner.TakeWindow();
    dialog->SetModal(true);
    dialog->Run();
    return true;
}

} // namespace

std::vector<std::string> PlayNames()
{
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(kFolder))
        if (entry.path().extension() == ".play")
            names.push_back(entry.path().stem().string());
    std::ranges::sort(names);
    return names;
}

Host::PlayOutcome PlayFile(const std::string& name, const Kesto::CHostHands& hands)
{
    const fs::path script = kFolder / (name + ".play");
    return PlayOn(LayoutOf(script), Host::LoadScript(script.string()), hands);
}

Host::PlayOutcome PlayOn(const std::string& layout, Host::Script script,
                         const Kesto::CHostHands& hands, const std::string& messages)
{
    Vex::PlayOptions options;
    options.build.opens = true;
    options.messages = messages;
    options.hands = hands;
    options.commands = OpenDialog;
    return Vex::Play(Vex::CSourceText::Load((kFolder / layout).string()), std::move(script),
                     options);
}
