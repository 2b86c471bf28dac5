// CVirtualFile, one scratch file of the tile store.
//
// The file is carved from its start into slots of 256 << class bytes, one for each tile, and only
// ever grows. So that a tile's handle has room for it, a file ends at 64 GiB and there are at
// most 16. The file is deleted with the object.
#pragma once

#include "foundation/streams/file_port.h"
#include "pixels/tiles/virtual_tile.h"

#include <cstdint>
#include <deque>

namespace Kesto {

class CVirtualFile {
public:
    static constexpr std::uint64_t kReserve = 0x800000;
    static constexpr std::uint64_t kMaximumSize = 0x1000000000;

    // Creates the file in an existing folder. `reserve` bytes always stay free on the volume.
    // Throws CSystemError.
    CVirtualFile(const CFileSpec& folder, const CText& name, std::uint32_t index,
                 std::uint64_t reserve, std::uint64_t maximumSize);
    CVirtualFile(const CVirtualFile&) = delete;
    CVirtualFile& operator=(const CVirtualFile&) = delete;
    ~CVirtualFile();

    // Carves up to `count` slots, as many as the volume and the limit have room for, and returns
    // how many. `first` to `last` are their free tiles then, chained in the order of their slots;
    // for 0 both stay as they are. Throws CSystemError and carves nothing when the file cannot
    // grow.
    std::uint32_t AcquireSlots(std::uint8_t slotClass, std::uint32_t count, CVirtualTile*& first,
                               CVirtualTile*& last);

    const CFilePort& Port() const { return fPort; }
    const CFileSpec& Spec() const { return fFile.Spec(); }
    std::uint64_t UsedSize() const { return fUsedSize; }

private:
    std::uint64_t AvailableBytes() const;

    CFileSpec fFolder;
    CFile fFile;
    CFilePort fPort;
    std::uint32_t fIndex; // 0 to 15
    std::uint64_t fReserve;
    std::uint64_t fMaximumSize;
    std::uint64_t fUsedSize = 0;     // carved so far, and the file's length
    std::deque<CVirtualTile> fTiles; // of all slots, never moved
};

} // namespace Kesto
