// Blocks of memory, streams of values, and the containers that stand on both.
#include "foundation/base/block.h"
#include "foundation/errors/exceptions.h"
#include "foundation/spec_folder.h"
#include "foundation/streams/block_container.h"
#include "foundation/streams/file_container.h"
#include "foundation/streams/memory_container.h"
#include "support/testing.h"

#include <new>

using namespace Kesto;
using namespace std::string_view_literals;
using testing::Each;

namespace {

// Notes what is asked of its memory: new and old room.
class CNotingBlock final : public CHeapBlock {
public:
    explicit CNotingBlock(std::size_t granularity) : CHeapBlock(granularity) {}

    void Reallocate(std::size_t newAllocated, std::size_t oldAllocated, bool zeroed) override
    {
        fCalls.emplace_back(newAllocated, oldAllocated);
        CHeapBlock::Reallocate(newAllocated, oldAllocated, zeroed);
    }

    std::vector<std::pair<std::size_t, std::size_t>> fCalls;
};

struct Point {
    std::int32_t x;
    std::int32_t y;
    bool operator==(const Point&) const = default;
};

// A value of each width, and how a stream writes and reads it.
void EachValue(auto use)
{
    use(&CStream::WriteTag, &CStream::ReadTag, MakeTag("Kest"));
    use(&CStream::WriteUInt8, &CStream::ReadUInt8, std::uint8_t{0x01});
    use(&CStream::WriteUInt16, &CStream::ReadUInt16, std::uint16_t{0x0203});
    use(&CStream::WriteUInt32, &CStream::ReadUInt32, 0x04050607U);
    use(&CStream::WriteUInt64, &CStream::ReadUInt64, std::uint64_t{0x08090A0B0C0D0E0F});
    use(&CStream::WriteDouble, &CStream::ReadDouble, -2.0);
    use(&CStream::WriteInt8, &CStream::ReadInt8, std::int8_t{-128});
    use(&CStream::WriteInt16, &CStream::ReadInt16, std::int16_t{-32768});
    use(&CStream::WriteInt32, &CStream::ReadInt32, -2);
    use(&CStream::WriteInt64, &CStream::ReadInt64, INT64_MIN);
}

std::string ReadText(CContainer& container, std::size_t size)
{
    std::string text(size, '?');
    container.Read(text.data(), size);
    return text;
}

std::string All(CContainer& container)
{
    container.Seek(0);
    return ReadText(container, container.GetSize());
}

void Fill(CContainer& container, std::string_view text)
{
    container.Write(text.data(), text.size());
}

template <class Call>
void ExpectEndOfData(Call call)
{
    EXPECT_THAT(call, testing::Throws<CError>(testing::AllOf(
                          testing::Property(&CError::ErrorText,
                                            "$$$/Kesto/Container/Error/EndOfData=The end of data "
                                            "was reached while reading from a container."),
                          testing::Property(&CError::IsQuiet, false),
                          testing::Property(&CError::IsAlert, true))));
}

// A container over memory, over a block, and over a file, by number.
class Container : public testing::TestWithParam<std::size_t> {
    CMemoryContainer fMemory{8};
    CMemoryBlock fBlock;
    CBlockContainer fOverBlock{&fBlock};
    SpecFolder fFolder;
    CFilePort fPort{fFolder.File("store"), FileMode::kReplace};
    CFileContainer fOverFile{fPort};

protected:
    CContainer& container =
        *std::array<CContainer*, 3>{&fMemory, &fOverBlock, &fOverFile}[GetParam()];
};
INSTANTIATE_TEST_SUITE_P(Stores, Container, testing::Range(std::size_t{0}, std::size_t{3}));

} // namespace

