// ElectricImage files made to measure, sound or broken, and what a reader has to make of them.
#pragma once

#include "support/picture.h"

#include <optional>
#include <random>
#include <span>
#include <string>

namespace Testing {

using Random = std::mt19937;

// A kind of pixel that a frame can hold.
struct EILayout {
    const char* name;
    uint8_t bitDepth;
    uint8_t frameType; // 0 direct, 1 indexed, 2 depth
    uint8_t alphaDepth;
    int mode; // of the picture that it opens as
    int planes;

    int Bits() const { return bitDepth + alphaDepth; }
    size_t Unit() const { return Bits() < 8 ? 1 : static_cast<size_t>(Bits() / 8); }
    size_t RowBytes(int width) const
    {
        return (static_cast<size_t>(Bits()) * static_cast<size_t>(width) + 7) / 8;
    }
};

std::span<const EILayout> AllLayouts();
const EILayout& Layout(const std::string& name);

// One frame, field by field. A field that is left alone fits the others.
struct EIFrame {
    EILayout layout = Layout("rgb24");
    int width = 0;
    int height = 0;
    int16_t top = 0;
    int16_t left = 0;
    uint8_t packing = 0;
    Bytes lut{}; // red, green, blue of each entry
    std::optional<uint16_t> lutCount{};
    float low = 0; // the range of a depth frame
    float high = 1;
    Bytes pixels{}; // as they stand in the file
    std::optional<uint32_t> dataSize{};
};

// A file of frames; its header can be made to lie.
Bytes FileOf(const std::vector<EIFrame>& frames, uint16_t version = 5,
             std::optional<uint32_t> frameCount = {});
Bytes OneFrameFile(const EIFrame& frame);
Bytes FloatBytes(const std::vector<float>& values);

// Raw rows of a layout with runs, noise and, for depth, values in and out of 0 to 1 and infinities.
Bytes RandomRows(const EILayout& layout, int width, int height, Random& random);
Bytes RandomLut(int entries, Random& random);

// A small frame of each layout, raw and packed; packed depth frames leave their range to be found.
std::vector<EIFrame> SmallFrames();

// The plain decoder that the module is held against: the first `size` bytes of a packet stream, or
// nothing when the stream ends before.
std::optional<Bytes> DecodePackets(std::span<const uint8_t> stream, size_t unit, size_t size);

// The packets that a writer makes of a row, found one pixel at a time. `behind` is the byte that
// fills what lies after the row, where the last pixel finds a neighbour to be compared with. All
// rows at once give packets over row ends.
Bytes EncodeRow(std::span<const uint8_t> row, size_t unit, uint8_t behind = 0);

// The picture that raw rows of a frame stand for.
Picture PictureOf(const EIFrame& frame, std::span<const uint8_t> rows);

} // namespace Testing
