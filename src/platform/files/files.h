// Files and folders, named by UTF-8 paths in the form of the operating system.
//
// Calls that can fail return the operating system's error code, 0 for success. Offsets and lengths
// are bytes, 64 bits wide. Reads and writes name their position, so that a handle has no position
// of its own to keep.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <utility>

namespace Platform {

enum class FileMode {
    kRead,    // an existing file, for reading
    kUpdate,  // an existing file, for reading and writing
    kReplace, // a new file, or the existing one emptied, for reading and writing
};

// How far a read or write came. With no error, `done` is less than asked only where a read met the
// end of the file.
struct Transfer {
    std::size_t done = 0;
    std::uint32_t error = 0;
};

// An open file, closed at the latest when the handle is destroyed.
class FileHandle {
public:
    FileHandle() = default;
    FileHandle(FileHandle&& other) noexcept : fNative(std::exchange(other.fNative, kNone)) {}
    FileHandle& operator=(FileHandle&& other) noexcept
    {
        std::swap(fNative, other.fNative);
        return *this;
    }
    ~FileHandle() { Close(); }

    // Opens `path` in place of a file that was open. A folder is refused.
    std::uint32_t Open(const std::string& path, FileMode mode);

    // Closes the file, if one is open. The handle is free even after an error, which tells of late
    // losses.
    std::uint32_t Close();

    bool IsOpen() const { return fNative != kNone; }

    // Goes on until all bytes are moved, the file ends, or the system fails.
    Transfer ReadAt(void* buffer, std::size_t size, std::uint64_t position) const;
    Transfer WriteAt(const void* buffer, std::size_t size, std::uint64_t position) const;

    std::uint32_t GetLength(std::uint64_t& length) const;

    // Cuts the file or extends it with zeros.
    std::uint32_t SetLength(std::uint64_t length) const;

    // Extends the file to `length` bytes with room on the disk for all of them, so that no later
    // write there fails for want of it. A longer file stays as it is. After a failure the length
    // may be anything up to `length`.
    std::uint32_t Allocate(std::uint64_t length) const;

    // Returns when the bytes are on the disk. The file must be open for writing.
    std::uint32_t Flush() const;

private:
    static constexpr std::intptr_t kNone = -1;

    std::intptr_t fNative = kNone;
};

// True for the codes that say that a file, or a folder on the way to it, does not exist; that the
// user may not do this there.
bool IsNotFound(std::uint32_t error);
bool IsAccessDenied(std::uint32_t error);

// Makes one folder; one that exists already is a success.
std::uint32_t MakeFolder(const std::string& path);

std::uint32_t RemoveFile(const std::string& path);

// Renames a file within its volume, over an existing one, so that there is never a moment without
// either.
std::uint32_t MoveFileOver(const std::string& from, const std::string& to);

// `name` one level below `folder`.
std::string JoinPath(std::string_view folder, std::string_view name);

// Makes a folder and those above it that are missing.
std::uint32_t MakeFolderPath(const std::string& path);

// Makes `bytes` the whole content of the file, new or existing: written beside it, brought to the
// disk, then moved over it with the old file's permissions. After a failure the old file is as it
// was. A symbolic link stays, and the file that it names is replaced. In a folder that takes no new
// file an existing one is written in place: there a failure of the disk may spoil it. A file that
// may not be written and a folder of that name are refused.
std::uint32_t ReplaceFileContents(const std::string& path, std::span<const std::byte> bytes);

} // namespace Platform
