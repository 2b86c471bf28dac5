#include "platform/files/files.h"

#include "platform/system/win32/wide.h"

#include <algorithm>
#include <limits>
#include <windows.h>

namespace Platform {
namespace {

constexpr std::size_t kMostPerCall = std::size_t{1} << 30;
constexpr std::uint64_t kLastPosition = std::numeric_limits<std::int64_t>::max();

HANDLE Native(std::intptr_t handle)
{
    return reinterpret_cast<HANDLE>(handle);
}

std::uint32_t CodeOf(BOOL result)
{
    return result != FALSE ? 0 : GetLastError();
}

bool IsFolder(const std::wstring& path)
{
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

// Repeats `call(done, size, where, &moved)`, which is a ReadFile or WriteFile of the piece after
// the first `done` bytes. All ones as an offset would mean the end of the file to WriteFile, hence
// the limit.
template <class Call>
Transfer MoveAll(std::size_t size, std::uint64_t position, Call call)
{
    Transfer result;
    if (position > kLastPosition)
        return {0, ERROR_INVALID_PARAMETER};
    while (result.done < size) {
        const std::uint64_t offset = position + result.done;
        OVERLAPPED where{};
        where.Offset = static_cast<DWORD>(offset);
        where.OffsetHigh = static_cast<DWORD>(offset >> 32);
        DWORD moved = 0;
        if (call(result.done, static_cast<DWORD>(std::min(size - result.done, kMostPerCall)),
                 &where, &moved) == FALSE)
            result.error = GetLastError();
        result.done += moved;
        if (result.error != 0 || moved == 0)
            break;
    }
    return result;
}

} // namespace

std::uint32_t FileHandle::Open(const std::string& path, FileMode mode)
{
    Close();
    const DWORD access = mode == FileMode::kRead ? GENERIC_READ : GENERIC_READ | GENERIC_WRITE;
    const DWORD creation = mode == FileMode::kReplace ? CREATE_ALWAYS : OPEN_EXISTING;
    const HANDLE file = CreateFileW(ToWide(path).c_str(), access,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    creation, FILE_ATTRIBUTE_NORMAL, nullptr);
    fNative = reinterpret_cast<std::intptr_t>(file);
    return IsOpen() ? 0 : GetLastError();
}

std::uint32_t FileHandle::Close()
{
    return IsOpen() ? CodeOf(CloseHandle(Native(std::exchange(fNative, kNone)))) : 0;
}

Transfer FileHandle::ReadAt(void* buffer, std::size_t size, std::uint64_t position) const
{
    Transfer result = MoveAll(
        size, position, [&](std::size_t done, DWORD piece, OVERLAPPED* where, DWORD* moved) {
            return ReadFile(Native(fNative), static_cast<std::byte*>(buffer) + done, piece, moved,
                            where);
        });
    if (result.error == ERROR_HANDLE_EOF)
        result.error = 0;
    return result;
}

Transfer FileHandle::WriteAt(const void* buffer, std::size_t size, std::uint64_t position) const
{
    Transfer result = MoveAll(
        size, position, [&](std::size_t done, DWORD piece, OVERLAPPED* where, DWORD* moved) {
            return WriteFile(Native(fNative), static_cast<const std::byte*>(buffer) + done, piece,
                             moved, where);
        });
    if (result.error == 0 && result.done < size)
        result.error = ERROR_DISK_FULL;
    return result;
}

std::uint32_t FileHandle::GetLength(std::uint64_t& length) const
{
    LARGE_INTEGER size{};
    if (GetFileSizeEx(Native(fNative), &size) == FALSE)
        return GetLastError();
    length = static_cast<std::uint64_t>(size.QuadPart);
    return 0;
}

std::uint32_t FileHandle::SetLength(std::uint64_t length) const
{
    if (length > kLastPosition)
        return ERROR_INVALID_PARAMETER;
    FILE_END_OF_FILE_INFO end{};
    end.EndOfFile.QuadPart = static_cast<LONGLONG>(length);
    return CodeOf(SetFileInformationByHandle(Native(fNative), FileEndOfFileInfo, &end, sizeof end));
}

// A file that isn't marked as sparse has room for its whole length.
std::uint32_t FileHandle::Allocate(std::uint64_t length) const
{
    std::uint64_t present = 0;
    if (const std::uint32_t error = GetLength(present); error != 0 || length <= present)
        return error;
    return SetLength(length);
}

std::uint32_t FileHandle::Flush() const
{
    return CodeOf(FlushFileBuffers(Native(fNative)));
}

bool IsNotFound(std::uint32_t error)
{
    return error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND;
}

bool IsAccessDenied(std::uint32_t error)
{
    return error == ERROR_ACCESS_DENIED;
}

std::uint32_t MakeFolder(const std::string& path)
{
    const std::wstring wide = ToWide(path);
    if (CreateDirectoryW(wide.c_str(), nullptr) != FALSE)
        return 0;
    const DWORD error = GetLastError();
    return IsFolder(wide) ? 0 : error;
}

std::uint32_t RemoveFile(const std::string& path)
{
    return CodeOf(DeleteFileW(ToWide(path).c_str()));
}

std::uint32_t MoveFileOver(const std::string& from, const std::string& to)
{
    return CodeOf(MoveFileExW(ToWide(from).c_str(), ToWide(to).c_str(),
                              MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH));
}

} // namespace Platform
