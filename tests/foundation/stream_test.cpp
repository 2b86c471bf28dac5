#include "foundation/memory_container.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <string_view>

namespace Kesto {
namespace {

std::string_view Text(const CMemoryContainer& stream)
{
    return {reinterpret_cast<const char*>(stream.Bytes().data()), stream.Bytes().size()};
}

TEST(Stream, ReadsATagInTheByteOrderOfItsSpelling)
{
    CMemoryContainer stream;
    stream.Write("Kest", 4);
    stream.Seek(0);
    EXPECT_EQ(stream.ReadTag(), MakeTag("Kest"));
    stream.Seek(0);
    stream.SetByteOrder(std::endian::little);
    EXPECT_EQ(stream.ReadTag(), MakeTag("tseK"));
}

TEST(Stream, LaysOutEachWidthInBothByteOrders)
{
    using namespace std::string_view_literals;
    const auto write = [](CStream& stream) {
        stream.WriteUInt8(0x01);
        stream.WriteUInt16(0x0203);
        stream.WriteUInt32(0x04050607);
        stream.WriteUInt64(0x08090A0B0C0D0E0F);
        stream.WriteDouble(-2.0);
    };
    CMemoryContainer big;
    write(big);
    EXPECT_EQ(Text(big), "\x01\x02\x03\x04\x05\x06\x07\x08\x09\x0A\x0B\x0C\x0D\x0E\x0F\xC0\0\0\0\0\0\0\0"sv);
    CMemoryContainer little;
    little.SetSwapped(!big.IsSwapped());
    write(little);
    EXPECT_EQ(Text(little), "\x01\x03\x02\x07\x06\x05\x04\x0F\x0E\x0D\x0C\x0B\x0A\x09\x08\0\0\0\0\0\0\0\xC0"sv);
}

TEST(Stream, ReadsBackWhatItWrote)
{
    struct Point {
        std::int32_t x;
        std::int32_t y;
    };
    for (const std::endian order : {std::endian::big, std::endian::little}) {
        CMemoryContainer stream;
        stream.SetByteOrder(order);
        stream.WriteInt8(-128);
        stream.WriteInt16(-32768);
        stream.WriteInt32(-2147483647);
        stream.WriteInt64(std::numeric_limits<std::int64_t>::min());
        stream.WriteDouble(-0.1);
        stream.WritePoint(Point{-1, 2});
        stream.Seek(0);
        EXPECT_EQ(stream.ReadInt8(), -128);
        EXPECT_EQ(stream.ReadInt16(), -32768);
        EXPECT_EQ(stream.ReadInt32(), -2147483647);
        EXPECT_EQ(stream.ReadInt64(), std::numeric_limits<std::int64_t>::min());
        EXPECT_EQ(stream.ReadDouble(), -0.1);
        const Point point = stream.ReadPoint<Point>();
        EXPECT_EQ(point.x, -1);
        EXPECT_EQ(point.y, 2);
        EXPECT_EQ(stream.GetPosition(), stream.GetSize());
    }
}

} // namespace
} // namespace Kesto
