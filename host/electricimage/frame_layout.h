// ElectricImage headers as the host itself reads and writes them, apart from any module: for `info`
// and `assemble`.
//
// Big-endian but for 16-bit pixels and floats, which are little-endian. See docs/electricimage.md.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace Host {

inline constexpr size_t kEIFileHeaderBytes = 6;
inline constexpr size_t kEIFrameHeaderBytes = 32;
inline constexpr size_t kEIRangeBytes = 12;
inline constexpr int kEIDepthFrame = 2;

struct EIFileFields {
    uint16_t version = 5;
    uint32_t frameCount = 0;
};

struct EIFrameFields {
    uint8_t bitDepth = 0;
    uint8_t frameType = 0; // 0 direct, 1 indexed, 2 depth
    int16_t top = 0, left = 0, bottom = 0, right = 0;
    uint8_t packing = 0; // 1: run-length rows
    uint8_t alphaDepth = 0;
    uint32_t dataSize = 0;
    uint16_t lutCount = 0;

    int32_t Width() const { return right - left; }
    int32_t Height() const { return bottom - top; }
    int PixelBits() const { return bitDepth + alphaDepth; }

    // From the end of the frame header to the next frame.
    int64_t BytesToNext() const { return int64_t{dataSize} + 3 * int64_t{lutCount}; }
};

struct EIRange {
    float minimum = 0;
    float maximum = 0;
};

EIFileFields DecodeFileHeader(const std::array<uint8_t, kEIFileHeaderBytes>& bytes);
std::array<uint8_t, kEIFileHeaderBytes> EncodeFileHeader(const EIFileFields& fields);
EIFrameFields DecodeFrameHeader(const std::array<uint8_t, kEIFrameHeaderBytes>& bytes);
std::array<uint8_t, kEIFrameHeaderBytes> EncodeFrameHeader(const EIFrameFields& fields);
EIRange DecodeRange(const std::array<uint8_t, kEIRangeBytes>& bytes);
std::array<uint8_t, kEIRangeBytes> EncodeRange(const EIRange& range);

} // namespace Host
