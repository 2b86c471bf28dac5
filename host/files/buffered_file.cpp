#include "files/buffered_file.h"

#include <limits>

namespace Host {

BufferedFile::BufferedFile(RawFile file, int16_t mode, size_t bufferSize)
    : fFile(std::move(file)), fBuffer(std::make_unique_for_overwrite<unsigned char[]>(bufferSize)),
      fBufferSize(bufferSize), fWriting(mode == kHostOpenToWrite)
{
    fRead = fWrite = {fBuffer.get(), fBuffer.get()};
    if (fWriting)
        fWrite.end += bufferSize;
}

int64_t BufferedFile::Position() const
{
    return fWriting ? fBase + (fWrite.cursor - fBuffer.get()) : fBase - (fRead.end - fRead.cursor);
}

// The window is too short: deliver it, then either fill it anew or, for a large request, read past
// it.
int16_t BufferedFile::ReadMore(int64_t& count, void* bytes)
{
    const int64_t wanted = count;
    count = 0;
    if (fWriting || !fFile.IsOpen())
        return kHostOpenError;
    if (wanted < 0 || !bytes)
        return kHostBadParameter;
    auto* target = static_cast<unsigned char*>(bytes);
    const int64_t held = fRead.end - fRead.cursor;
    std::memcpy(target, fRead.cursor, static_cast<size_t>(held));
    fRead = {fBuffer.get(), fBuffer.get()};
    count = held;

    const size_t missing = static_cast<size_t>(wanted - held);
    const bool direct = missing >= fBufferSize;
    size_t got = direct ? missing : fBufferSize;
    const int16_t result = fFile.ReadAt(fBase, direct ? target + held : fBuffer.get(), got);
    fBase += static_cast<int64_t>(got);
    size_t delivered = got;
    if (!direct) {
        delivered = got < missing ? got : missing;
        std::memcpy(target + held, fBuffer.get(), delivered);
        fRead = {fBuffer.get() + delivered, fBuffer.get() + got};
    }
    count += static_cast<int64_t>(delivered);
    if (count == wanted)
        return kHostNoError;
    return result != kHostNoError ? result : static_cast<int16_t>(kHostEndOfFile);
}

// The room is too short: what is held goes out first, so that the bytes reach the file in the order
// of the calls.
int16_t BufferedFile::WriteMore(int64_t count, const void* bytes)
{
    if (!fWriting || !fFile.IsOpen())
        return kHostOpenError;
    if (count < 0 || !bytes)
        return kHostBadParameter;
    if (const int16_t result = Flush(); result != kHostNoError)
        return result;
    const size_t size = static_cast<size_t>(count);
    if (size >= fBufferSize)
        return WriteThrough(bytes, size);
    std::memcpy(fWrite.cursor, bytes, size);
    fWrite.cursor += size;
    return kHostNoError;
}

int16_t BufferedFile::WriteThrough(const void* bytes, size_t count)
{
    if (fFailure == kHostNoError)
        fFailure = fFile.WriteAt(fBase, bytes, count);
    if (fFailure == kHostNoError)
        fBase += static_cast<int64_t>(count);
    return fFailure;
}

int16_t BufferedFile::Flush()
{
    const size_t held = static_cast<size_t>(fWrite.cursor - fBuffer.get());
    fWrite.cursor = fBuffer.get();
    return WriteThrough(fBuffer.get(), held);
}

int16_t BufferedFile::Seek(int16_t mode, int64_t offset)
{
    if (mode != kHostSeekFromStart && mode != kHostSeekFromCurrent)
        return kHostBadParameter;
    const int64_t from = mode == kHostSeekFromCurrent ? Position() : 0;
    if (offset < -from || offset > std::numeric_limits<int64_t>::max() - from)
        return kHostBadParameter;
    const int64_t target = from + offset;
    if (fWriting) {
        const int16_t result = Flush();
        fBase = target;
        return result;
    }
    // What is still in the buffer isn't read again.
    const int64_t windowStart = fBase - (fRead.end - fBuffer.get());
    if (target >= windowStart && target <= fBase) {
        fRead.cursor = fBuffer.get() + (target - windowStart);
    } else {
        fRead = {fBuffer.get(), fBuffer.get()};
        fBase = target;
    }
    return kHostNoError;
}

int16_t BufferedFile::Close()
{
    if (fWriting && fFile.IsOpen())
        Flush();
    fRead = fWrite = {fBuffer.get(), fBuffer.get()};
    const int16_t closed = fFile.Close();
    return fFailure != kHostNoError ? fFailure : closed;
}

} // namespace Host
