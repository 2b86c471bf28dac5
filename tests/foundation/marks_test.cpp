#include "foundation/localize.h"
#include "foundation/marks.h"

#include <gtest/gtest.h>

using namespace Kesto;

namespace {

CText Expanded(CText text)
{
    ExpandMarks(text);
    return text;
}

} // namespace

TEST(Marks, CaretsStandForCharacters)
{
    const struct {
        const char* mark;
        const char* text;
    } rows[] = {
        {"^!", "\u00AC"}, {"^\"", "\""},    {"^U", "\""},     {"^#", "\u2318"},  {"^*", "*"},       {"^A", "'"},
        {"^B", "\u2022"}, {"^C", "\u00A9"}, {"^D", "\u00B0"}, {"^E", "\u00EA"},  {"^F", "/"},       {"^I", "\u2206"},
        {"^L", "\\"},     {"^l", "\\"},     {"^N", "\r\n"},   {"^O", "Control"}, {"^o", "control"}, {"^P", "Alt"},
        {"^p", "alt"},    {"^Q", "?"},      {"^R", "\u00AE"}, {"^S", "\u2211"},  {"^T", "\u2122"},  {"^V", "|"},
        {"^[", "\u201C"}, {"^]", "\u201D"}, {"^^", "^"},      {"^`", "`"},       {"^b", "\b"},      {"^e", "\u00E9"},
        {"^n", "\n"},     {"^r", "\r"},     {"^t", "\t"},     {"^{", "\u2018"},  {"^}", "\u2019"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Expanded(CText::Join({"<", row.mark, ">"})), CText::Join({"<", row.text, ">"})) << row.mark;
}

TEST(Marks, BackslashesStandForCharacters)
{
    EXPECT_EQ(Expanded("\\n\\r\\t\\\"\\\\."), "\n\r\t\"\\.");
}

TEST(Marks, StayWhenUnknown)
{
    for (const char* text :
         {"^0^1^2^9", "^a^Z^ ^~", "\\a\\^r\\\u00E9", "^\\n", "^\u00E9^\u2318", "plain", "end^", "end\\"})
        EXPECT_EQ(Expanded(text), text);
    EXPECT_EQ(Expanded("^r^"), "\r^");
    EXPECT_EQ(Expanded("^^r"), "^r"); // what comes of a mark begins no other
}

TEST(Marks, PlusTakesUpToFourHexadecimalDigits)
{
    EXPECT_EQ(Expanded("^+2318x"), "\u2318x");
    EXPECT_EQ(Expanded("^+00e9^+00E9"), "\u00E9\u00E9");
    EXPECT_EQ(Expanded("^+00411"), "A1");
    EXPECT_EQ(Expanded("^+41"), "A");
    EXPECT_EQ(Expanded("^+D800"), "\xED\xA0\x80");
}

TEST(Marks, PlusCountsNoDigitAsNothing)
{
    EXPECT_EQ(Expanded("^+z041x"), "Ax");
    EXPECT_EQ(Expanded("^+4zz1x"), "Ax");
    EXPECT_EQ(Expanded("^+4\u00E91\u2318x"), "Ax"); // characters are taken, not bytes
    EXPECT_EQ(Expanded("^+"), std::string_view("\0", 1));
}

TEST(Arguments, ReplaceTheFirstPlaceOnly)
{
    CText text("^1 of ^0, ^0");
    ReplaceArgument(text, 0, "12");
    EXPECT_EQ(text, "^1 of 12, ^0");
    ReplaceArgument(text, 1, "3");
    EXPECT_EQ(text, "3 of 12, ^0");
}

TEST(Arguments, LeaveATextWithoutTheirPlace)
{
    const CText original("No place");
    CText text = original;
    ReplaceArgument(text, 0, "12");
    EXPECT_TRUE(text.SharesBufferWith(original));
}

TEST(Arguments, AreLocalised)
{
    CText text("^0 (^1)");
    ReplaceArgument(text, 0, "$$$/Test/Arguments/Font=Sans^Tserif");
    EXPECT_EQ(text, "Sans\u2122serif (^1)");
}

TEST(Arguments, MayBringPlacesOfTheirOwn)
{
    CText text("^0 and ^1");
    ReplaceArgument(text, 0, "^1");
    ReplaceArgument(text, 1, "x");
    EXPECT_EQ(text, "x and ^1");
}

TEST(Arguments, HaveNumbersOfSeveralDigits)
{
    CText text("^10 ^1");
    ReplaceArgument(text, 10, "ten");
    EXPECT_EQ(text, "ten ^1");
    text = "^10";
    ReplaceArgument(text, 1, "one");
    EXPECT_EQ(text, "one0");
}

TEST(Arguments, MayBeTheTextItself)
{
    CText text("a^0");
    ReplaceArgument(text, 0, text);
    EXPECT_EQ(text, "aa^0");
}
