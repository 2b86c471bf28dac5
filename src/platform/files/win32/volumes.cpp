#include "platform/files/volumes.h"

#include "platform/system/win32/wide.h"

#include <array>
#include <windows.h>

namespace Platform {
namespace {

// With the closing backslash that the volume calls want.
std::wstring RootOf(const std::string& path)
{
    std::array<wchar_t, MAX_PATH + 1> root{};
    if (GetVolumePathNameW(ToWide(path).c_str(), root.data(), MAX_PATH) == FALSE)
        return {};
    return root.data();
}

} // namespace

std::vector<std::string> ListVolumes()
{
    std::vector<std::string> volumes;
    const DWORD letters = GetLogicalDrives();
    for (int i = 0; i < 26; ++i)
        if ((letters >> i & 1) != 0)
            volumes.push_back(std::string(1, static_cast<char>('A' + i)) + ":\\");
    return volumes;
}

VolumeFacts InspectVolume(const std::string& path)
{
    const std::wstring root = RootOf(path);
    ULARGE_INTEGER freeBytes{};
    if (root.empty() || GetDiskFreeSpaceExW(root.c_str(), &freeBytes, nullptr, nullptr) == FALSE)
        return {};
    const UINT kind = GetDriveTypeW(root.c_str());
    return {.mounted = true,
            .fixed = kind == DRIVE_FIXED,
            .cdRom = kind == DRIVE_CDROM,
            .remote = kind == DRIVE_REMOTE,
            .freeBytes = freeBytes.QuadPart};
}

std::string VolumeRoot(const std::string& path)
{
    return FromWide(RootOf(path));
}

} // namespace Platform
