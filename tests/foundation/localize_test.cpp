// How literals and the marks in them become texts.
#include "foundation/localization/localize.h"
#include "foundation/localization/marks.h"
#include "foundation/localization/string_table.h"

#include "foundation/test_process.h"
#include "support/testing.h"

using namespace Kesto;

namespace {

CText Localized(CText text)
{
    EXPECT_EQ(&Localize(text), &text);
    return text;
}

CText Expanded(CText text)
{
    ExpandMarks(text);
    return text;
}

CText Replaced(CText text, unsigned index, const CText& value)
{
    ReplaceArgument(text, index, value);
    return text;
}

class Localizing : public testing::Test {
protected:
    Localizing() { CServiceT<CStringTable>::Holder().Destroy(); }

    TestProcess process;
};

} // namespace

TEST_F(Localizing, GivesTheDefaultOfAnUnknownKeyAndLeavesOtherTextsAlone)
{
    const std::size_t before = CServiceT<CStringTable>::Get()->Size();
    EXPECT_EQ(Localized("$$$/A=B"), "B");
    EXPECT_EQ(Localized("$$$/B=C=D"), "C=D");
    EXPECT_EQ(Localized("$$$/C=One^rtwo ^0"), "One\rtwo ^0");
    for (const char* literal : {"$$$", "$$$=", "$$$=default", "$$$/D", "$$$/E="})
        EXPECT_EQ(Localized(literal), "") << literal;
    for (const char* text : {"", "$", "$$", "plain", " $$$/A=B", "$$/A=B"})
        EXPECT_EQ(Localized(text), text) << text;
    EXPECT_EQ(CServiceT<CStringTable>::Get()->Size(), before + 5)
        << "literals without a key are not kept";
    EXPECT_TRUE(Localized("$$$/A=other").SharesBufferWith(Localized("$$$/A")));
}

TEST_F(Localizing, PrefersTheTableAndAsksTheProcessOnceForAKey)
{
    CServiceT<CStringTable>::Get()->Add("/A", "the table's ^r", false);
    process.translations = {{"$$$/A=default", "the host's"}, {"$$$/B=default", "trans^rlation"}};
    EXPECT_EQ(Localized("$$$/A=default"),
              "the table's ^r"); // expanded when it was loaded, not here
    EXPECT_EQ(Localized("$$$/B=default"), "trans^rlation");
    EXPECT_EQ(Localized("$$$/B=other default"), "trans^rlation");
    EXPECT_EQ(Localized("$$$/C=first"), "first");
    process.translations["$$$/C=second"] = "too late";
    EXPECT_EQ(Localized("$$$/C=second"), "first");
    EXPECT_THAT(process.asked, testing::ElementsAre("$$$/B=default", "$$$/C=first"));
}

TEST_F(Localizing, NeverAsksAProcessThatHasItsOwnStrings)
{
    process.ownStringsOnly = true;
    process.translations["$$$/A=default"] = "translation";
    EXPECT_EQ(Localized("$$$/A=default"), "default");
    EXPECT_EQ(Localized("$$$/B=default"), "default");
    EXPECT_TRUE(process.asked.empty());
    EXPECT_EQ(process.timesAskedForOwnStrings, 1) << "the answer is kept";
}

TEST(Marks, CaretsStandForCharacters)
{
    const std::pair<const char*, const char*> rows[] = {
        {"^!", "\u00AC"},  {"^\"", "\""},     {"^U", "\""},     {"^#", "\u2318"}, {"^*", "*"},
        {"^A", "'"},       {"^B", "\u2022"},  {"^C", "\u00A9"}, {"^D", "\u00B0"}, {"^E", "\u00EA"},
        {"^F", "/"},       {"^I", "\u2206"},  {"^L", "\\"},     {"^l", "\\"},     {"^N", "\r\n"},
        {"^O", "Control"}, {"^o", "control"}, {"^P", "Alt"},    {"^p", "alt"},    {"^Q", "?"},
        {"^R", "\u00AE"},  {"^S", "\u2211"},  {"^T", "\u2122"}, {"^V", "|"},      {"^[", "\u201C"},
        {"^]", "\u201D"},  {"^^", "^"},       {"^`", "`"},      {"^b", "\b"},     {"^e", "\u00E9"},
        {"^n", "\n"},      {"^r", "\r"},      {"^t", "\t"},     {"^{", "\u2018"}, {"^}", "\u2019"},
    };
    for (const auto& [mark, text] : rows)
        EXPECT_EQ(Expanded(CText::Join({"<", mark, ">"})), CText::Join({"<", text, ">"})) << mark;
    EXPECT_EQ(Expanded("\\n\\r\\t\\\"\\\\."), "\n\r\t\"\\.");
}

TEST(Marks, StayWhenUnknown)
{
    for (const char* text : {"^0^1^2^9", "^a^Z^ ^~", "\\a\\^r\\\u00E9", "^\\n", "^\u00E9^\u2318",
                             "plain", "end^", "end\\"})
        EXPECT_EQ(Expanded(text), text) << text;
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
    // What is no digit counts as nothing; characters are taken, not bytes.
    EXPECT_EQ(Expanded("^+z041x"), "Ax");
    EXPECT_EQ(Expanded("^+4zz1x"), "Ax");
    EXPECT_EQ(Expanded("^+4\u00E91\u2318x"), "Ax");
    EXPECT_EQ(Expanded("^+"), std::string_view("\0", 1));
}

TEST(Arguments, ReplaceTheFirstPlaceOnly)
{
    EXPECT_EQ(Replaced("^1 of ^0, ^0", 0, "12"), "^1 of 12, ^0");
    EXPECT_EQ(Replaced("^1 of 12, ^0", 1, "3"), "3 of 12, ^0");
    EXPECT_EQ(Replaced("^10 ^1", 10, "ten"), "ten ^1");
    EXPECT_EQ(Replaced("^10", 1, "one"), "one0") << "a number is not looked at to its end";
    EXPECT_EQ(Replaced("^0 (^1)", 0, "$$$/Test/Arguments/Font=Sans^Tserif"),
              "Sans\u2122serif (^1)");
    EXPECT_EQ(Replaced(Replaced("^0 and ^1", 0, "^1"), 1, "x"), "x and ^1");
}

TEST(Arguments, LeaveATextWithoutTheirPlaceAndMayBeTheTextItself)
{
    const CText original("No place");
    EXPECT_TRUE(Replaced(original, 0, "12").SharesBufferWith(original));
    CText text("a^0");
    ReplaceArgument(text, 0, text);
    EXPECT_EQ(text, "aa^0");
}