TEST(Block, TakesMemoryInMultiplesOfItsGranularity)
{
    const struct {
        std::size_t granularity;
        std::vector<std::size_t> sizes;
        decltype(CNotingBlock::fCalls) calls;
    } rows[] = {
        {16, {1, 16, 17, 32, 3}, {{16, 0}, {32, 16}, {16, 32}}},
        {0, {5, 5, 6}, {{5, 0}, {6, 5}}},
        {1, {5, 5, 6}, {{5, 0}, {6, 5}}},
        {8, {0}, {}},
        {8, {9, 0}, {{16, 0}, {0, 16}}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message()
                     << "granularity " << row.granularity << ", last size " << row.sizes.back());
        CNotingBlock block(row.granularity);
        for (const std::size_t size : row.sizes)
            block.SetSize(size);
        EXPECT_EQ(block.fCalls, row.calls);
        EXPECT_EQ(block.GetSize(), row.sizes.back());
        EXPECT_EQ(block.Data() == nullptr, block.GetSize() == 0);
    }
}

TEST(Block, KeepsItsBytesAndZeroesWhatItGains)
{
    CObjectBlock block(4096);
    block.SetSize(4);
    std::ranges::fill(block.Bytes(), std::byte{7});
    block.SetSize(8000, true);
    EXPECT_THAT(block.Bytes().first(4), Each(std::byte{7}));
    EXPECT_THAT(block.Bytes().subspan(4096), Each(std::byte{0}));
    for (std::size_t tooLarge : {SIZE_MAX, SIZE_MAX - 4095, SIZE_MAX / 2 + 1})
        EXPECT_THROW(block.SetSize(tooLarge, true), std::bad_alloc) << tooLarge;
    EXPECT_EQ(block.GetSize(), 8000u);
    EXPECT_THAT(block.Bytes().first(4), Each(std::byte{7}));
    block.Free();
    EXPECT_EQ(block.GetSize(), 0u);
}

TEST(Stream, LaysOutEachWidthInBothByteOrdersAndReadsItBack)
{
    const struct {
        std::endian order;
        std::string_view bytes;
    } rows[] = {
        {std::endian::big,
         "Kest\x01\x02\x03\x04\x05\x06\x07\x08\x09\x0A\x0B\x0C\x0D\x0E\x0F\xC0\0\0\0\0\0\0\0"
         "\x80\x80\0\xFF\xFF\xFF\xFE\x80\0\0\0\0\0\0\0\xFF\xFF\xFF\xFF\0\0\0\x02"sv},
        {std::endian::little,
         "tseK\x01\x03\x02\x07\x06\x05\x04\x0F\x0E\x0D\x0C\x0B\x0A\x09\x08\0\0\0\0\0\0\0\xC0"
         "\x80\0\x80\xFE\xFF\xFF\xFF\0\0\0\0\0\0\0\x80\xFF\xFF\xFF\xFF\x02\0\0\0"sv},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.order == std::endian::big ? "big-endian" : "little-endian");
        CMemoryContainer stream;
        EXPECT_EQ(stream.IsSwapped(), std::endian::native == std::endian::little)
            << "a new stream is big-endian";
        stream.SetByteOrder(row.order);
        EXPECT_EQ(stream.IsSwapped(), row.order != std::endian::native);
        EachValue([&](auto write, auto, auto value) { (stream.*write)(value); });
        stream.WritePoint(Point{-1, 2});
        EXPECT_EQ(All(stream), row.bytes);
        stream.Seek(0);
        EachValue([&](auto, auto read, auto value) { EXPECT_EQ((stream.*read)(), value); });
        EXPECT_EQ(stream.ReadPoint<Point>(), (Point{-1, 2}));
        EXPECT_EQ(stream.GetPosition(), stream.GetSize());
    }
}

TEST_P(Container, ReadsAndSeeksUpToTheLastByteAndNoFurther)
{
    Fill(container, "abcdef");
    container.Seek(2);
    char one = '?';
    ExpectEndOfData([&] { ReadText(container, 5); });
    EXPECT_EQ(container.GetPosition(), 2u);
    EXPECT_EQ(ReadText(container, 4), "cdef");
    ExpectEndOfData([&] { container.Read(&one, 1); });
    ExpectEndOfData([&] { container.Read(&one, SIZE_MAX); });
    container.Read(&one, 0);
    EXPECT_EQ(one, '?');
    container.Seek(6);
    ExpectEndOfData([&] { container.Seek(7); });
    EXPECT_EQ(container.GetPosition(), 6u);
}

