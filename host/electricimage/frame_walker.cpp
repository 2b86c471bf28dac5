#include "electricimage/frame_walker.h"

#include "failure.h"

#include <algorithm>

namespace Host {
namespace {

constexpr uint16_t kFirstUnknownVersion = 0x100;

bool IsKnownLayout(const EIFrameFields& fields)
{
    constexpr int kLengths[] = {1, 2, 4, 8, 16, 24, 32};
    if (fields.frameType == kEIDepthFrame)
        return fields.PixelBits() == 32;
    return std::ranges::find(kLengths, fields.PixelBits()) != std::end(kLengths);
}

} // namespace

template <size_t Size>
bool EIFrameWalker::Read(int64_t offset, std::array<uint8_t, Size>& bytes) const
{
    size_t count = Size;
    Require(fFile.ReadAt(offset, bytes.data(), count), "the file can't be read");
    return count == Size;
}

EIFrameWalker::EIFrameWalker(const std::filesystem::path& path)
{
    Require(fFile.OpenToRead(path), TextOf(path));
    fSize = fFile.Size();
    std::array<uint8_t, kEIFileHeaderBytes> bytes = {};
    if (Read(0, bytes))
        fHeader = DecodeFileHeader(bytes);
    if (fHeader.frameCount == 0 || fHeader.version >= kFirstUnknownVersion)
        throw Failure(TextOf(path) + " is not an ElectricImage file: version " +
                          std::to_string(fHeader.version) + ", " +
                          std::to_string(fHeader.frameCount) + " frames",
                      "A file of this format has a version below 256 and at least one frame.",
                      kHostCannotRead);
}

std::optional<EIFrameReport> EIFrameWalker::Next()
{
    std::array<uint8_t, kEIFrameHeaderBytes> bytes = {};
    if (!EndedEarly() || !Read(fOffset, bytes))
        return std::nullopt;
    EIFrameReport frame;
    frame.number = ++fNumber;
    frame.offset = fOffset;
    frame.fields = DecodeFrameHeader(bytes);
    fOffset += static_cast<int64_t>(kEIFrameHeaderBytes);
    std::array<uint8_t, kEIRangeBytes> range = {};
    if (frame.fields.frameType == kEIDepthFrame && Read(fOffset, range))
        frame.range = DecodeRange(range);
    FindFaults(frame);
    fOffset += frame.fields.BytesToNext();
    return frame;
}

void EIFrameWalker::FindFaults(EIFrameReport& frame) const
{
    const EIFrameFields& fields = frame.fields;
    const auto fault = [&](bool found, const std::string& text) {
        if (found)
            frame.faults.push_back(text);
    };
    const bool alphaGood =
        fields.alphaDepth == 0 || (fields.bitDepth == 24 && fields.alphaDepth == 8);
    fault(fields.frameType > kEIDepthFrame,
          "unknown frame type " + std::to_string(fields.frameType));
    fault(fields.packing > 1, "unknown packing " + std::to_string(fields.packing));
    fault(!alphaGood, std::to_string(fields.alphaDepth) + " bits of alpha beside " +
                          std::to_string(fields.bitDepth));
    // Bits of alpha that can't be make the pixels odd too: one fault is told for one cause.
    fault(alphaGood && !IsKnownLayout(fields),
          "unknown pixel length of " + std::to_string(fields.PixelBits()) + " bits");
    fault(fields.Width() < 1 || fields.Height() < 1, "bounds without pixels");
    fault(fields.dataSize == 0, "data size 0");
    const int64_t missing = fOffset + fields.BytesToNext() - fSize;
    fault(missing > 0, "the file ends " + std::to_string(missing) + " bytes before the frame does");
}

std::string LayoutName(const EIFrameFields& fields)
{
    if (fields.frameType == kEIDepthFrame)
        return "depth";
    const std::string bits = std::to_string(fields.PixelBits()) + "-bit ";
    if (fields.PixelBits() <= 8)
        return bits + "indexed";
    return bits + (fields.alphaDepth > 0 || fields.PixelBits() == 32 ? "RGBA" : "RGB");
}

} // namespace Host
