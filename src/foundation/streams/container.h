// CContainer, a stream with a size and a position in it.
//
// Invariant: fPosition <= fSize. Reading ends at the size, writing raises it. A derived class keeps
// the bytes and brings four primitives, which trust the checks that are made here.
#pragma once

#include "foundation/streams/stream.h"

namespace Kesto {

// Throws the CError "The end of data was reached while reading from a container."
[[noreturn]] void ThrowEndOfData();

class CContainer : public CStream {
public:
    CContainer(const CContainer&) = delete;
    CContainer& operator=(const CContainer&) = delete;

    // A read past the end throws the end-of-data error and leaves the position; so does SkipRead.
    void Read(void* buffer, std::size_t size) override;
    void Write(const void* buffer, std::size_t size) override;
    void SkipRead(std::uint64_t size) override;
    void SkipWrite(std::uint64_t size) override;

    // Read or write at a place of its own, and go on after it. Reading throws the end-of-data
    // error for a place past the end; writing makes the store longer.
    virtual void ReadAt(void* buffer, std::size_t size, std::uint64_t position);
    virtual void WriteAt(const void* buffer, std::size_t size, std::uint64_t position);

    // Brings what was written to the disk, where there is one.
    virtual void Flush() {}

    // Primitives; callers use SetSize, Seek, Read and Write. SetLength makes the store `size` bytes
    // long, with zeros where it grows. SetPosition tells of the place of the next byte. ReadBytes
    // and WriteBytes move bytes at fPosition, which the caller advances; the bytes to read lie
    // within fSize.
    virtual void SetLength(std::uint64_t size) = 0;
    virtual void SetPosition(std::uint64_t position) = 0;
    virtual void ReadBytes(void* buffer, std::size_t size) = 0;
    virtual void WriteBytes(const void* buffer, std::size_t size) = 0;

    std::uint64_t GetSize() const { return fSize; }
    std::uint64_t GetPosition() const { return fPosition; }

    // Cuts or extends the store; a position past the new size is lowered to it.
    void SetSize(std::uint64_t size);

    // Goes to a position up to the size; one past it throws the end-of-data error.
    void Seek(std::uint64_t position);

protected:
    explicit CContainer(std::uint64_t size = 0) : fSize(size) {}

    // The place `size` bytes on; throws the end-of-data error where no 64 bits reach.
    std::uint64_t PositionAfter(std::uint64_t size) const;

    std::uint64_t fSize;
    std::uint64_t fPosition = 0;

private:
    void GrowTo(std::uint64_t size);
    void GoTo(std::uint64_t position);
    void CheckReadable(std::uint64_t size) const;
};

} // namespace Kesto
