#include "platform/system/resources.h"

#include "platform/system/win32/this_module.h"

namespace Platform {
namespace {

BOOL CALLBACK CollectName(HMODULE, LPCSTR, LPSTR name, LONG_PTR list)
{
    auto& names = *reinterpret_cast<std::vector<std::string>*>(list);
    names.push_back(IS_INTRESOURCE(name) ? "#" + std::to_string(LOWORD(name)) : std::string(name));
    return TRUE;
}

} // namespace

std::optional<std::span<const std::byte>> FindModuleResource(std::string_view type,
                                                             std::string_view name)
{
    const HMODULE module = ThisModule();
    const HRSRC found = FindResourceA(module, std::string(name).c_str(), std::string(type).c_str());
    if (found == nullptr)
        return std::nullopt;
    const void* bytes = LockResource(LoadResource(module, found));
    if (bytes == nullptr)
        return std::nullopt;
    return std::span(static_cast<const std::byte*>(bytes), SizeofResource(module, found));
}

std::vector<std::string> ListModuleResources(std::string_view type)
{
    std::vector<std::string> names;
    EnumResourceNamesA(ThisModule(), std::string(type).c_str(), CollectName,
                       reinterpret_cast<LONG_PTR>(&names));
    return names;
}

} // namespace Platform
