// An open file, read and written by offset.
//
// There is no current position and no buffer: each call is one request to the system, so callers
// bring large blocks. Results are codes of the host's protocol (lumograph/results.h).
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>

namespace Host {

class RawFile {
public:
    RawFile() = default;
    ~RawFile() { Close(); }
    RawFile(RawFile&& other) noexcept;
    RawFile& operator=(RawFile&& other) noexcept;

    // Opens an existing regular file to read. A file that is already open is closed first.
    int16_t OpenToRead(const std::filesystem::path& path);

    // Makes a new file to write; a name that is taken is a failure.
    int16_t Create(const std::filesystem::path& path);

    bool IsOpen() const { return fHandle != kNoHandle; }

    // Reads at `offset` until `count` bytes are there or the file ends; `count` then holds how many
    // were delivered. The end of the file is no failure here.
    int16_t ReadAt(int64_t offset, void* bytes, size_t& count) const;

    // Writes all of the bytes at `offset`.
    int16_t WriteAt(int64_t offset, const void* bytes, size_t count) const;

    // The file's length in bytes, or -1.
    int64_t Size() const;

    // Closes the file; a write that the system held back can fail here. Closing a closed file does
    // nothing.
    int16_t Close();

private:
    static constexpr intptr_t kNoHandle = -1;
    intptr_t fHandle = kNoHandle; // the system's file descriptor or handle
};

} // namespace Host
