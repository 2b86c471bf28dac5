// The index of the icon store, byte for byte. All numbers are little-endian.
//
//     0   34  "Lumograph Icon Resource Index 1.0\n"
//    34  128  the low data file's name, zero-filled, its last byte a line feed
//   162  128  the high data file's name
//   290  128  the extra-low data file's name
//   418  128  the extra-high data file's name
//   546  368  each entry, to the end:
//             0   48  name, zero-terminated
//            48   16  width for each resolution
//            64   16  height
//            80   16  hot spot x
//            96   16  hot spot y
//           112  128  offset of the PNG in the data file, by resolution and then state slot
//           240  128  size of the PNG in bytes, likewise
//
// Offset and size are 0 for an absent picture. A data file begins with four bytes of no meaning, so
// that no picture has the offset 0; complete PNG files follow, back to back.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <span>
#include <string>
#include <string_view>

namespace Kesto {

inline constexpr std::size_t kResolutionCount = 4;
inline constexpr std::size_t kStateSlotCount = 8;

enum EResolution : std::uint32_t {
    kResolution_Low,
    kResolution_High,
    kResolution_ExtraLow,
    kResolution_ExtraHigh
};

// The slots that are in use. Rollover pictures may be stored, but the states that tags ask for know
// no slot 1.
enum EStateSlot : std::uint32_t {
    kStateSlot_Normal = 0,
    kStateSlot_Rollover = 1,
    kStateSlot_Inactive = 2,
    kStateSlot_Pressed = 4,
    kStateSlot_Dark = 6
};

// A stored number, at any address.
struct LittleUInt32 {
    std::array<std::uint8_t, 4> fBytes;

    operator std::uint32_t() const
    {
        return static_cast<std::uint32_t>(fBytes[0] | fBytes[1] << 8 | fBytes[2] << 16) |
               static_cast<std::uint32_t>(fBytes[3]) << 24;
    }
};

// An entry without its name.
struct IconPlaces {
    LittleUInt32 fWidth[kResolutionCount];
    LittleUInt32 fHeight[kResolutionCount];
    LittleUInt32 fHotX[kResolutionCount];
    LittleUInt32 fHotY[kResolutionCount];
    LittleUInt32 fOffset[kResolutionCount][kStateSlotCount];
    LittleUInt32 fSize[kResolutionCount][kStateSlotCount];
};

inline constexpr std::string_view kIconIndexHeader = "Lumograph Icon Resource Index 1.0\n";
inline constexpr std::size_t kIconDataNameBytes = 128;
inline constexpr std::size_t kIconNameBytes = 48;
inline constexpr std::size_t kIconEntryBytes = kIconNameBytes + sizeof(IconPlaces);

static_assert(kIconIndexHeader.size() == 34 && kIconEntryBytes == 368 && alignof(IconPlaces) == 1);
static_assert(offsetof(IconPlaces, fHotY) == 96 - 48 && offsetof(IconPlaces, fOffset) == 112 - 48);
static_assert(offsetof(IconPlaces, fSize) == 240 - 48);

// Entries by name, compared byte by byte. They lie in the bytes that were parsed.
using IconEntries = std::map<std::string, const IconPlaces*, std::less<>>;
using IconDataNames = std::array<std::string, kResolutionCount>;

// Reads a whole index. Throws std::logic_error, with nothing changed, for another header, for bytes
// that end early or within an entry, and for a name without its zero. Of two entries of one name
// the later counts.
void ParseIconIndex(std::span<const std::byte> bytes, IconDataNames& dataNames,
                    IconEntries& entries);

} // namespace Kesto
