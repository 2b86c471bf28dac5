#include "formats/electricimage/write_rows.h"

#include "formats/electricimage/messages.h"
#include "formats/electricimage/pixel_runs.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace Project {
namespace {

constexpr int32_t kLongestPacket = 128;

// Writes bytes, or fails with a message.
bool Write(EIContext& context, const void* bytes, int64_t count, const char* message)
{
    const int16_t code = FastWrite(context.file, count, bytes);
    if (code != kHostNoError)
        FailWithMessage(context, code, message);
    return code == kHostNoError;
}

bool WriteControl(EIContext& context, int32_t control, const char* message)
{
    const auto byte = static_cast<uint8_t>(control);
    return Write(context, &byte, 1, message);
}

// Writes `count` pixels that equal `value`, in packets of at most 128.
bool WriteRun(EIContext& context, const uint8_t* value, int unit, int32_t count)
{
    while (count >= 1) {
        const int32_t length = std::min(count, kLongestPacket);
        if (!WriteControl(context, length - 1, Message::kWriteRunLength) ||
            !Write(context, value, unit, Message::kWriteRunValue))
            return false;
        count -= length;
    }
    if (count < 0)
        EIShowError(context, Message::kMatchUnderrun);
    return true;
}

// Writes `count` pixels as they are, in packets of at most 128.
bool WriteLiteral(EIContext& context, const uint8_t* pixels, int unit, int32_t count)
{
    while (count >= 1) {
        const int32_t length = std::min(count, kLongestPacket);
        if (!WriteControl(context, length + 0x7F, Message::kWriteLiteralLength) ||
            !Write(context, pixels, int64_t{length} * unit, Message::kWriteLiteralValue))
            return false;
        pixels += length * unit;
        count -= length;
    }
    if (count < 0)
        EIShowError(context, Message::kMatchUnderrun);
    return true;
}

// Two equal pixels open a run already; a literal ends before the first pixel that equals its
// successor.
void PackRow(EIContext& context, const uint8_t* row, const RowLayout& layout)
{
    const RunFinder& find = RunFinderFor(layout.unit);
    const uint8_t* const end = row + layout.bytes;
    while (row < end) {
        const int32_t run = find.runLength(row, end);
        const int32_t count = run >= 2 ? run : find.literalLength(row, end);
        if (!(run >= 2 ? WriteRun : WriteLiteral)(context, row, layout.unit, count))
            return;
        row += count * layout.unit;
    }
}

// Red, green, blue, alpha becomes alpha, red, green, blue. In a little-endian word that is a
// rotation by one byte.
void PutAlphaFirst(uint8_t* pixels, int32_t pixelCount)
{
    static_assert(std::endian::native == std::endian::little);
    for (int32_t i = 0; i < pixelCount; ++i) {
        uint32_t pixel = 0;
        std::memcpy(&pixel, pixels + 4 * i, sizeof pixel);
        pixel = std::rotl(pixel, 8);
        std::memcpy(pixels + 4 * i, &pixel, sizeof pixel);
    }
}

} // namespace

void EIWriteRow(EIContext& context, uint8_t* row, int32_t pixelCount)
{
    const RowLayout layout = LayOutRow(context.frameHeader.PixelBits(), pixelCount);
    if (!layout.IsValid())
        return FailWithMessage(context, kHostPixelLength, Message::kWritePixelLength);
    if (layout.unit == 4)
        PutAlphaFirst(row, pixelCount);
    if (context.frameHeader.packing != kPackingRuns) {
        Write(context, row, layout.bytes, Message::kWriteRawRow);
        return;
    }
    PackRow(context, row, layout);
}

} // namespace Project
