// The string table, and the files that fill it. This program has two string files of its own in
// place of the module's.
#include "foundation/localization/string_file.h"
#include "foundation/localization/string_table.h"
#include "foundation/streams/memory_container.h"
#include "support/testing.h"

using namespace Kesto;

namespace {

constexpr std::size_t kOwnTexts = 3; // of this program

// The bucket of a key, byte by byte.
std::uint32_t BucketOf(std::string_view key)
{
    std::uint32_t h = 0;
    for (const char c : key)
        h = ((h << 8) | static_cast<unsigned char>(c)) % 1021;
    return h;
}

CText TextIn(const CStringTable& table, std::string_view key)
{
    const CText* const found = table.Find(key);
    return found != nullptr ? *found : CText("(none)");
}

std::vector<std::byte> Units(std::u16string_view units, bool bigEndian)
{
    CMemoryContainer file;
    file.SetByteOrder(bigEndian ? std::endian::big : std::endian::little);
    for (const char16_t unit : units)
        file.WriteUInt16(unit);
    return {file.Bytes().begin(), file.Bytes().end()};
}

// The text that a file gives to a key, which the program's own string files don't have.
CText TextIn(std::u16string_view file, std::string_view key)
{
    CStringTable table;
    ParseStringFile(table, Units(file, true), true);
    return TextIn(table, key);
}

} // namespace

TEST(ChainedTable, HashesKeysOfAllLengthsAsOneNumber)
{
    std::string key;
    for (int i = 0; i < 60; ++i) {
        EXPECT_EQ(PlaceOf(key).bucket, BucketOf(key)) << i;
        key += static_cast<char>(i % 3 == 0 ? 255 - i : 'a' + i);
    }
    EXPECT_EQ(PlaceOf(std::string(100, '\xFF')).bucket, BucketOf(std::string(100, '\xFF')));
}

TEST(ChainedTable, PutsNewEntriesAtTheHeadOfTheirChain)
{
    CChainedTable<int> table;
    std::map<std::uint32_t, std::vector<std::string>> chains;
    for (int i = 0; i < 5000; ++i) {
        const std::string key = "/Key/" + std::to_string(i);
        EXPECT_TRUE(table.Add(key, i, true)) << key;
        auto& chain = chains[BucketOf(key)];
        chain.insert(chain.begin(), key);
    }
    std::vector<std::string> expected;
    for (const auto& [bucket, chain] : chains)
        expected.insert(expected.end(), chain.begin(), chain.end());
    std::vector<std::string> visited;
    table.ForEach([&](std::string_view key, int) { visited.emplace_back(key); });
    EXPECT_EQ(visited, expected);
    EXPECT_EQ(table.Size(), 5000U);
    for (int i = 0; i < 5000; ++i)
        EXPECT_EQ(*table.Find("/Key/" + std::to_string(i)), i) << i;
}

TEST(ChainedTable, HoldsKeysOfAnySize)
{
    CChainedTable<std::size_t> table;
    const std::string longKey(3'000'000, 'k'), keys[] = {"", longKey, "/A", "/AB"};
    for (const std::string& key : keys)
        EXPECT_TRUE(table.Add(key, key.size(), false)) << key.size();
    for (const std::string& key : keys)
        EXPECT_EQ(*table.Find(key), key.size()) << key.size();
    for (const std::string& key : {std::string("/"), std::string("/B"), longKey.substr(1)})
        EXPECT_EQ(table.Find(key), nullptr) << key.size();
}

TEST(StringTable, LoadsTheStringFilesOfTheProgramInTheirOrder)
{
    const CStringTable table;
    EXPECT_EQ(TextIn(table, "/Test/First"), "first");
    EXPECT_EQ(TextIn(table, "/Test/Second"), "second");
    EXPECT_EQ(TextIn(table, "/Test/Both"), "second\r") << "the later one wins";
    EXPECT_EQ(table.Size(), kOwnTexts);
}

