// The ElectricImage file as it lies on the disk: a file header, then frames, each a frame header, a
// colour table or a range block, and its pixels. All integers are big-endian; the floats of depth
// frames are in the machine's order.
//
//   file header    0 version (16)        2 frameCount (32)
//   frame header   0 reserved0 (32)      4 reserved1 (16)   6 reserved2 (16)   8 height (16)     10
//   width (16)
//                 12 bitDepth (8)       13 frameType (8)   14 top (16)        16 left (16)      18
//                 bottom (16) 20 right (16)         22 packing (8)     23 alphaDepth (8)  24
//                 dataSize (32)  28 lutCount (16) 30 reserved3 (16)
//   colour table   lutCount entries of red, green, blue; frames of type 0 and 1
//   range block    4 unused bytes, minimum (float), maximum (float); frames of type 2
//
// The bytes of a header and its fields are different types here, so that a field can't be used
// unswapped.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace Project {

inline constexpr int kFileHeaderBytes = 6;
inline constexpr int kFrameHeaderBytes = 32;
inline constexpr int kRangeBlockBytes = 12;
inline constexpr int kLutEntryBytes = 3;

inline constexpr uint16_t kWrittenVersion = 5;
inline constexpr uint16_t kFirstUnknownVersion = 0x100;

enum FrameType : uint8_t { kFrameDirect = 0, kFrameIndexed = 1, kFrameDepth = 2 };
enum Packing : uint8_t { kPackingNone = 0, kPackingRuns = 1 };

using EIFileHeaderBytes = std::array<std::byte, kFileHeaderBytes>;
using EIFrameHeaderBytes = std::array<std::byte, kFrameHeaderBytes>;

#pragma pack(push, 1)

struct EIFileHeader {
    uint16_t version;
    uint32_t frameCount;
};

struct EIFrameHeader {
    uint32_t reserved0; // never swapped
    uint16_t reserved1;
    uint16_t reserved2;
    int16_t height; // written, but the bounds decide
    int16_t width;
    uint8_t bitDepth; // bits of colour in a pixel
    uint8_t frameType;
    int16_t top;
    int16_t left;
    int16_t bottom;
    int16_t right;
    uint8_t packing;
    uint8_t alphaDepth; // 0, or 8 beside 24 bits of colour
    uint32_t dataSize;  // bytes of pixels; of the range block too in a depth frame that another
                        // frame follows
    uint16_t lutCount;
    uint16_t reserved3;

    int PixelBits() const { return bitDepth + alphaDepth; }

    // Bytes from the end of this header to the next one.
    int64_t BytesToNextFrame() const
    {
        return int64_t{dataSize} + int64_t{kLutEntryBytes} * lutCount;
    }
};

#pragma pack(pop)

static_assert(sizeof(EIFileHeader) == kFileHeaderBytes && offsetof(EIFileHeader, frameCount) == 2);
static_assert(sizeof(EIFrameHeader) == kFrameHeaderBytes);
static_assert(offsetof(EIFrameHeader, height) == 8 && offsetof(EIFrameHeader, width) == 10);
static_assert(offsetof(EIFrameHeader, bitDepth) == 12 && offsetof(EIFrameHeader, frameType) == 13);
static_assert(offsetof(EIFrameHeader, top) == 14 && offsetof(EIFrameHeader, left) == 16);
static_assert(offsetof(EIFrameHeader, bottom) == 18 && offsetof(EIFrameHeader, right) == 20);
static_assert(offsetof(EIFrameHeader, packing) == 22 && offsetof(EIFrameHeader, alphaDepth) == 23);
static_assert(offsetof(EIFrameHeader, dataSize) == 24 && offsetof(EIFrameHeader, lutCount) == 28);
static_assert(offsetof(EIFrameHeader, reserved3) == 30);

EIFileHeader DecodeFileHeader(const EIFileHeaderBytes& bytes);
EIFileHeaderBytes EncodeFileHeader(const EIFileHeader& header);
EIFrameHeader DecodeFrameHeader(const EIFrameHeaderBytes& bytes);
EIFrameHeaderBytes EncodeFrameHeader(const EIFrameHeader& header);

// How a row of pixels lies in the file.
struct RowLayout {
    int unit; // bytes of the unit that packets count in; outside 1 to 4 the row can't be read or
              // written
    int32_t bytes; // of the whole row

    bool IsValid() const { return unit >= 1 && unit <= 4; }
};

// Rows of pixels below 8 bits are packed into bytes, and a byte is the unit then; otherwise a pixel
// is.
constexpr RowLayout LayOutRow(int pixelBits, int32_t pixelCount)
{
    if (pixelBits < 8)
        return {1, (pixelBits * pixelCount + 7) / 8};
    return {pixelBits / 8, pixelBits / 8 * pixelCount};
}

} // namespace Project
