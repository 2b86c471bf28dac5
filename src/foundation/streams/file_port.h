// CFile, a file by its place, and CFilePort, a file that is open.
//
// What the operating system refuses comes as CSystemError with its code.
#pragma once

#include "foundation/streams/file_spec.h"
#include "platform/files/files.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

namespace Kesto {

using Platform::FileMode;

// Reads and writes go either from place to place (Read, Write, Seek) or name their place and leave
// the position alone (ReadAt, WriteAt), which costs no more than the system call.
class CFilePort {
public:
    CFilePort(const CFileSpec& spec, FileMode mode);

    // Move exactly `size` bytes at the position and advance it. A file that ends before throws the
    // end-of-data error, a disk that takes less throws CSystemError; the position stays.
    void Read(void* buffer, std::size_t size);
    void Write(const void* buffer, std::size_t size);

    // The same at a place of their own.
    void ReadAt(void* buffer, std::size_t size, std::uint64_t position) const;
    void WriteAt(const void* buffer, std::size_t size, std::uint64_t position) const;

    // The place of the next byte, which may lie past the end.
    void Seek(std::uint64_t position) { fPosition = position; }
    std::uint64_t GetPosition() const { return fPosition; }

    // The place of the end of the file. Setting it cuts the file, or extends it with zeros.
    std::uint64_t GetLength() const;
    void SetLength(std::uint64_t length) const;

    // Extends the file with zeros that have their room on the disk, so that writing there doesn't
    // fail for want of it. A longer file stays as it is.
    void Allocate(std::uint64_t length) const;

    // Returns when all is on the disk.
    void Flush() const;

    // Closes the file before the port is destroyed, so that late failures are told. Nothing else
    // may be called then.
    void Close();

private:
    friend class CFile;
    explicit CFilePort(Platform::FileHandle handle) : fHandle(std::move(handle)) {}

    Platform::FileHandle fHandle;
    std::uint64_t fPosition = 0;
};

class CFile {
public:
    explicit CFile(CFileSpec spec) : fSpec(std::move(spec)) {}

    const CFileSpec& Spec() const { return fSpec; }

    CFilePort Open(FileMode mode) const { return CFilePort(fSpec, mode); }

    // Nothing if there is no such file.
    std::optional<CFilePort> OpenIfPresent(FileMode mode) const;

    void Delete() const;

    // Renames the file to a place on the same volume, over a file that is there already.
    void MoveOver(const CFileSpec& target) const;

    // Makes `bytes` all that the file holds, in one step: until it is done, and for good if it
    // fails, there is the old file. Only in a folder that takes no new files is an existing one
    // written in place. Permissions and symbolic links stay. Creates the file, but no folder.
    void ReplaceContents(std::span<const std::byte> bytes) const;

private:
    CFileSpec fSpec;
};

} // namespace Kesto
