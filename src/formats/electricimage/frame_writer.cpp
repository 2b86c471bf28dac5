#include "formats/electricimage/frame_writer.h"

#include "formats/electricimage/messages.h"
#include "formats/electricimage/write_rows.h"
#include "plugin/suites/host_buffers.h"

#include <algorithm>
#include <limits>

namespace Project {
namespace {

using Kesto::CHostBuffers;

constexpr int32_t kHeadersBytes = kFileHeaderBytes + kFrameHeaderBytes;
// Rows of one byte a pixel: room for four bytes, and for the look-ahead of the packer.
constexpr int32_t kBufferRows = 8;
constexpr int64_t kEstimateOverhead = 100;

int32_t BytesOfDocumentRow(const HostFormatRecord& record)
{
    return (record.channelDepth * record.columnCount + 7) / 8;
}

// Fills the headers for the document. False: the format has no frame for its mode.
bool DescribeFrame(EIContext& context)
{
    const HostFormatRecord& record = *context.record;
    EIFrameHeader frame{};
    switch (record.colorMode) {
    case kHostModeGrayscale:
    case kHostModeIndexed:
        frame.bitDepth = 8;
        frame.frameType = kFrameIndexed;
        frame.lutCount = 256;
        break;
    case kHostModeRGB:
        frame.bitDepth = 24;
        frame.frameType = kFrameDirect;
        frame.alphaDepth = record.planeCount < 4 ? 0 : 8;
        frame.lutCount = 1; // readers pass over it by its count
        break;
    default:
        return false;
    }
    frame.height = frame.bottom = record.rowCount;
    frame.width = frame.right = record.columnCount;
    frame.packing = kPackingRuns;
    frame.dataSize = static_cast<uint32_t>(frame.PixelBits() / 8) *
                     static_cast<uint32_t>(record.columnCount) *
                     static_cast<uint32_t>(record.rowCount);
    context.fileHeader = {kWrittenVersion, 1};
    context.frameHeader = frame;
    return true;
}

// Writes bytes, or fails with a message.
template <class Bytes>
bool Write(EIContext& context, const Bytes& bytes, const char* message)
{
    const int16_t code = FastWrite(context.file, std::size(bytes), std::data(bytes));
    if (code != kHostNoError)
        FailWithMessage(context, code, message);
    return code == kHostNoError;
}

bool WriteColorTable(EIContext& context)
{
    const HostFormatRecord& record = *context.record;
    for (int i = 0; i < context.frameHeader.lutCount; ++i) {
        const uint8_t entry[kLutEntryBytes] = {record.redLut[i], record.greenLut[i],
                                               record.blueLut[i]};
        if (!Write(context, entry, Message::kWriteLut))
            return false;
    }
    return true;
}

// The rows that the host is to deliver: one at a time, interleaved.
void DescribeExchange(EIContext& context)
{
    HostFormatRecord& record = *context.record;
    const int pixelBytes = context.frameHeader.PixelBits() / 8;
    record.exchangeRect = {0, 0, 1, record.columnCount};
    record.firstPlane = 0;
    record.lastPlane = static_cast<int16_t>(pixelBytes - 1);
    record.pixelStride = static_cast<int16_t>(pixelBytes);
    record.rowStride = record.columnCount * pixelBytes;
    record.planeStride = 1;
}

// With one row at a time the row stride means nothing to the host; from here on it is the measure
// of the buffer.
void AllocateRow(EIContext& context)
{
    HostFormatRecord& record = *context.record;
    const CHostBuffers buffers(record.bufferSuite);
    record.rowStride = BytesOfDocumentRow(record);
    const int64_t bufferBytes = int64_t{kBufferRows} * record.rowStride;
    const int32_t unit = context.frameHeader.PixelBits() / 8;
    if (record.columnCount > 0 && bufferBytes < int64_t{unit} * (record.columnCount + 1)) {
        context.result = kHostBadMode; // channels of less than 8 bits: the row would not fit
        return;
    }
    HostBuffer buffer = nullptr;
    context.result = buffers.Allocate(bufferBytes, buffer);
    if (context.result != kHostNoError)
        return;
    context.writeBuffer = buffer;
    context.writeBufferPointer = static_cast<uint8_t*>(buffers.Lock(buffer));
}

void WriteRows(EIContext& context)
{
    HostFormatRecord& record = *context.record;
    for (int32_t row = 0; row < record.rowCount; ++row) {
        if (!BeginRow(context, row))
            return;
        record.exchangeRect.top = static_cast<int16_t>(row);
        record.exchangeRect.bottom = static_cast<int16_t>(row + 1);
        context.result = record.exchangeRows();
        if (context.result != kHostNoError)
            return;
        EIWriteRow(context, context.writeBufferPointer, record.columnCount);
        if (context.result != kHostNoError)
            return;
    }
}

// Puts the true size of the pixels into the headers on the disk.
bool PatchHeaders(EIContext& context)
{
    if (context.file == nullptr) {
        context.result = kHostCannotRead;
        return false;
    }
    const int64_t position = FastGetPosition(context.file);
    const int16_t code = FastSetPosition(context.file, kHostSeekFromStart, 0);
    if (code != kHostNoError) {
        FailWithMessage(context, code, Message::kSeekToHeader);
        return false;
    }
    EIFrameHeader& frame = context.frameHeader;
    frame.dataSize =
        static_cast<uint32_t>(position - kLutEntryBytes * frame.lutCount - kHeadersBytes);
    return Write(context, EncodeFileHeader(context.fileHeader), Message::kPatchHeader) &&
           Write(context, EncodeFrameHeader(frame), Message::kPatchFrame);
}

} // namespace

// The first write that fails ends the writing, and its code is the result. The exchange is
// described all the same, but there is no buffer then and no address of rows: that of a session
// that was given up before its finish belongs to nobody any more.
void EIWriteStart(EIContext& context)
{
    context.writeBuffer = nullptr;
    context.writeBufferPointer = nullptr;
    if (!DescribeFrame(context)) {
        context.result = kHostBadMode;
        return;
    }
    context.file = FastOpen(context.record, kHostOpenToWrite);
    if (context.file == nullptr) {
        context.result = kHostCannotRead;
        return;
    }
    const bool written =
        Write(context, EncodeFileHeader(context.fileHeader), Message::kWriteHeader) &&
        Write(context, EncodeFrameHeader(context.frameHeader), Message::kWriteFrame) &&
        WriteColorTable(context);
    DescribeExchange(context);
    if (written)
        AllocateRow(context);
    context.record->rowsAddress = context.writeBufferPointer;
}

void EIWriteContinue(EIContext& context)
{
    HostFormatRecord& record = *context.record;
    const CHostBuffers buffers(record.bufferSuite);
    if (context.writeBuffer == nullptr || context.writeBufferPointer == nullptr)
        context.result = kHostMemoryFull;
    else if (context.file == nullptr)
        context.result = kHostCannotRead;
    else if (record.exchangeRows == nullptr)
        context.result = kHostMissingSuite;
    else
        WriteRows(context);
    // The start made the buffer; it isn't needed any more, however the writing went.
    if (context.writeBufferPointer != nullptr)
        buffers.Unlock(context.writeBuffer);
    if (context.writeBuffer != nullptr)
        buffers.Free(context.writeBuffer);
    context.writeBuffer = nullptr;
    context.writeBufferPointer = nullptr;
    record.rowsAddress = nullptr;
    record.exchangeRect = {};
}

void EIWriteFinish(EIContext& context)
{
    if (context.frameHeader.packing == kPackingRuns && !PatchHeaders(context))
        return; // the file stays open
    if (context.file == nullptr)
        return; // no start came before
    FastClose(context.file);
    context.file = nullptr;
}

void EIEstimate(EIContext& context)
{
    HostFormatRecord& record = *context.record;
    const int64_t bytes =
        int64_t{BytesOfDocumentRow(record)} * record.planeCount * record.rowCount +
        kEstimateOverhead;
    constexpr int64_t kMost =
        std::numeric_limits<int32_t>::max(); // the largest pictures pass the record's 32 bits
    record.estimateMin = record.estimateMax = static_cast<int32_t>(std::min(bytes, kMost));
    record.rowsAddress = nullptr;
}

} // namespace Project
