#include "platform/system/process.h"

#include "platform/system/win32/late_function.h"
#include "platform/system/win32/wide.h"

#include <commctrl.h>
#include <windows.h>

namespace Platform {

// Looked up by name, since systems before version 6 don't have the function.
void MakeProcessDpiAware()
{
    if (const auto set = FindUserFunction<BOOL WINAPI()>("SetProcessDPIAware"))
        set();
}

void ReadyCommonControls()
{
    constexpr DWORD kAllClasses = 0x7ff;
    const INITCOMMONCONTROLSEX request{sizeof request, kAllClasses};
    InitCommonControlsEx(&request);
}

std::uint32_t ProcessNumber()
{
    return GetCurrentProcessId();
}

bool ProcessMayRun(std::uint32_t number)
{
    const HANDLE process = OpenProcess(SYNCHRONIZE, FALSE, number);
    if (process == nullptr)
        return GetLastError() != ERROR_INVALID_PARAMETER;
    const bool ended = WaitForSingleObject(process, 0) == WAIT_OBJECT_0;
    CloseHandle(process);
    return !ended;
}

std::string ModulePath()
{
    static const char anchor = 0;
    constexpr DWORD kHow =
        GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
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
