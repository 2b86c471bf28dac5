// A file with a position and a buffer, so that a call for a byte or two costs a few instructions.
//
// Invariant: at any time at most one window is in use. In a file opened to read, fRead spans the
// bytes of the buffer that are not yet delivered; in a file opened to write, fWrite spans the room
// that is left. The window of the other direction stays empty, so the fast paths below need no
// question about the mode: they just don't apply.
#pragma once

#include "files/raw_file.h"
#include "lumograph/file_service.h"
#include "lumograph/results.h"

#include <cstring>
#include <memory>

namespace Host {

inline constexpr size_t kDefaultFileBuffer = size_t{256} * 1024;

class BufferedFile {
public:
    // Takes an open file. `mode` is kHostOpenToRead or kHostOpenToWrite; `bufferSize` is in bytes,
    // at least 1.
    BufferedFile(RawFile file, int16_t mode, size_t bufferSize = kDefaultFileBuffer);
    ~BufferedFile() { Close(); }
    BufferedFile(const BufferedFile&) = delete;
    BufferedFile& operator=(const BufferedFile&) = delete;

    // Reads `count` bytes and leaves in `count` how many came; fewer than asked for is
    // kHostEndOfFile or a read error.
    int16_t Read(int64_t& count, void* bytes)
    {
        if (!fRead.Has(count))
            return ReadMore(count, bytes);
        CopySmall(bytes, fRead.cursor, static_cast<size_t>(count));
        fRead.cursor += count;
        return kHostNoError;
    }

    // Takes `count` bytes. What the disk says of them may come at a later call, at the latest at
    // Close.
    int16_t Write(int64_t count, const void* bytes)
    {
        if (!fWrite.Has(count))
            return WriteMore(count, bytes);
        CopySmall(fWrite.cursor, bytes, static_cast<size_t>(count));
        fWrite.cursor += count;
        return kHostNoError;
    }

    int64_t Position() const;

    // Moves the position as FastSetPosition does. Any place from the start on is allowed;
    // reading beyond the end delivers nothing, writing beyond the end leaves zeros between.
    int16_t Seek(int16_t mode, int64_t offset);

    // Writes what is held back and closes. The first failure of any write of this file is the
    // result.
    int16_t Close();

private:
    struct Window {
        unsigned char* cursor = nullptr;
        unsigned char* end = nullptr;

        // A negative count becomes a very large one, which never fits.
        bool Has(int64_t count) const
        {
            return static_cast<uint64_t>(count) <= static_cast<uint64_t>(end - cursor);
        }
    };

    // Pixels and control bytes come one to four bytes at a time: those are copied without a call.
    static void CopySmall(void* to, const void* from, size_t count)
    {
        switch (count) {
        case 1:
            std::memcpy(to, from, 1);
            return;
        case 3:
            std::memcpy(to, from, 3);
            return;
        case 4:
            std::memcpy(to, from, 4);
            return;
        default:
            std::memcpy(to, from, count);
        }
    }

    int16_t ReadMore(int64_t& count, void* bytes);
    int16_t WriteMore(int64_t count, const void* bytes);
    int16_t Flush();
    int16_t WriteThrough(const void* bytes, size_t count);

    RawFile fFile;
    std::unique_ptr<unsigned char[]> fBuffer;
    size_t fBufferSize;
    Window fRead;
    Window fWrite;
    // Reading: the file offset of fRead.end; writing: that of the buffer's first byte.
    int64_t fBase = 0;
    int16_t fFailure = kHostNoError; // of a write, kept until Close
    bool fWriting;
};

} // namespace Host
