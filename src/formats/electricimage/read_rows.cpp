#include "formats/electricimage/read_rows.h"

#include "formats/electricimage/messages.h"
#include "formats/electricimage/pixel_runs.h"

#include <algorithm>
#include <cstring>
#include <limits>

namespace Project {
namespace {

constexpr int32_t kLiteralFlag = 0x80; // control bytes from here on open a literal
constexpr int32_t kLiteralBias = 0x7F; // and hold its length plus this

// What carries the decoder from one row to the next. A packet of 128 pixels may reach over any
// number of row ends.
struct RunState {
    uint8_t value[4] = {}; // the open run's pixel
    // 0: no packet is open; below kLiteralFlag: pixels of a run; else a literal's, biased.
    int32_t left = 0;
};

RunState gRun;

void UnpackRow(EIContext& context, uint8_t* dest, const RowLayout& row)
{
    const auto fill = RunFiller(row.unit);
    int32_t position = 0;
    while (position < row.bytes) {
        const int32_t room = (row.bytes - position) / row.unit;
        bool packetOpened = false;
        if (gRun.left == 0) {
            uint8_t control = 0;
            if (!ReadBytes(context.file, &control, 1)) {
                context.result = kHostCannotRead;
                return;
            }
            gRun.left = control;
            packetOpened = true;
        }
        if (gRun.left < kLiteralFlag) {
            // A run's pixel is in the file once, and its control byte is the length less one.
            // An open run goes on with the pixel that is kept.
            if (packetOpened) {
                if (!ReadBytes(context.file, gRun.value, row.unit)) {
                    context.result = kHostCannotRead;
                    return;
                }
                ++gRun.left;
            }
            const int32_t count = std::min(gRun.left, room);
            fill(dest + position, row.bytes - position, gRun.value, count);
            gRun.left -= count;
            position += count * row.unit;
        } else {
            const int32_t length = gRun.left - kLiteralBias;
            const int32_t count = std::min(length, room);
            gRun.left = count < length ? length - count + kLiteralBias : 0;
            if (!ReadBytes(context.file, dest + position, int64_t{count} * row.unit)) {
                context.result = kHostCannotRead;
                return;
            }
            position += count * row.unit;
        }
    }
    // A row is a whole number of pixels, so it can't end amid one unless the layout is wrong.
    if (position > row.bytes)
        FailWithMessage(context, kHostCannotRead, Message::kUnpackFailed);
}

// Spreads packed indices, the first pixel in the top bits, to one in a byte.
void ExpandIndices(uint8_t* dest, const uint8_t* packed, int bitDepth, int32_t pixelCount)
{
    const int perByte = 8 / bitDepth;
    for (int32_t pixel = 0; pixel < pixelCount; pixel += perByte) {
        uint32_t bits = *packed++;
        const int32_t end = std::min(pixel + perByte, pixelCount);
        for (int32_t i = pixel; i < end; ++i) {
            dest[i] = static_cast<uint8_t>((bits & 0xFF) >> (8 - bitDepth));
            bits <<= bitDepth;
        }
    }
}

// Spreads words of 5 bits a channel, red on top, to bytes; the upper bits of a channel repeat in
// its low end, so that full stays full.
void ExpandWords(uint8_t* dest, const uint8_t* words, int32_t pixelCount)
{
    const auto widen = [](uint32_t five) { return static_cast<uint8_t>(five << 3 | five >> 2); };
    for (int32_t i = 0; i < pixelCount; ++i) {
        uint16_t word = 0;
        std::memcpy(&word, words + 2 * i, sizeof word);
        dest[3 * i] = widen(word >> 10 & 0x1F);
        dest[3 * i + 1] = widen(word >> 5 & 0x1F);
        dest[3 * i + 2] = widen(word & 0x1F);
    }
}

void WidenRange(EIContext& context, const float* values, int32_t count)
{
    float low = context.rangeMin;
    float high = context.rangeMax;
    for (int32_t i = 0; i < count; ++i) {
        if (values[i] == std::numeric_limits<float>::infinity())
            continue;
        low = values[i] < low ? values[i] : low;
        high = values[i] > high ? values[i] : high;
    }
    context.rangeMin = low;
    context.rangeMax = high;
}

uint8_t GreyOfDepth(const EIContext& context, float value)
{
    if (value == std::numeric_limits<float>::infinity())
        return 255;
    const float v = (value - context.rangeMin) * context.rangeScale + 0.5F;
    if (v > 255.0F)
        return 255;
    return v >= 0.0F ? static_cast<uint8_t>(v) : uint8_t{0}; // a NaN has no level either
}

} // namespace

void ResetRuns()
{
    gRun.left = 0;
}

void EIReadRun(EIContext& context, uint8_t* dest, int32_t pixelCount)
{
    const RowLayout row = LayOutRow(context.frameHeader.PixelBits(), pixelCount);
    if (!row.IsValid())
        return FailWithMessage(context, kHostCannotRead, Message::kReadPixelLength);
    if (context.frameHeader.packing == kPackingRuns)
        UnpackRow(context, dest, row);
    else if (!ReadBytes(context.file, dest, row.bytes))
        context.result = kHostCannotRead;
}

void EIReadDepthRow(EIContext& context, uint8_t* dest, uint8_t* scratch, int32_t pixelCount)
{
    EIReadRun(context, scratch, pixelCount);
    if (context.result != kHostNoError)
        return;
    // Floats are taken from the scratch bytes in small aligned pieces.
    constexpr int32_t kBatch = 256;
    float values[kBatch];
    for (int32_t first = 0; first < pixelCount; first += kBatch) {
        const int32_t count = std::min(kBatch, pixelCount - first);
        std::memcpy(values, scratch + sizeof(float) * static_cast<size_t>(first),
                    sizeof(float) * static_cast<size_t>(count));
        if (context.scanning != 0) {
            WidenRange(context, values, count);
            continue;
        }
        for (int32_t i = 0; i < count; ++i)
            dest[first + i] = GreyOfDepth(context, values[i]);
    }
}

void ReadRow(EIContext& context, uint8_t* dest, uint8_t* scratch, int32_t pixelCount)
{
    const EIFrameHeader& frame = context.frameHeader;
    // What is as long in the file as in the picture is read in place; the rest goes by way of the
    // scratch row.
    switch (frame.PixelBits()) {
    case 1:
    case 2:
    case 4:
    case 8:
        EIReadRun(context, scratch, pixelCount);
        if (context.result == kHostNoError)
            ExpandIndices(dest, scratch, frame.PixelBits(), pixelCount);
        return;
    case 16:
        EIReadRun(context, scratch, pixelCount);
        if (context.result == kHostNoError)
            ExpandWords(dest, scratch, pixelCount);
        return;
    case 24:
        return EIReadRun(context, dest, pixelCount);
    case 32:
        if (frame.frameType == kFrameDepth)
            return EIReadDepthRow(context, dest, scratch, pixelCount);
        return EIReadRun(context, dest, pixelCount);
    default:
        return FailWithMessage(context, kHostFailed, Message::kPlaneDepth);
    }
}

int DecodedPixelBytes(const EIFrameHeader& frame)
{
    switch (frame.PixelBits()) {
    case 1:
    case 2:
    case 4:
    case 8:
        return 1;
    case 16:
    case 24:
        return 3;
    case 32:
        return frame.frameType == kFrameDepth ? 1 : 4;
    default:
        return 0;
    }
}

} // namespace Project
