#include "vex/new_plugin.h"

#include "platform/system/resources.h"

#include <algorithm>
#include <fstream>
#include <stdexcept>
#include <string_view>

namespace Vex {
namespace {

// The program's resource of each file. In names and texts @Name@ stands for the plug-in's name,
// @name@ and @NAME@ for it in small and capital letters, @major@ for the kit's major version.
constexpr struct {
    std::string_view resource;
    std::string_view file;
} kFiles[] = {
    {"CMAKE", "CMakeLists.txt"},  {"DIALOG_CPP", "dialog.cpp"}, {"DIALOG_H", "dialog.h"},
    {"EFFECT_CPP", "effect.cpp"}, {"EFFECT_H", "effect.h"},     {"FILTER_CPP", "filter.cpp"},
    {"FILTER_H", "filter.h"},     {"LAYOUT", "@name@.vex"},     {"PROPERTIES", "tagl.json"},
    {"SETTINGS_H", "settings.h"}, {"SCRIPT", "try.play"},
};

// The letters from the one to the other, moved by a distance.
std::string InCase(std::string text, char first, char last, int distance)
{
    for (char& c : text)
        if (c >= first && c <= last)
            c = static_cast<char>(c + distance);
    return text;
}

bool IsIn(char c, char first, char last)
{
    return c >= first && c <= last;
}

// With a capital first it is no word of the language.
bool IsName(const std::string& name)
{
    constexpr std::size_t kLongest = 40;
    return !name.empty() && name.size() <= kLongest && IsIn(name.front(), 'A', 'Z') &&
           std::ranges::all_of(name, [](char c) {
               return IsIn(c, 'A', 'Z') || IsIn(c, 'a', 'z') || IsIn(c, '0', '9') || c == '_';
           });
}

std::string FillIn(std::string text, const std::string& name, const std::string& version)
{
    const std::pair<std::string_view, std::string> words[] = {
        {"@Name@", name},
        {"@name@", InCase(name, 'A', 'Z', 'a' - 'A')},
        {"@NAME@", InCase(name, 'a', 'z', 'A' - 'a')},
        {"@major@", version.substr(0, version.find('.'))},
    };
    for (const auto& [mark, word] : words)
        for (std::size_t at = 0; (at = text.find(mark, at)) != std::string::npos; at += word.size())
            text.replace(at, mark.size(), word);
    return text;
}

std::string TemplateText(std::string_view resource)
{
    const auto bytes = Platform::FindModuleResource("TEMPLATE", resource);
    if (!bytes)
        throw std::runtime_error("this program has no templates");
    return {reinterpret_cast<const char*>(bytes->data()), bytes->size()};
}

} // namespace

std::vector<std::filesystem::path> MakePlugin(const std::string& name, const std::string& version,
                                              const std::filesystem::path& parent)
{
    if (!IsName(name))
        throw std::runtime_error("the name of a plug-in is a capital letter and up to 39 letters, "
                                 "digits and underscores, as in Relief, but not " +
                                 name);
    const std::filesystem::path folder = parent / name;
    // An existing folder may hold somebody's work.
    if (!std::filesystem::create_directories(folder))
        throw std::runtime_error(folder.string() + " is there already");
    std::vector<std::filesystem::path> written;
    for (const auto& row : kFiles) {
        const std::filesystem::path& file =
            written.emplace_back(folder / FillIn(std::string(row.file), name, version));
        std::ofstream out(file, std::ios::binary);
        if (!(out << FillIn(TemplateText(row.resource), name, version)).flush())
            throw std::runtime_error(file.string() + ": the file can't be written");
    }
    return written;
}

} // namespace Vex
