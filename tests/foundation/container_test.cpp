#include "foundation/block.h"
#include "foundation/block_container.h"
#include "foundation/exceptions.h"
#include "foundation/file_container.h"
#include "foundation/memory_container.h"
#include "foundation/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace Kesto {
namespace {

using namespace std::string_view_literals;

// What the three stores need to stand on.
struct MemoryStore {
    CMemoryContainer container{8};
};
struct BlockStore {
    CMemoryBlock block;
    CBlockContainer container{&block};
};
struct FileStore {
    TemporaryFolder folder;
    CFilePort port{folder.File("store"), FileMode::kReplace};
    CFileContainer container{port};
};

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

template <class Call>
void ExpectEndOfData(Call call)
{
    try {
        call();
        ADD_FAILURE() << "nothing was thrown";
    } catch (const CError& error) {
        EXPECT_EQ(error.ErrorText(), "$$$/Kesto/Container/Error/EndOfData="
                                     "The end of data was reached while reading from a container.");
        EXPECT_FALSE(error.IsQuiet());
        EXPECT_TRUE(error.IsAlert());
    }
}

template <class Store>
class Container : public testing::Test {
protected:
    void Fill(std::string_view text) { fContainer.Write(text.data(), text.size()); }

    Store fStore;
    CContainer& fContainer = fStore.container;
};
using Stores = testing::Types<MemoryStore, BlockStore, FileStore>;
TYPED_TEST_SUITE(Container, Stores);

TYPED_TEST(Container, ReadsUpToTheLastByteAndNoFurther)
{
    CContainer& container = this->fContainer;
    this->Fill("abcdef");
    container.Seek(2);
    char one = '?';
    ExpectEndOfData([&] { ReadText(container, 5); });
    EXPECT_EQ(container.GetPosition(), 2u);
    EXPECT_EQ(ReadText(container, 4), "cdef");
    ExpectEndOfData([&] { container.Read(&one, 1); });
    ExpectEndOfData([&] { container.Read(&one, SIZE_MAX); });
    container.Read(&one, 0);
    EXPECT_EQ(one, '?');
}

TYPED_TEST(Container, SeeksUpToItsSize)
{
    CContainer& container = this->fContainer;
    this->Fill("abc");
    container.Seek(3);
    ExpectEndOfData([&] { container.Seek(4); });
    EXPECT_EQ(container.GetPosition(), 3u);
}

TYPED_TEST(Container, GrowsByWritingPastItsEnd)
{
    CContainer& container = this->fContainer;
    this->Fill("abc");
    container.Seek(2);
    this->Fill("XYZ");
    EXPECT_EQ(container.GetSize(), 5u);
    EXPECT_EQ(All(container), "abXYZ");
    container.WriteAt("!", 1, 8);
    EXPECT_EQ(container.GetPosition(), 9u);
    EXPECT_EQ(All(container), "abXYZ\0\0\0!"sv);
}

TYPED_TEST(Container, SkipsWithinItsBytesOrMakesMore)
{
    CContainer& container = this->fContainer;
    this->Fill("abcd");
    container.Seek(1);
    container.SkipRead(2);
    EXPECT_EQ(ReadText(container, 1), "d");
    ExpectEndOfData([&] { container.SkipRead(1); });
    ExpectEndOfData([&] { container.SkipRead(UINT64_MAX); });
    container.Seek(1);
    container.SkipWrite(1);
    EXPECT_EQ(container.GetSize(), 4u);
    container.SkipWrite(4);
    this->Fill("e");
    EXPECT_EQ(All(container), "abcd\0\0e"sv);
    ExpectEndOfData([&] { container.SkipWrite(UINT64_MAX); });
}

TYPED_TEST(Container, ReadsAndWritesAtPlaces)
{
    CContainer& container = this->fContainer;
    this->Fill("abcdef");
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

TYPED_TEST(Container, LowersItsPositionWhenItIsCut)
{
    CContainer& container = this->fContainer;
    this->Fill("abcdef");
    container.SetSize(3);
    EXPECT_EQ(container.GetPosition(), 3u);
    this->Fill("X");
    EXPECT_EQ(All(container), "abcX");
    container.Seek(1);
    container.SetSize(6);
    EXPECT_EQ(container.GetPosition(), 1u);
    EXPECT_EQ(All(container), "abcX\0\0"sv);
    container.Flush();
}

TEST(BlockContainer, WithoutABlockIsEmptyAndTakesNothing)
{
    CBlockContainer container(nullptr);
    container.SetLength(10);
    EXPECT_EQ(container.GetSize(), 0u);
    char byte = '?';
    ExpectEndOfData([&] { container.Read(&byte, 1); });
    ExpectEndOfData([&] { container.Write(&byte, 1); });
}

TEST(BlockContainer, BeginsWithTheBlockAndNoticesWhenItIsCut)
{
    CMemoryBlock block;
    block.SetSize(4, true);
    CBlockContainer container(&block);
    EXPECT_EQ(container.GetSize(), 4u);
    block.SetSize(1);
    ExpectEndOfData([&] { ReadText(container, 4); });
    container.WriteAt("z", 1, 3);
    EXPECT_EQ(All(container), "\0\0\0z"sv);
}

TEST(FileContainer, LeavesItsBytesInTheFile)
{
    const TemporaryFolder folder;
    folder.Write("file", "0123456789");
    {
        CFilePort port(folder.File("file"), FileMode::kUpdate);
        port.Seek(7);
        CFileContainer container(port);
        EXPECT_EQ(ReadText(container, 3), "012");
        container.Write("abc", 3);
        container.SetSize(8);
    }
    EXPECT_EQ(folder.Content("file"), "012abc67");
}

} // namespace
} // namespace Kesto
