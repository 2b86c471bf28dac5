#include "foundation/string_file.h"

#include "foundation/memory_container.h"

#include <gtest/gtest.h>

using namespace Kesto;

namespace {

std::vector<std::byte> Units(std::u16string_view units, bool bigEndian)
{
    std::vector<std::byte> bytes;
    for (const char16_t unit : units) {
        const std::byte high{static_cast<unsigned char>(unit >> 8)};
        const std::byte low{static_cast<unsigned char>(unit & 0xFF)};
        bytes.push_back(bigEndian ? high : low);
        bytes.push_back(bigEndian ? low : high);
    }
    return bytes;
}

// The text that a file gives to a key; "(none)" if it gives none.
CText TextIn(std::u16string_view file, std::string_view key)
{
    CStringTable table;
    ParseStringFile(table, Units(file, true), true);
    const CText* const found = table.Find(key);
    return found != nullptr ? *found : CText("(none)");
}

} // namespace

TEST(StringFile, IsReadInEitherByteOrder)
{
    const std::u16string marked = u"\uFEFF\"$$$/A/B=caf\u00E9 \U0001F600\"\r\n";
    for (const bool bigEndian : {true, false}) {
        CStringTable table;
        ParseStringFile(table, Units(marked, bigEndian), true);
        ASSERT_NE(table.Find("/A/B"), nullptr);
        EXPECT_EQ(*table.Find("/A/B"), "caf\u00E9 \U0001F600");
        EXPECT_EQ(table.Size(), 1U);
    }
}

TEST(StringFile, IsBigEndianWithoutAMark)
{
    EXPECT_EQ(TextIn(u"$$$/A=a", "/A"), "a");
    CStringTable table;
    ParseStringFile(table, Units(u"$$$/A=a", false), true);
    EXPECT_EQ(table.Find("/A"), nullptr);
}

TEST(StringFile, TakesLinesWithAndWithoutQuotes)
{
    const std::u16string file = u"$$$/A=plain\r\"$$$/B=quoted\"\n\n\r\n$$$/C=last";
    EXPECT_EQ(TextIn(file, "/A"), "plain");
    EXPECT_EQ(TextIn(file, "/B"), "quoted");
    EXPECT_EQ(TextIn(file, "/C"), "last");
}

TEST(StringFile, DropsOneQuoteAtTheEndOfAValue)
{
    EXPECT_EQ(TextIn(u"/A=two\"\"", "/A"), "two\"");
    EXPECT_EQ(TextIn(u"/A=escaped\\\"", "/A"), "escaped");
    EXPECT_EQ(TextIn(u"/A=\"in\" front\"", "/A"), "\"in\" front");
}

TEST(StringFile, TakesTheUnitBehindABackslashAsItIs)
{
    EXPECT_EQ(TextIn(u"/A=a\\\"b\\=c=d", "/A"), "a\"b=c=d");
    EXPECT_EQ(TextIn(u"/A=a\\nb", "/A"), "anb");
    EXPECT_EQ(TextIn(u"/A=a\\\\nb", "/A"), "a\nb"); // the mark that is left is expanded
    EXPECT_EQ(TextIn(u"/A=end\\\n/B=b", "/A"), "end");
    EXPECT_EQ(TextIn(u"/A=end\\\n/B=b", "/B"), "b");
}

TEST(StringFile, ExpandsTheMarksOfValues)
{
    EXPECT_EQ(TextIn(u"/A=^Cone^rtwo ^0", "/A"), "\u00A9one\rtwo ^0");
}

TEST(StringFile, SkipsQuotesAndDollarsOnlyBeforeTheKey)
{
    EXPECT_EQ(TextIn(u"\"$$\"$/A\"$b=text", "/A\"$b"), "text");
}

TEST(StringFile, KeepsTheLowByteOfTheUnitsOfAKey)
{
    EXPECT_EQ(TextIn(u"/\u2141\u00E9=text", "/A\xE9"), "text");
}

TEST(StringFile, TakesAKeyWithoutAValue)
{
    EXPECT_EQ(TextIn(u"/Alone", "/Alone"), "");
    EXPECT_EQ(TextIn(u"/Alone=", "/Alone"), "");
}

TEST(StringFile, PassesLinesWithShortKeys)
{
    CStringTable table;
    ParseStringFile(table, Units(u"# \n#\n\n=value\n\"$$$=value\"\nx=value\n", true), true);
    EXPECT_EQ(table.Size(), 1U); // "# " has two
    EXPECT_NE(table.Find("# "), nullptr);
}

TEST(StringFile, IsIgnoredBelowTwoUnits)
{
    const auto file = Units(u"ab", true);
    CStringTable table;
    for (std::size_t size = 0; size < file.size(); ++size)
        ParseStringFile(table, std::span(file).first(size), true);
    EXPECT_EQ(table.Size(), 0U);
    ParseStringFile(table, file, true);
    EXPECT_EQ(table.Size(), 1U);
}

TEST(StringFile, LosesALastOddByte)
{
    auto file = Units(u"/A=ab", true);
    file.pop_back();
    CStringTable table;
    ParseStringFile(table, file, true);
    EXPECT_EQ(*table.Find("/A"), "a");
}

TEST(StringFile, ReplacesTheTextsOfEarlierFilesWhenTold)
{
    CStringTable table;
    ParseStringFile(table, Units(u"/A=first", true), true);
    ParseStringFile(table, Units(u"/A=second", true), false);
    EXPECT_EQ(*table.Find("/A"), "first");
    ParseStringFile(table, Units(u"/A=third", true), true);
    EXPECT_EQ(*table.Find("/A"), "third");
}

TEST(StringFile, IsReadFromAContainerFromItsStart)
{
    const auto bytes = Units(u"\uFEFF/A=a", false);
    CMemoryContainer file;
    file.Write(bytes.data(), bytes.size());
    CStringTable table;
    ParseStringFile(table, file, true);
    ASSERT_NE(table.Find("/A"), nullptr);
    EXPECT_EQ(*table.Find("/A"), "a");
}
