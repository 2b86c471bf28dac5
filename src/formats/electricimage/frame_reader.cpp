#include "formats/electricimage/frame_reader.h"

#include "formats/electricimage/choose_frame.h"
#include "formats/electricimage/messages.h"
#include "formats/electricimage/read_rows.h"
#include "plugin/suites/host_buffers.h"

#include <algorithm>
#include <cstring>
#include <limits>

namespace Project {
namespace {

using Kesto::CHostBuffer;
using Kesto::CHostBuffers;

constexpr int32_t kResolution72 = 72 << 16; // pixels an inch, 16.16 fixed point
constexpr double kSmallestRange = 1e-06;
constexpr float kInfinity = std::numeric_limits<float>::infinity();

// The steps of the start, each true when the start may go on; otherwise the result says why not.

bool Fail(EIContext& context, int16_t code)
{
    context.result = code;
    return false;
}

bool FailLoudly(EIContext& context, int16_t code, const char* message)
{
    FailWithMessage(context, code, message);
    return false;
}

bool ReadFileHeader(EIContext& context)
{
    EIFileHeaderBytes bytes;
    if (!ReadBytes(context.file, bytes.data(), bytes.size()))
        return Fail(context, kHostCannotRead);
    context.fileHeader = DecodeFileHeader(bytes);
    if (context.fileHeader.version >= kFirstUnknownVersion || context.fileHeader.frameCount == 0)
        return Fail(context, kHostCannotRead);
    return true;
}

// Asks for the frame when there is a choice and somebody to ask. Frames count from 1.
bool PickFrame(EIContext& context, uint32_t& frame)
{
    const uint32_t frameCount = context.fileHeader.frameCount;
    frame = 1;
    if (frameCount >= 2 && context.record->quietOpen == 0 && context.interactive != 0) {
        const int16_t code = ChooseFrame(context.record, frameCount, &frame);
        if (code != kHostNoError)
            return Fail(context, code);
    }
    return frame >= 1 && frame <= frameCount ? true : Fail(context, kHostBadMode);
}

// Passes frames without reading their pixels. Whatever fails here is told but doesn't end the
// start.
void EISkipFrames(EIContext& context, uint32_t count)
{
    for (uint32_t i = 0; i < count; ++i) {
        EIFrameHeaderBytes bytes;
        if (!ReadBytes(context.file, bytes.data(), bytes.size())) {
            context.result = kHostCannotRead;
            return;
        }
        const int64_t distance = DecodeFrameHeader(bytes).BytesToNextFrame();
        const int16_t code = FastSetPosition(context.file, kHostSeekFromCurrent, distance);
        if (code != kHostNoError)
            FailWithMessage(context, code, Message::kSkipFailed);
    }
}

bool ReadFrameHeader(EIContext& context)
{
    EIFrameHeaderBytes bytes;
    if (!ReadBytes(context.file, bytes.data(), bytes.size()))
        return Fail(context, kHostCannotRead);
    const EIFrameHeader& frame = context.frameHeader = DecodeFrameHeader(bytes);
    if (frame.frameType > kFrameDepth || frame.dataSize == 0)
        return Fail(context, kHostCannotRead);
    if (frame.packing > kPackingRuns)
        return FailLoudly(context, kHostCannotRead, Message::kUnknownPacking);
    if (frame.alphaDepth != 0 && frame.bitDepth != 24)
        return Fail(context, kHostCannotRead);
    if (frame.alphaDepth != 0 && frame.alphaDepth != 8)
        return FailLoudly(context, kHostCannotRead, Message::kUnknownAlphaDepth);
    return true;
}

void DescribePicture(HostFormatRecord& record, int16_t colorMode, int16_t planeCount)
{
    record.channelDepth = 8;
    record.colorMode = colorMode;
    record.planeCount = planeCount;
}

// The floats are taken in the machine's own order, as those of the pixels are. A range that can't
// be used leaves the scale 0, and the rows are read for their range first.
bool ReadRange(EIContext& context)
{
    DescribePicture(*context.record, kHostModeGrayscale, 1);
    std::byte block[kRangeBlockBytes];
    if (!ReadBytes(context.file, block, sizeof block))
        return Fail(context, kHostCannotRead);
    std::memcpy(&context.rangeMin, block + 4, sizeof context.rangeMin);
    std::memcpy(&context.rangeMax, block + 8, sizeof context.rangeMax);
    const float range = context.rangeMax - context.rangeMin;
    const bool usable = !(double{range} < kSmallestRange || context.rangeMin == kInfinity ||
                          context.rangeMax == kInfinity);
    context.rangeScale = usable ? 255.0F / range : 0.0F;
    // Rows of other lengths than a float's, or a byte's and less, have no room in a picture of one
    // plane.
    return DecodedPixelBytes(context.frameHeader) <= 1 ? true : Fail(context, kHostCannotRead);
}

bool ReadColorTable(EIContext& context)
{
    HostFormatRecord& record = *context.record;
    constexpr int kTableSize = 256;
    for (int i = 0; i < context.frameHeader.lutCount; ++i) {
        uint8_t entry[kLutEntryBytes];
        if (!ReadBytes(context.file, entry, sizeof entry))
            return Fail(context, kHostCannotRead);
        // Entries beyond the host's table are passed over: the pixels come after them.
        if (i >= kTableSize)
            continue;
        record.redLut[i] = entry[0];
        record.greenLut[i] = entry[1];
        record.blueLut[i] = entry[2];
    }
    for (int i = context.frameHeader.lutCount; i < kTableSize; ++i)
        record.redLut[i] = record.greenLut[i] = record.blueLut[i] = 0;
    return true;
}

bool ReadColors(EIContext& context)
{
    if (!ReadColorTable(context))
        return false;
    context.record->channelDepth = 8;
    switch (const int decoded = DecodedPixelBytes(context.frameHeader)) {
    case 1:
        DescribePicture(*context.record, kHostModeIndexed, 1);
        return true;
    case 3:
    case 4:
        DescribePicture(*context.record, kHostModeRGB, static_cast<int16_t>(decoded));
        return true;
    default:
        return FailLoudly(context, kHostCannotRead, Message::kUnknownBitDepth);
    }
}

void DescribeRows(EIContext& context)
{
    HostFormatRecord& record = *context.record;
    const EIFrameHeader& frame = context.frameHeader;
    record.rowCount = static_cast<int16_t>(frame.bottom - frame.top);
    record.columnCount = static_cast<int16_t>(frame.right - frame.left);
    record.rowStride = record.planeCount * record.columnCount;
    record.pixelStride = record.planeCount;
    record.planeStride = 1;
    record.horizontalResolution = kResolution72;
    record.verticalResolution = kResolution72;
    record.rowsAddress = nullptr;
    ResetRuns();
}

// Reads all rows once, chunk by chunk, and hands each chunk to the host unless the session is
// scanning.
void ReadChunks(EIContext& context, uint8_t* rows, uint8_t* scratch, int32_t chunkRows)
{
    HostFormatRecord& record = *context.record;
    const int32_t rowCount = record.rowCount;
    for (int32_t first = 0; first < rowCount; first += chunkRows) {
        const int32_t end = std::min(first + chunkRows, rowCount);
        record.exchangeRect.top = static_cast<int16_t>(first);
        record.exchangeRect.bottom = static_cast<int16_t>(end);
        for (int32_t row = first; row < end; ++row) {
            if (!BeginRow(context, row))
                return;
            ReadRow(context, rows + int64_t{row - first} * record.rowStride, scratch,
                    record.columnCount);
            if (context.result != kHostNoError)
                return;
        }
        if (context.frameHeader.PixelBits() == 32 && context.frameHeader.frameType != kFrameDepth) {
            constexpr int16_t kAlphaFirst[4] = {3, 0, 1, 2};
            std::ranges::copy(kAlphaFirst, record.planeOrder);
        }
        if (context.scanning != 0)
            continue;
        context.result = record.exchangeRows();
        if (context.result != kHostNoError)
            return;
    }
}

// Turns the range that a scan has found into a scale.
void SettleRange(EIContext& context)
{
    context.scanning = 0;
    const float range = context.rangeMax - context.rangeMin;
    context.rangeScale = double{range} > kSmallestRange ? 255.0F / range : 1.0F;
}

// Reads the rows into the host, twice when the range of a depth frame is to be found first.
void ReadPasses(EIContext& context, uint8_t* rows, uint8_t* scratch, int32_t chunkRows)
{
    context.scanning = context.frameHeader.frameType == kFrameDepth && context.rangeScale == 0.0F;
    int64_t rowsPosition = 0;
    if (context.scanning != 0) {
        context.rangeMin = kInfinity;
        context.rangeMax = -kInfinity;
        rowsPosition = FastGetPosition(context.file);
    }
    ReadChunks(context, rows, scratch, chunkRows);
    if (context.result != kHostNoError || context.scanning == 0)
        return;
    SettleRange(context);
    const int16_t code = FastSetPosition(context.file, kHostSeekFromStart, rowsPosition);
    if (code != kHostNoError)
        return FailWithMessage(context, code, Message::kRewindFailed);
    ReadChunks(context, rows, scratch, chunkRows);
}

} // namespace

void EIReadStart(EIContext& context)
{
    HostFormatRecord& record = *context.record;
    context.interactive =
        record.playbackBlock == nullptr || record.playbackBlock->playMode != kHostPlaySilent;
    if (record.bufferSuite == nullptr || record.exchangeRows == nullptr) {
        context.result = kHostMissingSuite;
        return;
    }
    // A failure from here on leaves the file open: the finish closes it.
    context.file = FastOpen(&record, kHostOpenToRead);
    uint32_t frame = 0;
    if (context.file == nullptr) {
        context.result = kHostCannotRead;
        return;
    }
    if (!ReadFileHeader(context) || !PickFrame(context, frame))
        return;
    EISkipFrames(context, frame - 1);
    if (!ReadFrameHeader(context))
        return;
    if (context.frameHeader.frameType == kFrameDepth ? ReadRange(context) : ReadColors(context))
        DescribeRows(context);
}

void EIReadContinue(EIContext& context)
{
    HostFormatRecord& record = *context.record;
    const int32_t rowBytes = DecodedPixelBytes(context.frameHeader) * record.columnCount;
    if (context.file == nullptr || rowBytes > record.rowStride) {
        context.result = kHostCannotRead;
        return;
    }
    const CHostBuffers buffers(record.bufferSuite);
    CHostBuffer rows(buffers);
    int16_t chunkRows = 0;
    if (AllocateRowBuffer(buffers, record.rowStride, 1, record.rowCount, 1, chunkRows, rows) !=
        kHostNoError) {
        context.result = kHostMemoryFull;
        return;
    }
    CHostBuffer scratch(buffers);
    const int32_t scratchRows = context.frameHeader.frameType == kFrameDepth ? 5 : 2;
    if (scratch.Allocate(int64_t{scratchRows} * record.rowStride) != kHostNoError) {
        rows.Abandon(); // stays with the host when the second buffer is refused
        context.result = kHostMemoryFull;
        return;
    }
    uint8_t* const rowsAddress = rows.Lock();
    uint8_t* const scratchAddress = scratch.Lock();
    if (rowsAddress == nullptr || scratchAddress == nullptr) {
        context.result = kHostMemoryFull;
        return;
    }

    record.planeStride = 1;
    record.firstPlane = 0;
    record.lastPlane = static_cast<int16_t>(record.planeCount - 1);
    record.pixelStride = record.planeCount;
    record.exchangeRect.left = 0;
    record.exchangeRect.right = record.columnCount;
    record.rowsAddress = rowsAddress;
    ReadPasses(context, rowsAddress, scratchAddress, chunkRows);
    record.rowsAddress = nullptr;
    record.exchangeRect = {};
}

void EIReadFinish(EIContext& context)
{
    if (context.file != nullptr)
        FastClose(context.file);
    context.file = nullptr;
    context.record->rowsAddress = nullptr;
}

} // namespace Project
