#include "platform/files/files.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <limits>
#include <sys/stat.h>
#include <unistd.h>

namespace Platform {
namespace {

// The kernel moves at most 2 GiB less a page in one call.
constexpr std::size_t kMostPerCall = std::size_t{1} << 30;

std::uint32_t LastCode()
{
    return static_cast<std::uint32_t>(errno);
}

std::uint32_t CodeOf(int result)
{
    return result == 0 ? 0 : LastCode();
}

int OpenFlags(FileMode mode)
{
    switch (mode) {
    case FileMode::kRead:
        return O_RDONLY;
    case FileMode::kUpdate:
        return O_RDWR;
    case FileMode::kReplace:
        break;
    }
    return O_RDWR | O_CREAT | O_TRUNC;
}

// Repeats `call(done, size, offset)`, which is a pread or pwrite of the piece after the first
// `done` bytes.
template <class Call>
Transfer MoveAll(std::size_t size, std::uint64_t position, Call call)
{
    Transfer result;
    if (position > static_cast<std::uint64_t>(std::numeric_limits<off_t>::max()))
        return {0, EINVAL};
    while (result.done < size) {
        const ssize_t moved = call(result.done, std::min(size - result.done, kMostPerCall),
                                   static_cast<off_t>(position + result.done));
        if (moved == 0)
            break;
        if (moved > 0)
            result.done += static_cast<std::size_t>(moved);
        else if (errno != EINTR) {
            result.error = LastCode();
            break;
        }
    }
    return result;
}

bool IsFolder(const struct stat& facts)
{
    return S_ISDIR(facts.st_mode);
}

// Opening a folder for reading succeeds, unlike opening it for writing, and is refused here.
std::uint32_t CheckReadable(int file)
{
    struct stat facts {};
    if (fstat(file, &facts) != 0)
        return LastCode();
    return IsFolder(facts) ? EISDIR : 0;
}

} // namespace

std::uint32_t FileHandle::Open(const std::string& path, FileMode mode)
{
    Close();
    const int file = open(path.c_str(), OpenFlags(mode) | O_CLOEXEC, 0666);
    if (file < 0)
        return LastCode();
    fNative = file;
    const std::uint32_t error = mode == FileMode::kRead ? CheckReadable(file) : 0;
    if (error != 0)
        Close();
    return error;
}

std::uint32_t FileHandle::Close()
{
    if (!IsOpen())
        return 0;
    return CodeOf(close(static_cast<int>(std::exchange(fNative, kNone))));
}

Transfer FileHandle::ReadAt(void* buffer, std::size_t size, std::uint64_t position) const
{
    return MoveAll(size, position, [&](std::size_t done, std::size_t piece, off_t offset) {
        return pread(static_cast<int>(fNative), static_cast<std::byte*>(buffer) + done, piece,
                     offset);
    });
}

Transfer FileHandle::WriteAt(const void* buffer, std::size_t size, std::uint64_t position) const
{
    Transfer result =
        MoveAll(size, position, [&](std::size_t done, std::size_t piece, off_t offset) {
            return pwrite(static_cast<int>(fNative), static_cast<const std::byte*>(buffer) + done,
                          piece, offset);
        });
    if (result.error == 0 && result.done < size)
        result.error = ENOSPC;
    return result;
}

std::uint32_t FileHandle::GetLength(std::uint64_t& length) const
{
    struct stat facts {};
    if (fstat(static_cast<int>(fNative), &facts) != 0)
        return LastCode();
    length = static_cast<std::uint64_t>(facts.st_size);
    return 0;
}

std::uint32_t FileHandle::SetLength(std::uint64_t length) const
{
    if (length > static_cast<std::uint64_t>(std::numeric_limits<off_t>::max()))
        return EFBIG;
    return CodeOf(ftruncate(static_cast<int>(fNative), static_cast<off_t>(length)));
}

// A file that ftruncate extends is sparse: it has a length, but no room on the disk.
std::uint32_t FileHandle::Allocate(std::uint64_t length) const
{
    if (length > static_cast<std::uint64_t>(std::numeric_limits<off_t>::max()))
        return EFBIG;
    std::uint64_t present = 0;
    if (const std::uint32_t error = GetLength(present); error != 0 || length <= present)
        return error;
    int error = 0;
    do
        error = posix_fallocate(static_cast<int>(fNative), static_cast<off_t>(present),
                                static_cast<off_t>(length - present));
    while (error == EINTR);
    return static_cast<std::uint32_t>(error);
}

std::uint32_t FileHandle::Flush() const
{
    return CodeOf(fsync(static_cast<int>(fNative)));
}

bool IsNotFound(std::uint32_t error)
{
    return error == ENOENT;
}

bool IsAccessDenied(std::uint32_t error)
{
    return error == EACCES || error == EPERM;
}

std::uint32_t MakeFolder(const std::string& path)
{
    constexpr mode_t kOwnerOnly = 0700;
    if (mkdir(path.c_str(), kOwnerOnly) == 0)
        return 0;
    const std::uint32_t error = LastCode();
    struct stat facts {};
    return stat(path.c_str(), &facts) == 0 && IsFolder(facts) ? 0 : error;
}

std::uint32_t RemoveFile(const std::string& path)
{
    return CodeOf(unlink(path.c_str()));
}

std::uint32_t MoveFileOver(const std::string& from, const std::string& to)
{
    return CodeOf(std::rename(from.c_str(), to.c_str()));
}

} // namespace Platform
