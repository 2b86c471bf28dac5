// A program that ships two string files, the second of which gives another text to a key of the first.
#include "foundation/localize.h"
#include "foundation/string_table.h"

#include <gtest/gtest.h>

using namespace Kesto;

TEST(StringResources, TranslateLiterals)
{
    CText first("$$$/Test/First=default");
    EXPECT_EQ(Localize(first), "first");
    CText second("$$$/Test/Second=default");
    EXPECT_EQ(Localize(second), "second");
}

TEST(StringResources, ThatComeLaterWin)
{
    CText both("$$$/Test/Both=default");
    EXPECT_EQ(Localize(both), "second\r");
    EXPECT_EQ(CStringTable().Size(), 3U);
}
