#include "pixels/lying_disk.h"

#include "platform/files/files.h"
#include "platform/files/folders.h"

#include <algorithm>
#include <cstring>

namespace Testing {

LyingDisk& LyingDisk::Get()
{
    static LyingDisk disk;
    return disk;
}

LyingDisk& LyingDisk::Reset()
{
    Get() = {};
    Get().AddVolume("/v", std::uint64_t{1} << 30);
    return Get();
}

Platform::VolumeFacts& LyingDisk::AddVolume(const std::string& root, std::uint64_t freeBytes)
{
    listed.push_back(root);
    return volumes[root] = {.mounted = true, .fixed = true, .freeBytes = freeBytes};
}

std::function<bool()> OnlyAt(int call)
{
    return [call]() mutable { return call-- == 0; };
}

} // namespace Testing

namespace Platform {
namespace {

using Testing::LyingDisk;

std::vector<std::string> gOpenPaths; // by handle

bool Ask(const std::function<bool()>& question)
{
    return question && question();
}

std::vector<std::byte>& FileOf(std::intptr_t handle)
{
    return LyingDisk::Get().files.at(gOpenPaths.at(static_cast<std::size_t>(handle)));
}

} // namespace

std::uint32_t FileHandle::Open(const std::string& path, FileMode mode)
{
    Close();
    LyingDisk& disk = LyingDisk::Get();
    if (Ask(disk.failsOpen) || (mode != FileMode::kReplace && !disk.files.contains(path)))
        return Testing::kRefused;
    if (mode == FileMode::kReplace)
        disk.files[path].clear();
    fNative = static_cast<std::intptr_t>(gOpenPaths.size());
    gOpenPaths.push_back(path);
    return 0;
}

std::uint32_t FileHandle::Close()
{
    fNative = kNone;
    return 0;
}

Transfer FileHandle::ReadAt(void* buffer, std::size_t size, std::uint64_t position) const
{
    LyingDisk& disk = LyingDisk::Get();
    disk.reads.push_back({position, size});
    std::memset(buffer, 0xee, size);
    if (Ask(disk.failsRead))
        return {0, Testing::kReadFailed};
    const std::vector<std::byte>& file = FileOf(fNative);
    std::size_t done = position < file.size()
                           ? std::min(size, file.size() - static_cast<std::size_t>(position))
                           : 0;
    if (Ask(disk.cutsRead))
        done /= 2;
    std::copy_n(file.begin() + static_cast<std::ptrdiff_t>(position), done,
                static_cast<std::byte*>(buffer));
    return {done, 0};
}

Transfer FileHandle::WriteAt(const void* buffer, std::size_t size, std::uint64_t position) const
{
    LyingDisk& disk = LyingDisk::Get();
    disk.writes.push_back({position, size});
    const bool fails = Ask(disk.failsWrite);
    const std::size_t done = fails ? size / 2 : size;
    std::vector<std::byte>& file = FileOf(fNative);
    file.resize(std::max<std::size_t>(file.size(), static_cast<std::size_t>(position) + done));
    std::copy_n(static_cast<const std::byte*>(buffer), done,
                file.begin() + static_cast<std::ptrdiff_t>(position));
    return {done, fails ? Testing::kDiskFull : 0};
}

std::uint32_t FileHandle::GetLength(std::uint64_t& length) const
{
    length = FileOf(fNative).size();
    return 0;
}

std::uint32_t FileHandle::SetLength(std::uint64_t length) const
{
    if (Ask(LyingDisk::Get().failsLength))
        return Testing::kDiskFull;
    FileOf(fNative).resize(static_cast<std::size_t>(length));
    return 0;
}

std::uint32_t FileHandle::Allocate(std::uint64_t length) const
{
    return SetLength(length);
}

std::uint32_t FileHandle::Flush() const
{
    return 0;
}

bool IsNotFound(std::uint32_t)
{
    return false;
}

bool IsAccessDenied(std::uint32_t)
{
    return false;
}

std::uint32_t MakeFolder(const std::string&)
{
    return 0;
}

std::uint32_t RemoveFile(const std::string& path)
{
    LyingDisk::Get().deleted.push_back(path);
    return LyingDisk::Get().files.erase(path) != 0 ? 0 : Testing::kRefused;
}

std::uint32_t MoveFileOver(const std::string&, const std::string&)
{
    return Testing::kRefused;
}

std::uint32_t FindUserDataFolder(std::string& path)
{
    path = TemporaryFolder();
    return 0;
}

std::string TemporaryFolder()
{
    return LyingDisk::Get().temporary;
}

std::vector<std::string> ListVolumes()
{
    return LyingDisk::Get().listed;
}

VolumeFacts InspectVolume(const std::string& path)
{
    const auto& volumes = LyingDisk::Get().volumes;
    const auto found = volumes.find(VolumeRoot(path));
    return found != volumes.end() ? found->second : VolumeFacts();
}

std::string VolumeRoot(const std::string& path)
{
    return path.substr(0, path.find_first_of("/\\", 1));
}

} // namespace Platform
