#include "foundation/localize.h"
#include "foundation/string_table.h"

#include "foundation/test_process.h"

#include <gmock/gmock.h>

using namespace Kesto;

namespace {

CText Localized(CText text)
{
    return Localize(text);
}

class Localizing : public testing::Test {
protected:
    Localizing() { CServiceT<CStringTable>::Holder().Destroy(); }
};

} // namespace

TEST_F(Localizing, GivesTheDefaultOfAnUnknownKey)
{
    EXPECT_EQ(Localized("$$$/A=B"), "B");
    EXPECT_EQ(Localized("$$$/B=C=D"), "C=D");
    EXPECT_EQ(Localized("$$$/C=One^rtwo ^0"), "One\rtwo ^0");
}

TEST_F(Localizing, LeavesOtherTextsAlone)
{
    for (const char* text : {"", "$", "$$", "plain", " $$$/A=B", "$$/A=B"})
        EXPECT_EQ(Localized(text), text);
}

TEST_F(Localizing, EmptiesLiteralsWithoutKeyOrDefault)
{
    for (const char* text : {"$$$", "$$$=", "$$$=default", "$$$/A/B", "$$$/A/C="})
        EXPECT_EQ(Localized(text), "") << text;
    EXPECT_EQ(CServiceT<CStringTable>::Get()->Size(), 2U); // keys alone are kept
}

TEST_F(Localizing, DoesNoHarmTwice)
{
    CText text("$$$/A=B");
    EXPECT_EQ(&Localize(text), &text);
    EXPECT_EQ(Localize(text), "B");
}

TEST_F(Localizing, PrefersTheTable)
{
    TestProcess process;
    process.translations["$$$/A=default"] = "the host's";
    CServiceT<CStringTable>::Get()->Add("/A", "the table's ^r", false);
    EXPECT_EQ(Localized("$$$/A=default"), "the table's ^r"); // expanded when it was loaded, not here
    EXPECT_TRUE(process.asked.empty());
}

TEST_F(Localizing, AsksTheProcessOnceForAKey)
{
    TestProcess process;
    process.translations["$$$/A=default"] = "trans^rlation";
    EXPECT_EQ(Localized("$$$/A=default"), "trans^rlation");
    EXPECT_EQ(Localized("$$$/A=other default"), "trans^rlation");
    EXPECT_THAT(process.asked, testing::ElementsAre("$$$/A=default"));
}

TEST_F(Localizing, KeepsTheDefaultThatTheProcessDidNotKnow)
{
    TestProcess process;
    EXPECT_EQ(Localized("$$$/A=first"), "first");
    process.translations["$$$/A=second"] = "too late";
    EXPECT_EQ(Localized("$$$/A=second"), "first");
    EXPECT_EQ(process.asked.size(), 1U);
}

TEST_F(Localizing, NeverAsksAProcessWithItsOwnStrings)
{
    TestProcess process;
    process.ownStringsOnly = true;
    process.translations["$$$/A=default"] = "translation";
    EXPECT_EQ(Localized("$$$/A=default"), "default");
    EXPECT_TRUE(process.asked.empty());
}

TEST_F(Localizing, SharesTheTextOfAKnownKey)
{
    EXPECT_TRUE(Localized("$$$/A=default").SharesBufferWith(Localized("$$$/A")));
}
