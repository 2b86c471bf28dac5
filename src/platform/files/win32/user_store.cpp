#include "platform/files/user_store.h"

#include "platform/system/win32/wide.h"

#include <memory>
#include <type_traits>
#include <windows.h>

namespace Platform {
namespace {

constexpr REGSAM kAllAccess = 0xF003F;
static_assert(kAllAccess == KEY_ALL_ACCESS);

struct CloseKey {
    void operator()(HKEY key) const { RegCloseKey(key); }
};
using OwnedKey = std::unique_ptr<std::remove_pointer_t<HKEY>, CloseKey>;

} // namespace

std::vector<std::byte> ReadUserValue(const std::string& keyPath, const std::string& name)
{
    HKEY opened = nullptr;
    if (RegOpenKeyExW(HKEY_CURRENT_USER, ToWide(keyPath).c_str(), 0, kAllAccess, &opened) !=
        ERROR_SUCCESS)
        return {};
    const OwnedKey key(opened);
    const std::wstring wideName = ToWide(name);
    DWORD size = 0;
    if (RegQueryValueExW(key.get(), wideName.c_str(), nullptr, nullptr, nullptr, &size) !=
            ERROR_SUCCESS ||
        size > kUserValueLimit)
        return {};
    std::vector<std::byte> value(size);
    if (RegQueryValueExW(key.get(), wideName.c_str(), nullptr, nullptr,
                         reinterpret_cast<BYTE*>(value.data()), &size) != ERROR_SUCCESS)
        return {};
    // Another program may have made it shorter in between.
    value.resize(size);
    return value;
}

std::uint32_t WriteUserValue(const std::string& keyPath, const std::string& name,
                             std::span<const std::byte> value)
{
    if (value.size() > kUserValueLimit)
        return ERROR_INVALID_PARAMETER;
    HKEY created = nullptr;
    const LSTATUS error =
        RegCreateKeyExW(HKEY_CURRENT_USER, ToWide(keyPath).c_str(), 0, nullptr,
                        REG_OPTION_NON_VOLATILE, kAllAccess, nullptr, &created, nullptr);
    if (error != ERROR_SUCCESS)
        return static_cast<std::uint32_t>(error);
    const OwnedKey key(created);
    return static_cast<std::uint32_t>(RegSetValueExW(key.get(), ToWide(name).c_str(), 0, REG_BINARY,
                                                     reinterpret_cast<const BYTE*>(value.data()),
                                                     static_cast<DWORD>(value.size())));
}

} // namespace Platform
