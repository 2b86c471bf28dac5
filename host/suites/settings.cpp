#include "suites/settings.h"

#include "failure.h"

#include <algorithm>
#include <new>
#include <utility>

namespace Host {
namespace {

ServedSettings* gServed = nullptr;

template <class Pairs>
auto FindIn(Pairs& pairs, const std::string& name)
{
    return std::ranges::find(pairs, name, [](const auto& pair) { return pair.first; });
}

std::string Listed(const std::vector<std::string>& names)
{
    std::string list;
    for (const std::string& name : names)
        list += (list.empty() ? "" : ", ") + name;
    return list;
}

} // namespace

struct SettingsCalls {
    static int32_t Find(const char* name, const char** value)
    try {
        if (gServed == nullptr || name == nullptr || value == nullptr)
            return kHostBadParameter;
        if (std::ranges::find(gServed->fAsked, name) == gServed->fAsked.end())
            gServed->fAsked.emplace_back(name);
        const auto found = FindIn(gServed->fSettings, name);
        if (found == gServed->fSettings.end())
            return kHostBadParameter;
        *value = found->second.c_str();
        return kHostNoError;
    } catch (const std::bad_alloc&) {
        return kHostMemoryFull;
    }

    static int32_t Refuse(const char* name, const char* wanted)
    try {
        if (gServed == nullptr || name == nullptr || wanted == nullptr)
            return kHostBadParameter;
        gServed->fRefused = name;
        gServed->fWanted = wanted;
        return kHostNoError;
    } catch (const std::bad_alloc&) {
        return kHostMemoryFull;
    }
};

const HostSettingsSuite* SettingsSuite()
{
    static constexpr HostSettingsSuite kSuite = {
        kHostSettingsTableVersion, 2, {}, SettingsCalls::Find, SettingsCalls::Refuse};
    return &kSuite;
}

ServedSettings::ServedSettings(Pairs settings)
    : fSettings(std::move(settings)), fOuter(std::exchange(gServed, this))
{
}

ServedSettings::~ServedSettings()
{
    gServed = fOuter;
}

void ServedSettings::RequireAccepted() const
{
    const auto found = FindIn(fSettings, fRefused);
    if (found != fSettings.end())
        throw Failure("the setting " + fRefused + " can't be \"" + found->second + "\"",
                      "The module wants " + fWanted + ".", kHostBadParameter);
}

void ServedSettings::RequireKnown() const
{
    for (const auto& [name, value] : fSettings) {
        if (std::ranges::find(fAsked, name) != fAsked.end())
            continue;
        throw Failure("the module has no setting " + name,
                      fAsked.empty() ? "It has no settings at all."
                                     : "Its settings are " + Listed(fAsked) + ".",
                      kHostBadParameter);
    }
}

ServedSettings::Pairs ServedSettings::Parse(const std::vector<std::string>& texts)
{
    Pairs pairs;
    for (const std::string& text : texts) {
        const size_t equals = text.find('=');
        if (equals == std::string::npos || equals == 0)
            throw Failure("\"" + text + "\" is no setting", "Write NAME=VALUE, such as radius=12.");
        const std::string name = text.substr(0, equals);
        if (FindIn(pairs, name) != pairs.end())
            throw Failure("the setting " + name + " is given twice", "Give each name once.");
        pairs.emplace_back(name, text.substr(equals + 1));
    }
    return pairs;
}

} // namespace Host
