#include "foundation/streams/file_port.h"

#include "foundation/errors/system_checks.h"
#include "foundation/streams/container.h"

namespace Kesto {

CFilePort::CFilePort(const CFileSpec& spec, FileMode mode)
{
    OSThrowBare(fHandle.Open(spec.Path().CStr(), mode));
}

void CFilePort::Read(void* buffer, std::size_t size)
{
    ReadAt(buffer, size, fPosition);
    fPosition += size;
}

void CFilePort::Write(const void* buffer, std::size_t size)
{
    WriteAt(buffer, size, fPosition);
    fPosition += size;
}

void CFilePort::ReadAt(void* buffer, std::size_t size, std::uint64_t position) const
{
    const Platform::Transfer read = fHandle.ReadAt(buffer, size, position);
    OSThrowBare(read.error);
    if (read.done < size)
        ThrowEndOfData();
}

void CFilePort::WriteAt(const void* buffer, std::size_t size, std::uint64_t position) const
{
    OSThrowBare(fHandle.WriteAt(buffer, size, position).error);
}

std::uint64_t CFilePort::GetLength() const
{
    std::uint64_t length = 0;
    OSThrowBare(fHandle.GetLength(length));
    return length;
}

void CFilePort::SetLength(std::uint64_t length) const
{
    OSThrowBare(fHandle.SetLength(length));
}

void CFilePort::Allocate(std::uint64_t length) const
{
    OSThrowBare(fHandle.Allocate(length));
}

void CFilePort::Flush() const
{
    OSThrowBare(fHandle.Flush());
}

void CFilePort::Close()
{
    OSThrowBare(fHandle.Close());
}

std::optional<CFilePort> CFile::OpenIfPresent(FileMode mode) const
{
    Platform::FileHandle handle;
    const std::uint32_t error = handle.Open(fSpec.Path().CStr(), mode);
    if (Platform::IsNotFound(error))
        return std::nullopt;
    OSThrowBare(error);
    return CFilePort(std::move(handle));
}

void CFile::Delete() const
{
    OSThrowBare(Platform::RemoveFile(fSpec.Path().CStr()));
}

void CFile::MoveOver(const CFileSpec& target) const
{
    OSThrowBare(Platform::MoveFileOver(fSpec.Path().CStr(), target.Path().CStr()));
}

void CFile::ReplaceContents(std::span<const std::byte> bytes) const
{
    OSThrowBare(Platform::ReplaceFileContents(fSpec.Path().CStr(), bytes));
}

} // namespace Kesto
