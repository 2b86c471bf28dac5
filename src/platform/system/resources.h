// The resources that the build packed into this module, found by type and name or number.
//
// Types and names compare without regard to ASCII case, as the resource section of a .dll does. The
// bytes belong to the module and stay valid as long as it is loaded.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace Platform {

// The bytes of one resource, or nothing when the module has none of that type and name.
std::optional<std::span<const std::byte>> FindModuleResource(std::string_view type,
                                                             std::string_view name);

// The same for a resource that has a number in place of a name.
inline std::optional<std::span<const std::byte>> FindModuleResource(std::string_view type,
                                                                    std::uint16_t number)
{
    std::string name = "#";
    name += std::to_string(number);
    return FindModuleResource(type, name);
}

// The names of all resources of a type, in an order that is the same at every call; numbers as
// "#number".
std::vector<std::string> ListModuleResources(std::string_view type);

} // namespace Platform
