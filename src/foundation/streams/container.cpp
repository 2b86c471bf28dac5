#include "foundation/streams/container.h"

#include "foundation/errors/exceptions.h"

namespace Kesto {

void ThrowEndOfData()
{
    throw CError(CText("$$$/Kesto/Container/Error/EndOfData=The end of data was reached while "
                       "reading from a container."),
                 false, true);
}

std::uint64_t CContainer::PositionAfter(std::uint64_t size) const
{
    if (size > UINT64_MAX - fPosition)
        ThrowEndOfData();
    return fPosition + size;
}

void CContainer::GrowTo(std::uint64_t size)
{
    if (size <= fSize)
        return;
    SetLength(size);
    fSize = size;
}

void CContainer::GoTo(std::uint64_t position)
{
    SetPosition(position);
    fPosition = position;
}

void CContainer::CheckReadable(std::uint64_t size) const
{
    if (size > fSize - fPosition)
        ThrowEndOfData();
}

void CContainer::Read(void* buffer, std::size_t size)
{
    if (size == 0)
        return;
    CheckReadable(size);
    ReadBytes(buffer, size);
    fPosition += size;
}

void CContainer::Write(const void* buffer, std::size_t size)
{
    if (size == 0)
        return;
    const std::uint64_t end = PositionAfter(size);
    WriteBytes(buffer, size);
    fPosition = end;
    fSize = std::max(fSize, end);
}

void CContainer::SkipRead(std::uint64_t size)
{
    CheckReadable(size);
    GoTo(fPosition + size);
}

void CContainer::SkipWrite(std::uint64_t size)
{
    const std::uint64_t end = PositionAfter(size);
    GrowTo(end);
    GoTo(end);
}

void CContainer::ReadAt(void* buffer, std::size_t size, std::uint64_t position)
{
    if (position != fPosition)
        Seek(position);
    Read(buffer, size);
}

void CContainer::WriteAt(const void* buffer, std::size_t size, std::uint64_t position)
{
    if (position != fPosition) {
        GrowTo(position);
        GoTo(position);
    }
    Write(buffer, size);
}

void CContainer::SetSize(std::uint64_t size)
{
    SetLength(size);
    fSize = size;
    if (fPosition > size)
        GoTo(size);
}

void CContainer::Seek(std::uint64_t position)
{
    if (position > fSize)
        ThrowEndOfData();
    GoTo(position);
}

} // namespace Kesto
