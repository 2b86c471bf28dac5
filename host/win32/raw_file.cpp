#include "files/raw_file.h"

#include "lumograph/results.h"

#include <algorithm>
#include <utility>

#include <windows.h>

namespace Host {
namespace {

// The most that one request asks for; the system's counts have 32 bits.
constexpr size_t kLargestRequest = size_t{1} << 30;

int16_t ResultOf(DWORD error, int16_t otherwise)
{
    switch (error) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_NAME:
    case ERROR_BAD_NETPATH:
        return kHostFileNotFound;
    case ERROR_ACCESS_DENIED:
        return kHostOpenError;
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
        return kHostFileLocked;
    case ERROR_WRITE_PROTECT:
        return kHostVolumeLocked;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
        return kHostDiskFull;
    default:
        return otherwise;
    }
}

HANDLE SystemHandle(intptr_t handle)
{
    return reinterpret_cast<HANDLE>(handle);
}

OVERLAPPED AtOffset(int64_t offset)
{
    OVERLAPPED where = {};
    where.Offset = static_cast<DWORD>(offset);
    where.OffsetHigh = static_cast<DWORD>(offset >> 32);
    return where;
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
    HANDLE handle = CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_DELETE,
                                nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    fHandle = reinterpret_cast<intptr_t>(handle);
    if (!IsOpen())
        return ResultOf(GetLastError(), kHostIoError);
    if (GetFileType(handle) != FILE_TYPE_DISK) {
        Close();
        return kHostOpenError;
    }
    return kHostNoError;
}

int16_t RawFile::Create(const std::filesystem::path& path)
{
    Close();
    HANDLE handle =
        CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_DELETE,
                    nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
    fHandle = reinterpret_cast<intptr_t>(handle);
    return IsOpen() ? static_cast<int16_t>(kHostNoError) : ResultOf(GetLastError(), kHostIoError);
}

int16_t RawFile::ReadAt(int64_t offset, void* bytes, size_t& count) const
{
    auto* target = static_cast<char*>(bytes);
    size_t done = 0;
    int16_t result = kHostNoError;
    // A call takes 32 bits of bytes at most, and may deliver less than it is asked for.
    while (done < count) {
        OVERLAPPED where = AtOffset(offset + static_cast<int64_t>(done));
        DWORD now = 0;
        const DWORD wanted = static_cast<DWORD>(std::min(count - done, kLargestRequest));
        if (!ReadFile(SystemHandle(fHandle), target + done, wanted, &now, &where) &&
            GetLastError() != ERROR_HANDLE_EOF)
            result = kHostReadError;
        if (result != kHostNoError || now == 0)
            break;
        done += now;
    }
    count = done;
    return result;
}

int16_t RawFile::WriteAt(int64_t offset, const void* bytes, size_t count) const
{
    const auto* source = static_cast<const char*>(bytes);
    while (count > 0) {
        OVERLAPPED where = AtOffset(offset);
        DWORD now = 0;
        const DWORD wanted = static_cast<DWORD>(std::min(count, kLargestRequest));
        if (!WriteFile(SystemHandle(fHandle), source, wanted, &now, &where))
            return ResultOf(GetLastError(), kHostWriteError);
        if (now == 0)
            return kHostDiskFull;
        source += now;
        offset += now;
        count -= now;
    }
    return kHostNoError;
}

int64_t RawFile::Size() const
{
    LARGE_INTEGER size = {};
    return GetFileSizeEx(SystemHandle(fHandle), &size) ? static_cast<int64_t>(size.QuadPart) : -1;
}

int16_t RawFile::Close()
{
    if (!IsOpen())
        return kHostNoError;
    const BOOL closed = CloseHandle(SystemHandle(std::exchange(fHandle, kNoHandle)));
    return closed ? static_cast<int16_t>(kHostNoError) : ResultOf(GetLastError(), kHostIoError);
}

} // namespace Host
