#include "foundation/base/text_characters.h"
#include "support/testing.h"

namespace {

using namespace Kesto;

// An a with two dots, a letter, a smiling face of four bytes, a byte that is no UTF-8, a letter.
const CText kText = "\xC3\xA4"
                    "b\xF0\x9F\x98\x80\xFF"
                    "c";

TEST(TextCharacters, AreFoundByNumberAndByByte)
{
    const std::size_t starts[] = {0, 2, 3, 7, 8, 9};
    for (std::size_t character = 0; character < std::size(starts); ++character)
        EXPECT_EQ(OffsetOfCharacter(kText.View(), character), starts[character]) << character;
    EXPECT_EQ(OffsetOfCharacter(kText.View(), 100), 9U);
    const std::size_t characters[] = {0, 0, 1, 2, 2, 2, 2, 3, 4, 5, 5};
    for (std::size_t offset = 0; offset < std::size(characters); ++offset)
        EXPECT_EQ(CharacterAtOffset(kText.View(), offset), characters[offset]) << offset;
    EXPECT_EQ(kText.CharCount(), 5U);
}

TEST(TextCharacters, AreCutOutAndPutIn)
{
    EXPECT_EQ(SliceText(kText, 1, 3), "b\xF0\x9F\x98\x80");
    EXPECT_EQ(SliceText(kText, 3, 1), "");
    EXPECT_EQ(SliceText(kText, 4, 100), "c");
    EXPECT_EQ(InsertText("\xC3\xA4", 1, "x"), "\xC3\xA4x");
    EXPECT_EQ(InsertText("\xC3\xA4", 0, "x"), "x\xC3\xA4");
    EXPECT_EQ(ReplaceText(kText, 0, 4, "z"), "zc");
    EXPECT_EQ(ReplaceText(kText, 2, 1, "!"), "\xC3\xA4"
                                             "b!\xF0\x9F\x98\x80\xFF"
                                             "c");
}

} // namespace
