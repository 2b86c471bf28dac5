// Walks the frames of an ElectricImage file by their headers, without a look at the pixels.
//
// Nothing in the file is trusted: a walk reads headers only, ends where the file ends, and tells
// what is wrong with each frame instead of giving up.
#pragma once

#include "electricimage/frame_layout.h"
#include "files/raw_file.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace Host {

struct EIFrameReport {
    uint32_t number = 0; // from 1
    int64_t offset = 0;  // of its header, in bytes
    EIFrameFields fields;
    std::optional<EIRange> range;    // of a depth frame
    std::vector<std::string> faults; // what keeps a reader from opening it, in words
};

class EIFrameWalker {
public:
    // Opens the file and reads its header. Throws Failure when it can't be read or isn't of this
    // format.
    explicit EIFrameWalker(const std::filesystem::path& path);

    const EIFileFields& File() const { return fHeader; }

    // The next frame; nothing after the last one, or when the file ends before it.
    std::optional<EIFrameReport> Next();

    // Whether the walk ended before all the frames that the header promises.
    bool EndedEarly() const { return fNumber < fHeader.frameCount; }

private:
    // Reads exactly the bytes at `offset`. False where the file ends.
    template <size_t Size>
    bool Read(int64_t offset, std::array<uint8_t, Size>& bytes) const;
    void FindFaults(EIFrameReport& frame) const;

    RawFile fFile;
    int64_t fSize = 0;
    EIFileFields fHeader;
    int64_t fOffset = kEIFileHeaderBytes;
    uint32_t fNumber = 0; // frames passed
};

// "24-bit RGB", "4-bit indexed", "depth".
std::string LayoutName(const EIFrameFields& fields);

} // namespace Host