TEST_P(Container, SkipsWithinItsBytesOrMakesMore)
{
    Fill(container, "abcd");
    container.Seek(1);
    container.SkipRead(2);
    EXPECT_EQ(ReadText(container, 1), "d");
    ExpectEndOfData([&] { container.SkipRead(1); });
    ExpectEndOfData([&] { container.SkipRead(UINT64_MAX); });
    container.Seek(1);
    container.SkipWrite(1);
    EXPECT_EQ(container.GetSize(), 4u);
    container.SkipWrite(4);
    Fill(container, "e");
    EXPECT_EQ(All(container), "abcd\0\0e"sv);
    ExpectEndOfData([&] { container.SkipWrite(UINT64_MAX); });
}

TEST_P(Container, ReadsAndWritesAtPlaces)
{
    Fill(container, "abcdef");
    char two[2];
    container.ReadAt(two, 2, 3);
    EXPECT_EQ(std::string_view(two, 2), "de");
    EXPECT_EQ(container.GetPosition(), 5u);
    ExpectEndOfData([&] { container.ReadAt(two, 1, 7); });
    EXPECT_EQ(container.GetPosition(), 5u);
    ExpectEndOfData([&] { container.ReadAt(two, 1, 6); });
    container.WriteAt("X", 1, 1);
    EXPECT_EQ(container.GetPosition(), 2u);
    EXPECT_EQ(All(container), "aXcdef");
}

TEST_P(Container, GrowsByWritingPastItsEndAndLowersItsPositionWhenItIsCut)
{
    Fill(container, "abc");
    container.Seek(2);
    Fill(container, "XYZ");
    EXPECT_EQ(container.GetSize(), 5u);
    EXPECT_EQ(All(container), "abXYZ");
    container.WriteAt("!", 1, 8);
    EXPECT_EQ(container.GetPosition(), 9u);
    EXPECT_EQ(All(container), "abXYZ\0\0\0!"sv);
    container.SetSize(3);
    EXPECT_EQ(container.GetPosition(), 3u);
    Fill(container, "?");
    EXPECT_EQ(All(container), "abX?");
    container.Seek(1);
    container.SetSize(6);
    EXPECT_EQ(container.GetPosition(), 1u);
    EXPECT_EQ(All(container), "abX?\0\0"sv);
    container.Flush();
}

TEST(BlockContainer, BeginsWithTheBlockAndNoticesWhenItIsCutOrMissing)
{
    CBlockContainer without(nullptr);
    without.SetLength(10);
    EXPECT_EQ(without.GetSize(), 0u);
    ExpectEndOfData([&] { ReadText(without, 1); });
    ExpectEndOfData([&] { Fill(without, "x"); });
    CPointerBlock block;
    block.SetSize(4);
    std::ranges::fill(block.Bytes(), std::byte{7});
    CBlockContainer container(&block);
    EXPECT_EQ(container.GetSize(), 4u);
    block.SetSize(1);
    ExpectEndOfData([&] { ReadText(container, 4); });
    container.WriteAt("z", 1, 3);
    EXPECT_EQ(All(container), "\7\0\0z"sv);
}

TEST(FileContainer, LeavesItsBytesInTheFile)
{
    const SpecFolder folder;
    folder.Put("file", "0123456789");
    {
        CFilePort port(folder.File("file"), FileMode::kUpdate);
        port.Seek(7);
        CFileContainer container(port);
        EXPECT_EQ(ReadText(container, 3), "012");
        Fill(container, "abc");
        container.SetSize(8);
    }
    EXPECT_EQ(folder.Get("file"), "012abc67");
}
