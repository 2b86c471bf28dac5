// Writes ElectricImage files of any number of frames, in every layout that readers know.
//
// This is the host's own encoder: it shares no code with a module, so that each can be held against
// the other.
#pragma once

#include "electricimage/frame_layout.h"
#include "files/buffered_file.h"
#include "files/pending_file.h"
#include "pictures/picture.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

namespace Host {

enum class FrameKind { kAuto, kIndexed, kRgb16, kRgb24, kRgba32, kDepth };

struct FrameOptions {
    FrameKind kind =
        FrameKind::kAuto;   // kAuto: 8 bits for grey and palette pictures, 24 or 32 for the others
    int indexBits = 8;      // of kIndexed: 1, 2, 4 or 8
    bool reduce = false;    // kIndexed: similar colours may share an entry
    bool raw = false;       // rows as they are; otherwise packed in runs
    EIRange range = {0, 1}; // kDepth: the depths of black and of white
    bool storeRange = true; // kDepth: false leaves the range to the readers to find
    bool infiniteWhite = false; // kDepth: white is "nothing here"
};

class FrameEncoder {
public:
    // Begins a file of `frameCount` frames; the name isn't there before Finish. Throws
    // Failure.
    FrameEncoder(const std::filesystem::path& path, uint32_t frameCount);

    // Appends the picture as a frame. `name` is the picture's, for messages. Throws Failure for a
    // picture that the layout can't hold.
    void Append(PictureSource& picture, const FrameOptions& options, const std::string& name);

    // Ends the file and gives it its name.
    void Finish();

private:
    void Put(const void* bytes, size_t count);
    void PutRow(const uint8_t* row, size_t bytes, size_t unit, bool raw);

    PendingFile fPending; // before fFile: the file closes first
    std::optional<BufferedFile> fFile;
    std::string fName;
};

// The plain packing of one row: runs of two or more equal units, literals between them, none over
// 128. `put(bytes, count)` takes the packets.
void PackRow(const uint8_t* row, size_t bytes, size_t unit,
             const std::function<void(const void*, size_t)>& put);

} // namespace Host
