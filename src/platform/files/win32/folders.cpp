#include "platform/files/folders.h"

#include "platform/system/win32/wide.h"

#include <array>
#include <shlobj.h>
#include <windows.h>

namespace Platform {

std::uint32_t FindUserDataFolder(std::string& path)
{
    std::array<wchar_t, MAX_PATH> folder{};
    const HRESULT result = SHGetFolderPathW(nullptr, CSIDL_APPDATA | CSIDL_FLAG_CREATE, nullptr,
                                            SHGFP_TYPE_CURRENT, folder.data());
    if (result != S_OK)
        return HRESULT_FACILITY(result) == FACILITY_WIN32 ? HRESULT_CODE(result)
                                                          : ERROR_PATH_NOT_FOUND;
    path = FromWide(folder.data());
    return 0;
}

std::string TemporaryFolder()
{
    std::array<wchar_t, MAX_PATH + 1> folder{};
    const DWORD length = GetTempPathW(static_cast<DWORD>(folder.size()), folder.data());
    return FromWide({folder.data(), length});
}

} // namespace Platform
