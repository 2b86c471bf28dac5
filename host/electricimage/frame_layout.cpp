#include "electricimage/frame_layout.h"

#include <bit>

namespace Host {
namespace {

// Takes the integers of a header off its bytes, or puts them on, one after the other.
class BigEndian {
public:
    explicit BigEndian(const uint8_t* bytes) : fFrom(bytes) {}
    explicit BigEndian(uint8_t* bytes) : fFrom(bytes), fTo(bytes) {}

    uint32_t Get(int size)
    {
        uint32_t value = 0;
        for (; size > 0; --size)
            value = value << 8 | *fFrom++;
        return value;
    }

    template <class Field>
    void Get(Field& field)
    {
        field = static_cast<Field>(Get(static_cast<int>(sizeof(Field))));
    }

    template <class Field>
    void Put(Field field)
    {
        for (size_t i = sizeof(Field); i-- > 0;)
            *fTo++ = static_cast<uint8_t>(static_cast<uint32_t>(field) >> (8 * i));
    }

    void Skip(int size)
    {
        fFrom += size;
        fTo += fTo ? size : 0;
    }

private:
    const uint8_t* fFrom;
    uint8_t* fTo = nullptr;
};

float LittleFloat(const uint8_t* bytes)
{
    uint32_t bits = 0;
    for (int i = 3; i >= 0; --i)
        bits = bits << 8 | bytes[i];
    return std::bit_cast<float>(bits);
}

void PutLittleFloat(uint8_t* bytes, float value)
{
    const auto bits = std::bit_cast<uint32_t>(value);
    for (int i = 0; i < 4; ++i)
        bytes[i] = static_cast<uint8_t>(bits >> (8 * i));
}

} // namespace

EIFileFields DecodeFileHeader(const std::array<uint8_t, kEIFileHeaderBytes>& bytes)
{
    BigEndian in(bytes.data());
    EIFileFields fields;
    in.Get(fields.version);
    in.Get(fields.frameCount);
    return fields;
}

std::array<uint8_t, kEIFileHeaderBytes> EncodeFileHeader(const EIFileFields& fields)
{
    std::array<uint8_t, kEIFileHeaderBytes> bytes = {};
    BigEndian out(bytes.data());
    out.Put(fields.version);
    out.Put(fields.frameCount);
    return bytes;
}

EIFrameFields DecodeFrameHeader(const std::array<uint8_t, kEIFrameHeaderBytes>& bytes)
{
    BigEndian in(bytes.data());
    EIFrameFields fields;
    in.Skip(12); // reserved fields, and a height and width that the bounds repeat
    in.Get(fields.bitDepth);
    in.Get(fields.frameType);
    in.Get(fields.top);
    in.Get(fields.left);
    in.Get(fields.bottom);
    in.Get(fields.right);
    in.Get(fields.packing);
    in.Get(fields.alphaDepth);
    in.Get(fields.dataSize);
    in.Get(fields.lutCount);
    return fields;
}

std::array<uint8_t, kEIFrameHeaderBytes> EncodeFrameHeader(const EIFrameFields& fields)
{
    std::array<uint8_t, kEIFrameHeaderBytes> bytes = {};
    BigEndian out(bytes.data());
    out.Skip(8);
    out.Put(static_cast<int16_t>(fields.Height()));
    out.Put(static_cast<int16_t>(fields.Width()));
    out.Put(fields.bitDepth);
    out.Put(fields.frameType);
    out.Put(fields.top);
    out.Put(fields.left);
    out.Put(fields.bottom);
    out.Put(fields.right);
    out.Put(fields.packing);
    out.Put(fields.alphaDepth);
    out.Put(fields.dataSize);
    out.Put(fields.lutCount);
    return bytes;
}

EIRange DecodeRange(const std::array<uint8_t, kEIRangeBytes>& bytes)
{
    return {LittleFloat(bytes.data() + 4), LittleFloat(bytes.data() + 8)};
}

std::array<uint8_t, kEIRangeBytes> EncodeRange(const EIRange& range)
{
    std::array<uint8_t, kEIRangeBytes> bytes = {};
    PutLittleFloat(bytes.data() + 4, range.minimum);
    PutLittleFloat(bytes.data() + 8, range.maximum);
    return bytes;
}

} // namespace Host
