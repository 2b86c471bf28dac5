#include "robot/play_files.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
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
    return Vex::Play(Vex::CSourceText::Load((kFolder / layout).string()), std::move(script),
                     options);
}
