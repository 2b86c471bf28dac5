#include "formats/electricimage/file_layout.h"

#include <bit>
#include <concepts>
#include <cstring>

namespace Project {
namespace {

static_assert(std::endian::native == std::endian::little);

// Its own inverse.
template <std::integral T>
constexpr T BigEndian(T value)
{
    if constexpr (sizeof(T) == 4)
        return static_cast<T>(__builtin_bswap32(static_cast<uint32_t>(value)));
    else
        return static_cast<T>(__builtin_bswap16(static_cast<uint16_t>(value)));
}

EIFileHeader Swapped(EIFileHeader header)
{
    return {BigEndian(header.version), BigEndian(header.frameCount)};
}

EIFrameHeader Swapped(EIFrameHeader header)
{
    header.reserved1 = BigEndian(header.reserved1);
    header.reserved2 = BigEndian(header.reserved2);
    header.height = BigEndian(header.height);
    header.width = BigEndian(header.width);
    header.top = BigEndian(header.top);
    header.left = BigEndian(header.left);
    header.bottom = BigEndian(header.bottom);
    header.right = BigEndian(header.right);
    header.dataSize = BigEndian(header.dataSize);
    header.lutCount = BigEndian(header.lutCount);
    header.reserved3 = BigEndian(header.reserved3);
    return header;
}

} // namespace

EIFileHeader DecodeFileHeader(const EIFileHeaderBytes& bytes)
{
    return Swapped(std::bit_cast<EIFileHeader>(bytes));
}

EIFileHeaderBytes EncodeFileHeader(const EIFileHeader& header)
{
    return std::bit_cast<EIFileHeaderBytes>(Swapped(header));
}

EIFrameHeader DecodeFrameHeader(const EIFrameHeaderBytes& bytes)
{
    return Swapped(std::bit_cast<EIFrameHeader>(bytes));
}

EIFrameHeaderBytes EncodeFrameHeader(const EIFrameHeader& header)
{
    return std::bit_cast<EIFrameHeaderBytes>(Swapped(header));
}

} // namespace Project
