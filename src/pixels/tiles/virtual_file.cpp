#include "pixels/tiles/virtual_file.h"

#include "platform/files/volumes.h"

#include <algorithm>

namespace Kesto {
namespace {

constexpr std::uint32_t kFileShift = 28;  // in a handle
constexpr std::uint32_t kOffsetShift = 8; // slots begin at multiples of 256

} // namespace

CVirtualFile::CVirtualFile(const CFileSpec& folder, const CText& name, std::uint32_t index,
                           std::uint64_t reserve, std::uint64_t maximumSize)
    : fFolder(folder), fFile(folder.Child(name)), fPort(fFile.Open(FileMode::kReplace)),
      fIndex(index), fReserve(reserve), fMaximumSize(std::min(maximumSize, kMaximumSize))
{
}

CVirtualFile::~CVirtualFile()
{
    const auto attempt = [](auto step) {
        try {
            step();
        } catch (...) {
            // The next run removes what is left.
        }
    };
    attempt([&] { fPort.SetLength(0); });
    attempt([&] { fPort.Close(); });
    attempt([&] { fFile.Delete(); });
}

std::uint64_t CVirtualFile::AvailableBytes() const
{
    const std::uint64_t freeBytes = Platform::InspectVolume(fFolder.Path().CStr()).freeBytes;
    return std::min(freeBytes - std::min(freeBytes, fReserve), fMaximumSize - fUsedSize);
}

std::uint32_t CVirtualFile::AcquireSlots(std::uint8_t slotClass, std::uint32_t count,
                                         CVirtualTile*& first, CVirtualTile*& last)
{
    if (count == 0)
        return 0;
    const std::uint64_t slotBytes = TileClassBytes(slotClass);
    const std::uint64_t made = std::min<std::uint64_t>(count, AvailableBytes() / slotBytes);
    if (made == 0)
        return 0;
    // Room for real: a tile that is evicted to a full disk could never be locked again.
    fPort.Allocate(fUsedSize + made * slotBytes);
    const std::size_t firstIndex = fTiles.size();
    fTiles.resize(firstIndex + made);

    CVirtualTile* previous = nullptr;
    for (std::size_t i = firstIndex; i < fTiles.size(); ++i) {
        CVirtualTile& tile = fTiles[i];
        tile.fHandle = fIndex << kFileShift | static_cast<std::uint32_t>(fUsedSize >> kOffsetShift);
        tile.fClasses = static_cast<std::uint8_t>(slotClass << 4 | slotClass);
        fUsedSize += slotBytes;
        if (previous != nullptr)
            previous->fNext = &tile;
        previous = &tile;
    }
    first = &fTiles[firstIndex];
    last = previous;
    return static_cast<std::uint32_t>(made);
}

} // namespace Kesto
