#include "suites/string_ids.h"

#include "lumograph/results.h"

#include <algorithm>
#include <new>
#include <vector>

namespace Host {
namespace {

// The key of a name is its place here, counted from 1.
std::vector<std::string> gNames;

int32_t KeyOf(const char* name, uint32_t* key)
{
    if (name == nullptr || key == nullptr)
        return kHostBadParameter;
    try {
        *key = KeyOfName(name);
        return kHostNoError;
    } catch (const std::bad_alloc&) {
        return kHostMemoryFull;
    }
}

constexpr HostStringIdSuite kStringIdSuite = {kHostStringIdTableVersion, 1, {}, KeyOf};

} // namespace

const HostStringIdSuite* StringIdSuite()
{
    return &kStringIdSuite;
}

uint32_t KeyOfName(const std::string& name)
{
    const auto found = std::ranges::find(gNames, name);
    const auto place = static_cast<uint32_t>(found - gNames.begin());
    if (found == gNames.end())
        gNames.push_back(name);
    return place + 1;
}

std::string NameOfKey(uint32_t key)
{
    if (key - 1 < gNames.size())
        return gNames[key - 1];
    return {static_cast<char>(key >> 24), static_cast<char>(key >> 16), static_cast<char>(key >> 8),
            static_cast<char>(key)};
}

} // namespace Host
