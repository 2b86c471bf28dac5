#include "robot/key_names.h"

#include <algorithm>
#include <iterator>

namespace Host {
namespace {

struct KeyRow {
    std::string_view name;
    std::uint32_t key;
};

constexpr KeyRow kKeys[] = {
    {"Tab", 0x09},      {"Return", 0x0D}, {"Escape", 0x1B},    {"Up", 0x26},    {"Down", 0x28},
    {"Left", 0x25},     {"Right", 0x27},  {"Home", 0x24},      {"End", 0x23},   {"PageUp", 0x21},
    {"PageDown", 0x22}, {"Delete", 0x2E}, {"Backspace", 0x08}, {"Space", 0x20},
};

constexpr KeyRow kModifiers[] = {{"shift", 0x10}, {"control", 0x11}, {"alt", 0x12}};

constexpr std::uint32_t kF1 = 0x70;
constexpr std::uint32_t kFunctionKeys = 12;

template <std::size_t kCount>
std::optional<std::uint32_t> Find(const KeyRow (&rows)[kCount], std::string_view name)
{
    const KeyRow* const found = std::ranges::find(rows, name, &KeyRow::name);
    return found != std::end(rows) ? std::optional(found->key) : std::nullopt;
}

} // namespace

std::optional<std::uint32_t> KeyOfName(std::string_view name)
{
    const bool isItself = name.size() == 1 && ((name[0] >= 'A' && name[0] <= 'Z') ||
                                               (name[0] >= '0' && name[0] <= '9'));
    if (isItself)
        return static_cast<std::uint32_t>(name[0]);
    for (std::uint32_t number = 1; number <= kFunctionKeys; ++number)
        if (name == "F" + std::to_string(number))
            return kF1 + number - 1;
    return Find(kKeys, name);
}

std::optional<std::uint32_t> ModifierOfName(std::string_view name)
{
    return Find(kModifiers, name);
}

std::string KeyNames()
{
    std::string names;
    for (const KeyRow& row : kKeys)
        names.append(row.name).append(", ");
    return names + "F1 to F12, A to Z, 0 to 9";
}

} // namespace Host
