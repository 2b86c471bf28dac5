#include "driver/property_list.h"

#include "failure.h"

#include <algorithm>

#include <nlohmann/json.hpp>

namespace Host {
namespace {

using Json = nlohmann::json;

std::string Upper(std::string text)
{
    std::ranges::transform(text, text.begin(), [](char c) {
        return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
    });
    return text;
}

// Extensions are four characters in the list, filled up with blanks.
std::vector<std::string> ExtensionsOf(const Json& format, const char* key)
{
    std::vector<std::string> extensions;
    for (const Json& entry : format.value(key, Json::array())) {
        std::string text = Upper(entry.get<std::string>());
        text.erase(text.find_last_not_of(' ') + 1);
        extensions.push_back(text);
    }
    return extensions;
}

std::vector<std::string> ModesOf(const Json& format)
{
    std::vector<std::string> modes;
    const Json served = format.value("SupportedModes", Json::object());
    for (const auto& [mode, answer] : served.items())
        if (answer.get<bool>())
            modes.push_back(mode);
    return modes;
}

struct KindWords {
    const char* value;   // of "Kind"
    const char* article; // for people
};

constexpr KindWords WordsOf(PluginKind kind)
{
    constexpr KindWords kWords[] = {
        {"Format", "a file format"}, {"Filter", "a filter"}, {"Export", "an export"}};
    return kWords[static_cast<size_t>(kind)];
}

// What the list declares, for a message about what it doesn't.
std::string DeclaredKinds(const Json& items)
{
    std::string kinds;
    for (const Json& item : items)
        kinds += (kinds.empty() ? "" : ", ") + item.value("Kind", std::string("no kind"));
    return kinds.empty() ? "nothing" : kinds;
}

PropertyList ReadPlugin(const Json& format)
{
    PropertyList list;
    list.name = format.at("Name").get<std::string>();
    list.entry = format.at("CodeEntryPointWin64").get<std::string>();
    const Json flags = format.value("FormatFlags", Json::object());
    list.canRead = flags.value("CanRead", false);
    list.canWrite = flags.value("CanWrite", false);
    list.readExtensions = ExtensionsOf(format, "ReadExtensions");
    list.writeExtensions = ExtensionsOf(format, "WriteExtensions");
    const Json size = format.value("FormatMaxSize", Json::object());
    list.maxWidth = size.value("Horizontal", 0);
    list.maxHeight = size.value("Vertical", 0);
    list.modes = ModesOf(format);
    list.maxChannels = format.value("FormatMaxChannels", std::vector<int32_t>());
    list.loadUnload = format.value("LoadUnload", false);
    return list;
}

void RequireExtension(const std::vector<std::string>& known, const std::filesystem::path& file,
                      const char* deed)
{
    const std::string extension = TextOf(file.extension());
    if (!extension.empty() && std::ranges::find(known, Upper(extension.substr(1))) != known.end())
        return;
    std::string names;
    for (const std::string& name : known)
        names += (names.empty() ? "." : ", .") + name;
    throw Failure(TextOf(file) + ": the module doesn't " + deed + " files with the extension \"" +
                      extension + "\"",
                  "It takes " + names + "; rename the file if it is of that kind.", kHostBadMode);
}

void RequireDeed(bool can, const PropertyList& list, const char* deed)
{
    if (!can)
        throw Failure("the module " + list.name + " doesn't " + deed + " files", {}, kHostBadMode);
}

} // namespace

PropertyList ParsePropertyList(std::span<const std::byte> json, PluginKind kind)
try {
    const auto* text = reinterpret_cast<const char*>(json.data());
    const Json list = Json::parse(text, text + json.size());
    for (const Json& item : list.at("Tagls"))
        if (item.value("Kind", "") == WordsOf(kind).value)
            return ReadPlugin(item);
    throw Failure(std::string("the module isn't ") + WordsOf(kind).article +
                      ": its property list declares " + DeclaredKinds(list.at("Tagls")),
                  "Name another module with --module.");
} catch (const Json::exception& error) {
    throw Failure(std::string("the module's property list can't be read: ") + error.what(),
                  "The module's author should check its resource JSON_TAGL.");
}

void RequireReadable(const PropertyList& list, const std::filesystem::path& file)
{
    RequireDeed(list.canRead, list, "read");
    RequireExtension(list.readExtensions, file, "read");
}

void RequireWritable(const PropertyList& list, const std::filesystem::path& file)
{
    RequireDeed(list.canWrite, list, "write");
    RequireExtension(list.writeExtensions, file, "write");
}

void RequirePicture(const PropertyList& list, const PictureInfo& info)
{
    const std::string size = std::to_string(info.width) + " x " + std::to_string(info.height);
    if (info.width < 1 || info.height < 1)
        throw Failure("the picture has no pixels: its size is " + size,
                      "The file is damaged or empty.", kHostCannotRead);
    // A limit of 0 is one that the list doesn't name.
    if ((list.maxWidth > 0 && info.width > list.maxWidth) ||
        (list.maxHeight > 0 && info.height > list.maxHeight))
        throw Failure("the picture is too large for the module: " + size + ", the limit is " +
                          std::to_string(list.maxWidth) + " x " + std::to_string(list.maxHeight),
                      "Make it smaller or cut it into parts.", kHostBadMode);
    if (std::ranges::find(list.modes, ModeKey(info.mode)) == list.modes.end())
        throw Failure(std::string("the module doesn't serve the mode of the picture: ") +
                          KindOf(info),
                      "Convert the picture to another mode.", kHostBadMode);
    const auto mode = static_cast<size_t>(info.mode);
    if (mode < list.maxChannels.size() && info.planes > list.maxChannels[mode])
        throw Failure("the picture has " + std::to_string(info.planes) +
                          " channels, the module takes " + std::to_string(list.maxChannels[mode]),
                      "Convert the picture to another mode.", kHostBadMode);
}

} // namespace Host
