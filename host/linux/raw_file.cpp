#include "files/raw_file.h"

#include "lumograph/results.h"

#include <algorithm>
#include <cerrno>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Host {
namespace {

int16_t ResultOf(int error, int16_t otherwise)
{
    switch (error) {
    case ENOENT:
    case ENOTDIR:
        return kHostFileNotFound;
    case EACCES:
    case EPERM:
    case EISDIR:
        return kHostOpenError;
    case EROFS:
        return kHostVolumeLocked;
    case ETXTBSY:
        return kHostFileLocked;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return kHostDiskFull;
    default:
        return otherwise;
    }
}

int Descriptor(intptr_t handle)
{
    return static_cast<int>(handle);
}

} // namespace

RawFile::RawFile(RawFile&& other) noexcept : fHandle(std::exchange(other.fHandle, kNoHandle)) {}

RawFile& RawFile::operator=(RawFile&& other) noexcept
{
    std::swap(fHandle, other.fHandle);
    return *this;
}

int16_t RawFile::OpenToRead(const std::filesystem::path& path)
{
    Close();
    fHandle = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (!IsOpen())
        return ResultOf(errno, kHostIoError);
    struct stat status = {};
    if (fstat(Descriptor(fHandle), &status) != 0 || !S_ISREG(status.st_mode)) {
        Close();
        return kHostOpenError;
    }
    return kHostNoError;
}

int16_t RawFile::Create(const std::filesystem::path& path)
{
    Close();
    fHandle = open(path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    return IsOpen() ? static_cast<int16_t>(kHostNoError) : ResultOf(errno, kHostIoError);
}

int16_t RawFile::ReadAt(int64_t offset, void* bytes, size_t& count) const
{
    auto* target = static_cast<char*>(bytes);
    size_t done = 0;
    int16_t result = kHostNoError;
    // A call may deliver less than it is asked for although the end isn't reached.
    while (done < count) {
        const ssize_t now = pread(Descriptor(fHandle), target + done, count - done,
                                  offset + static_cast<int64_t>(done));
        if (now < 0 && errno == EINTR)
            continue;
        if (now < 0)
            result = kHostReadError;
        if (now <= 0)
            break;
        done += static_cast<size_t>(now);
    }
    count = done;
    return result;
}

int16_t RawFile::WriteAt(int64_t offset, const void* bytes, size_t count) const
{
    const auto* source = static_cast<const char*>(bytes);
    while (count > 0) {
        const ssize_t now = pwrite(Descriptor(fHandle), source, count, offset);
        if (now < 0 && errno == EINTR)
            continue;
        if (now <= 0)
            return ResultOf(now < 0 ? errno : ENOSPC, kHostWriteError);
        source += now;
        offset += now;
        count -= static_cast<size_t>(now);
    }
    return kHostNoError;
}

int64_t RawFile::Size() const
{
    struct stat status = {};
    return fstat(Descriptor(fHandle), &status) == 0 ? static_cast<int64_t>(status.st_size) : -1;
}

int16_t RawFile::Close()
{
    if (!IsOpen())
        return kHostNoError;
    const int closed = close(Descriptor(std::exchange(fHandle, kNoHandle)));
    return closed == 0 || errno == EINTR ? static_cast<int16_t>(kHostNoError)
                                         : ResultOf(errno, kHostIoError);
}

} // namespace Host
