#include "platform/files/volumes.h"

#include "platform/files/folders.h"

#include <algorithm>
#include <array>
#include <sys/statfs.h>

namespace Platform {
namespace {

// What statfs calls the file systems of optical discs and those of other machines.
constexpr std::array<std::uint32_t, 2> kDiscKinds = {0x9660 /* ISO 9660 */, 0x15013346 /* UDF */};
constexpr std::array<std::uint32_t, 7> kRemoteKinds = {
    0x6969 /* NFS */,     0x517B /* SMB */,      0xFF534D42 /* CIFS */, 0xFE534D42 /* SMB2 */,
    0x5346414F /* AFS */, 0x73757245 /* Coda */, 0x01021997 /* 9P */,
};

} // namespace

std::vector<std::string> ListVolumes()
{
    return {TemporaryFolder()};
}

VolumeFacts InspectVolume(const std::string& path)
{
    struct statfs facts {};
    if (statfs(path.c_str(), &facts) != 0)
        return {};
    const auto kind = static_cast<std::uint32_t>(facts.f_type);
    VolumeFacts volume;
    volume.mounted = true;
    volume.cdRom = std::ranges::find(kDiscKinds, kind) != kDiscKinds.end();
    volume.remote = std::ranges::find(kRemoteKinds, kind) != kRemoteKinds.end();
    volume.fixed = !volume.cdRom && !volume.remote;
    volume.freeBytes = std::uint64_t{facts.f_bavail} * static_cast<std::uint64_t>(facts.f_bsize);
    return volume;
}

std::string VolumeRoot(const std::string& path)
{
    return path;
}

} // namespace Platform