TEST(StringFile, IsReadInEitherByteOrder)
{
    for (const bool bigEndian : {true, false}) {
        SCOPED_TRACE(bigEndian ? "big-endian" : "little-endian");
        const auto bytes = Units(u"\uFEFF\"$$$/A/B=caf\u00E9 \U0001F600\"\r\n", bigEndian);
        CMemoryContainer file; // read from its start, though it stands at its end
        file.Write(bytes.data(), bytes.size());
        CStringTable table;
        ParseStringFile(table, file, true);
        EXPECT_EQ(TextIn(table, "/A/B"), "caf\u00E9 \U0001F600");
        EXPECT_EQ(table.Size(), kOwnTexts + 1);
        ParseStringFile(table, Units(u"$$$/A=a", bigEndian), true);
        EXPECT_EQ(TextIn(table, "/A"), bigEndian ? "a" : "(none)")
            << "it is big-endian without a mark";
    }
}

TEST(StringFile, GivesTextsToKeys)
{
    const char16_t quotes[] = u"$$$/A=plain\r\"$$$/B=quoted\"\n\n\r\n$$$/C=last";
    EXPECT_EQ(TextIn(quotes, "/A"), "plain");
    EXPECT_EQ(TextIn(quotes, "/B"), "quoted");
    EXPECT_EQ(TextIn(quotes, "/C"), "last");
    // One quote at the end of a value is dropped.
    EXPECT_EQ(TextIn(u"/A=two\"\"", "/A"), "two\"");
    EXPECT_EQ(TextIn(u"/A=escaped\\\"", "/A"), "escaped");
    EXPECT_EQ(TextIn(u"/A=\"in\" front\"", "/A"), "\"in\" front");
    // The unit after a backslash is taken as it is; marks that are left are expanded.
    EXPECT_EQ(TextIn(u"/A=a\\\"b\\=c=d", "/A"), "a\"b=c=d");
    EXPECT_EQ(TextIn(u"/A=a\\nb", "/A"), "anb");
    EXPECT_EQ(TextIn(u"/A=a\\\\nb", "/A"), "a\nb");
    EXPECT_EQ(TextIn(u"/A=end\\\n/B=b", "/A"), "end");
    EXPECT_EQ(TextIn(u"/A=end\\\n/B=\\tb", "/B"), "tb");
    EXPECT_EQ(TextIn(u"/A=^Cone^rtwo ^0", "/A"), "\u00A9one\rtwo ^0");
    // Quotes and dollars are skipped only before the key, which keeps the low byte of its units.
    EXPECT_EQ(TextIn(u"\"$$\"$/A\"$b=text", "/A\"$b"), "text");
    EXPECT_EQ(TextIn(u"/\u2141\u00E9=text", "/A\xE9"), "text");
    EXPECT_EQ(TextIn(u"/Alone", "/Alone"), "");
    EXPECT_EQ(TextIn(u"/Alone=", "/Alone"), "");
}

TEST(StringFile, PassesLinesWithShortKeys)
{
    CStringTable table;
    ParseStringFile(table, Units(u"# \n#\n\n=value\n\"$$$=value\"\nx=value\n", true), true);
    EXPECT_EQ(TextIn(table, "# "), "");
    EXPECT_EQ(table.Size(), kOwnTexts + 1);
}

TEST(StringFile, IsIgnoredBelowTwoUnitsAndLosesALastOddByte)
{
    const auto file = Units(u"/A=ab", true);
    for (std::size_t size = 0; size <= file.size(); ++size) {
        CStringTable table;
        ParseStringFile(table, std::span(file).first(size), true);
        EXPECT_EQ(table.Size(), size < 4 ? kOwnTexts : kOwnTexts + 1) << size;
        const char* const text = size < 4 ? "(none)" : size < 8 ? "" : size < 10 ? "a" : "ab";
        EXPECT_EQ(TextIn(table, "/A"), text) << size;
    }
}

TEST(StringFile, ReplacesTheTextsOfEarlierFilesWhenTold)
{
    CStringTable table;
    for (const auto& [file, replace, text] : {std::tuple(u"/A=first", true, "first"),
                                              {u"/A=second", false, "first"},
                                              {u"/A=third", true, "third"}}) {
        ParseStringFile(table, Units(file, true), replace);
        EXPECT_EQ(TextIn(table, "/A"), text) << (replace ? "told" : "not told");
    }
    EXPECT_EQ(table.Size(), kOwnTexts + 1);
}
