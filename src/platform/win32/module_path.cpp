#include "platform/module_path.h"

#include "platform/win32/wide.h"

#include <windows.h>

namespace Platform {

std::string ModulePath()
{
    static const char anchor = 0;
    constexpr DWORD kHow = GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
    constexpr std::size_t kLongestPath = 32768;
    HMODULE module = nullptr;
    if (GetModuleHandleExW(kHow, reinterpret_cast<LPCWSTR>(&anchor), &module) == 0)
        return {};
    std::wstring path(kLongestPath, L'\0');
    path.resize(GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size())));
    return FromWide(path);
}

std::string FolderOf(const std::string& path)
{
    const std::size_t slash = path.find_last_of("\\/");
    return slash == std::string::npos ? std::string() : path.substr(0, slash);
}

} // namespace Platform
