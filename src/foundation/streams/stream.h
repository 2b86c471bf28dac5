// CStream, which reads and writes bytes in order, and values of fixed width in either byte order.
//
// A new stream is big-endian.
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <concepts>
#include <cstddef>
#include <cstdint>

namespace Kesto {

// A four-character key, the first character in the top byte.
using Tag = std::uint32_t;

consteval Tag MakeTag(const char (&text)[5])
{
    Tag tag = 0;
    for (std::size_t i = 0; i < 4; ++i)
        tag = tag << 8 | static_cast<unsigned char>(text[i]);
    return tag;
}

// The value with its bytes in reverse order.
template <class T>
constexpr T SwapBytes(T value)
{
    auto bytes = std::bit_cast<std::array<std::byte, sizeof(T)>>(value);
    std::ranges::reverse(bytes);
    return std::bit_cast<T>(bytes);
}

// What a stream holds as one value.
template <class T>
concept StreamValue = (std::integral<T> && !std::same_as<T, bool>) || std::same_as<T, double> ||
                      std::same_as<T, float>;

// A point of any geometry: its `x`, then its `y`.
template <class P>
concept StreamPoint = requires(P point)
{
    requires StreamValue<decltype(point.x)>;
    requires std::same_as<decltype(point.y), decltype(point.x)>;
};

class CStream {
public:
    virtual ~CStream() = default;

    // Move exactly `size` bytes, or throw: CError at the end of the data, CSystemError when the
    // system fails.
    virtual void Read(void* buffer, std::size_t size) = 0;
    virtual void Write(const void* buffer, std::size_t size) = 0;

    // Pass `size` bytes over without looking at them; bytes passed over in writing are zero where
    // the stream is new.
    virtual void SkipRead(std::uint64_t size) = 0;
    virtual void SkipWrite(std::uint64_t size) = 0;

    // Whether values are swapped, which is whether the stream has the other byte order than the
    // machine.
    bool IsSwapped() const { return fSwap; }
    void SetSwapped(bool swap) { fSwap = swap; }
    void SetByteOrder(std::endian order) { fSwap = order != std::endian::native; }

    template <StreamValue T>
    T ReadValue()
    {
        T value{};
        Read(&value, sizeof value);
        return fSwap ? SwapBytes(value) : value;
    }
    template <StreamValue T>
    void WriteValue(std::type_identity_t<T> value)
    {
        if (fSwap)
            value = SwapBytes(value);
        Write(&value, sizeof value);
    }
    template <StreamPoint P>
    P ReadPoint()
    {
        P point{};
        point.x = ReadValue<decltype(point.x)>();
        point.y = ReadValue<decltype(point.y)>();
        return point;
    }
    template <StreamPoint P>
    void WritePoint(const P& point)
    {
        WriteValue<decltype(point.x)>(point.x);
        WriteValue<decltype(point.y)>(point.y);
    }

    std::int8_t ReadInt8() { return ReadValue<std::int8_t>(); }
    std::uint8_t ReadUInt8() { return ReadValue<std::uint8_t>(); }
    std::int16_t ReadInt16() { return ReadValue<std::int16_t>(); }
    std::uint16_t ReadUInt16() { return ReadValue<std::uint16_t>(); }
    std::int32_t ReadInt32() { return ReadValue<std::int32_t>(); }
    std::uint32_t ReadUInt32() { return ReadValue<std::uint32_t>(); }
    std::int64_t ReadInt64() { return ReadValue<std::int64_t>(); }
    std::uint64_t ReadUInt64() { return ReadValue<std::uint64_t>(); }
    Tag ReadTag() { return ReadValue<Tag>(); }
    double ReadDouble() { return ReadValue<double>(); }

    void WriteInt8(std::int8_t value) { WriteValue<std::int8_t>(value); }
    void WriteUInt8(std::uint8_t value) { WriteValue<std::uint8_t>(value); }
    void WriteInt16(std::int16_t value) { WriteValue<std::int16_t>(value); }
    void WriteUInt16(std::uint16_t value) { WriteValue<std::uint16_t>(value); }
    void WriteInt32(std::int32_t value) { WriteValue<std::int32_t>(value); }
    void WriteUInt32(std::uint32_t value) { WriteValue<std::uint32_t>(value); }
    void WriteInt64(std::int64_t value) { WriteValue<std::int64_t>(value); }
    void WriteUInt64(std::uint64_t value) { WriteValue<std::uint64_t>(value); }
    void WriteTag(Tag value) { WriteValue<Tag>(value); }
    void WriteDouble(double value) { WriteValue<double>(value); }

protected:
    CStream() = default;
    CStream(const CStream&) = default;
    CStream& operator=(const CStream&) = default;

    bool fSwap = std::endian::native == std::endian::little;
};

} // namespace Kesto
