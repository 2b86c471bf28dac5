#include "formats/plain_codec.h"

#include <algorithm>

namespace Bench {
namespace {

constexpr int kUnit = 3;
constexpr int64_t kDataStart = 6 + 32 + 3; // after the headers and the one colour of an RGB file

void Read(HostFile file, void* buffer, int64_t count)
{
    FastRead(file, &count, buffer);
}

void DecodeRow(HostFile file, uint8_t* row, int bytes)
{
    int position = 0;
    while (position < bytes) {
        uint8_t control = 0;
        Read(file, &control, 1);
        if (control < 0x80) {
            uint8_t value[kUnit];
            Read(file, value, kUnit);
            for (int pixel = 0; pixel <= control; ++pixel)
                for (const uint8_t byte : value)
                    row[position++] = byte;
        } else {
            const int count = (control - 0x7F) * kUnit;
            Read(file, row + position, count);
            position += count;
        }
    }
}

bool SamePixel(const uint8_t* a, const uint8_t* b)
{
    for (int i = 0; i < kUnit; ++i)
        if (a[i] != b[i])
            return false;
    return true;
}

void EncodeRow(HostFile file, const uint8_t* row, int bytes)
{
    int position = 0;
    while (position < bytes) {
        const uint8_t* const pixel = row + position;
        const bool run = bytes - position > kUnit && SamePixel(pixel, pixel + kUnit);
        int count = run ? 2 : 1;
        while (position + count * kUnit < bytes &&
               SamePixel(run ? pixel : pixel + count * kUnit,
                         pixel + (run ? count : count + 1) * kUnit) == run)
            ++count;
        while (count > 0) {
            const int length = std::min(count, 128);
            const auto control = static_cast<uint8_t>(length + (run ? -1 : 0x7F));
            FastWrite(file, 1, &control);
            FastWrite(file, run ? kUnit : length * kUnit, row + position);
            position += length * kUnit;
            count -= length;
        }
    }
}

// Full packets of pixels as they are, whatever the pixels.
void PutRow(HostFile file, const uint8_t* row, int bytes)
{
    for (int position = 0; position < bytes;) {
        const int length = std::min(128, (bytes - position) / kUnit);
        const auto control = static_cast<uint8_t>(length + 0x7F);
        FastWrite(file, 1, &control);
        FastWrite(file, length * kUnit, row + position);
        position += length * kUnit;
    }
}

void SaveRows(LeanHost& host, int width, int height, void (*put)(HostFile, const uint8_t*, int))
{
    HostFormatRecord& record = host.record;
    record.columnCount = static_cast<int16_t>(width);
    record.rowCount = static_cast<int16_t>(height);
    const HostFile file = FastOpen(&record, kHostOpenToWrite);
    const uint8_t head[kDataStart] = {};
    FastWrite(file, kDataStart, head);
    HostBuffer buffer = nullptr;
    record.bufferSuite->Allocate(8 * width, &buffer);
    record.rowsAddress = record.bufferSuite->Lock(buffer, 0);
    for (int row = 0; row < height; ++row) {
        record.exchangeRect = {static_cast<int16_t>(row), 0, static_cast<int16_t>(row + 1),
                               record.columnCount};
        record.exchangeRows();
        put(file, static_cast<const uint8_t*>(record.rowsAddress), width * kUnit);
    }
    record.bufferSuite->Free(buffer);
    FastClose(file);
}

} // namespace

void PlainOpen(LeanHost& host)
{
    HostFormatRecord& record = host.record;
    const HostFile file = FastOpen(&record, kHostOpenToRead);
    uint8_t head[kDataStart];
    Read(file, head, kDataStart);
    record.rowCount = static_cast<int16_t>(head[24] << 8 | head[25]);
    record.columnCount = static_cast<int16_t>(head[26] << 8 | head[27]);
    const int rowBytes = record.columnCount * kUnit;
    const int chunk = std::min<int>(record.rowCount, record.bufferSuite->Space() / rowBytes);
    HostBuffer buffer = nullptr;
    record.bufferSuite->Allocate(chunk * rowBytes, &buffer);
    record.rowsAddress = record.bufferSuite->Lock(buffer, 0);
    for (int first = 0; first < record.rowCount; first += chunk) {
        const int end = std::min<int>(first + chunk, record.rowCount);
        record.exchangeRect = {static_cast<int16_t>(first), 0, static_cast<int16_t>(end),
                               record.columnCount};
        for (int row = first; row < end; ++row)
            DecodeRow(file, static_cast<uint8_t*>(record.rowsAddress) + (row - first) * rowBytes,
                      rowBytes);
        record.exchangeRows();
    }
    record.bufferSuite->Free(buffer);
    FastClose(file);
}

void PlainSave(LeanHost& host, int width, int height)
{
    SaveRows(host, width, height, EncodeRow);
}

void BareSave(LeanHost& host, int width, int height)
{
    SaveRows(host, width, height, PutRow);
}

} // namespace Bench
