// The names by which scripts call keys.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace Host {

// The number of a key, as Windows counts them; nothing for a name that no key has.
std::optional<std::uint32_t> KeyOfName(std::string_view name);

// Of shift, control and alt alone.
std::optional<std::uint32_t> ModifierOfName(std::string_view name);

// All names in one line, for people.
std::string KeyNames();

} // namespace Host
