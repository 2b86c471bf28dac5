#include "foundation/string_table.h"
#include "platform/resources.h"

#include <gmock/gmock.h>

#include <map>

using namespace Kesto;

namespace {

// The bucket of a key, byte by byte.
std::uint32_t BucketOf(std::string_view key)
{
    std::uint32_t h = 0;
    for (const char c : key)
        h = ((h << 8) | static_cast<unsigned char>(c)) % 1021;
    return h;
}

CText Number(std::size_t i)
{
    return CText(std::to_string(i));
}

} // namespace

TEST(StringTable, FindsWhatWasAdded)
{
    CStringTable table;
    EXPECT_TRUE(table.Add("/A", "a", false));
    EXPECT_TRUE(table.Add("/AB", "ab", false));
    ASSERT_NE(table.Find("/A"), nullptr);
    EXPECT_EQ(*table.Find("/A"), "a");
    EXPECT_EQ(*table.Find("/AB"), "ab");
    EXPECT_EQ(table.Find("/"), nullptr);
    EXPECT_EQ(table.Find("/B"), nullptr);
}

TEST(StringTable, ReplacesOnlyWhenTold)
{
    CStringTable table;
    table.Add("/A", "first", false);
    EXPECT_FALSE(table.Add("/A", "second", false));
    EXPECT_EQ(*table.Find("/A"), "first");
    EXPECT_TRUE(table.Add("/A", "third", true));
    EXPECT_EQ(*table.Find("/A"), "third");
    EXPECT_EQ(table.Size(), 1U);
}

TEST(StringTable, HashesKeysOfAllLengthsAsOneNumber)
{
    std::string key;
    for (int i = 0; i < 60; ++i) {
        EXPECT_EQ(PlaceOf(key).bucket, BucketOf(key)) << i;
        EXPECT_LT(PlaceOf(key).bucket, kTableBuckets);
        key += static_cast<char>(i % 3 == 0 ? 255 - i : 'a' + i);
    }
    EXPECT_EQ(PlaceOf(std::string(100, '\xFF')).bucket, BucketOf(std::string(100, '\xFF')));
}

TEST(StringTable, PutsNewEntriesAtTheHeadOfTheirChain)
{
    CStringTable table;
    std::map<std::uint32_t, std::vector<std::string>> chains;
    for (std::size_t i = 0; i < 5000; ++i) {
        const std::string key = "/Key/" + std::to_string(i);
        EXPECT_TRUE(table.Add(key, Number(i), true));
        auto& chain = chains[BucketOf(key)];
        chain.insert(chain.begin(), key);
    }
    for (std::uint32_t bucket = 0; bucket < 1021; ++bucket)
        EXPECT_THAT(table.ChainKeys(bucket), testing::ElementsAreArray(chains[bucket])) << bucket;
    EXPECT_EQ(table.Size(), 5000U);
    for (std::size_t i = 0; i < 5000; ++i)
        EXPECT_EQ(*table.Find("/Key/" + std::to_string(i)), Number(i));
}

TEST(StringTable, HoldsKeysOfAnySize)
{
    CStringTable table;
    const std::string longKey(3'000'000, 'k');
    EXPECT_TRUE(table.Add("", "empty", false));
    EXPECT_TRUE(table.Add(longKey, "long", false));
    EXPECT_TRUE(table.Add("/A", "a", false));
    EXPECT_EQ(*table.Find(""), "empty");
    EXPECT_EQ(*table.Find(longKey), "long");
    EXPECT_EQ(*table.Find("/A"), "a");
    EXPECT_EQ(table.Find(longKey.substr(1)), nullptr);
}

TEST(StringTable, LoadsTheModulesStringFiles)
{
    EXPECT_THAT(Platform::ListModuleResources("TStr"), testing::ElementsAre("PROJECTSTRINGS.TXT"));
    const auto file = Platform::FindModuleResource("TStr", "PROJECTSTRINGS.TXT");
    ASSERT_TRUE(file.has_value());
    EXPECT_THAT(*file, testing::ElementsAre(std::byte{0xFF}, std::byte{0xFE}));
    EXPECT_EQ(CStringTable().Size(), 0U);
}
