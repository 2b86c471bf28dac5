#include "foundation/base/text.h"
#include "foundation/base/unicode.h"
#include "support/testing.h"

#include <thread>

using namespace Kesto;

TEST(Text, IsEmptyWithoutABuffer)
{
    const std::pair<const char*, CText> rows[] = {
        {"default", {}},
        {"of an empty literal", CText("")},
        {"of null", CText(static_cast<const char*>(nullptr))},
        {"of an empty string", CText(std::string())},
    };
    for (const auto& [what, text] : rows) {
        SCOPED_TRACE(what);
        EXPECT_TRUE(text.IsEmpty());
        EXPECT_STREQ(text.CStr(), "");
        EXPECT_EQ(text.CharCount(), 0U);
        EXPECT_TRUE(text.SharesBufferWith(CText()));
    }
}

TEST(Text, CopiesShareTheBufferUntilOneChanges)
{
    const CText original("frames");
    CText copy = original;
    EXPECT_TRUE(copy.SharesBufferWith(original));
    copy += " shown";
    EXPECT_EQ(original, "frames");
    EXPECT_EQ(copy, "frames shown");
}

TEST(Text, MayBeMadeOfItself)
{
    CText text("abc");
    text += text;
    EXPECT_EQ(text, "abcabc");
    text = text.View().substr(4);
    EXPECT_EQ(text, "bc");
    CText& same = text;
    text = same;
    CText taken = std::move(text);
    text = taken;
    EXPECT_EQ(text, "bc");
}

TEST(Text, ComparesByCharacterValue)
{
    EXPECT_LT(CText("a"), CText("b"));
    EXPECT_LT(CText("z"), "\u00E9");
    EXPECT_GT(CText("ab"), std::string("a"));
    EXPECT_NE(CText("a"), CText("A"));
    EXPECT_EQ(CText(std::string_view("a\0b", 3)), std::string_view("a\0b", 3));
}

TEST(Text, TurnsUtf16IntoUtf8AndBack)
{
    const std::tuple<std::u16string, const char*, std::uint32_t> rows[] = {
        {u"", "", 0},
        {u"plain", "plain", 5},
        {u"a\u00E9\u2318\U0001F600", "a\u00E9\u2318\U0001F600", 4},
        // Lone surrogates are kept.
        {{0xD800, u'b', 0xDC00, 0xDBFF}, "\xED\xA0\x80\x62\xED\xB0\x80\xED\xAF\xBF", 4},
    };
    for (const auto& [units, bytes, count] : rows) {
        SCOPED_TRACE(bytes);
        const CText text = CText::FromUtf16(units);
        EXPECT_STREQ(text.CStr(), bytes);
        EXPECT_EQ(CText(bytes), text);
        EXPECT_EQ(text.CharCount(), count);
        EXPECT_EQ(text.Utf16(), units);
    }
}

TEST(Text, WritesReplacementsForWhatUtf16CannotHold)
{
    EXPECT_EQ(CText("\xFC\x84\x80\x80\x80\x80").Utf16(), u"\uFFFD"); // 0x4000000
    EXPECT_EQ(CText("\x80x").Utf16(), u"\uFFFDx");
    EXPECT_EQ(CText("\xE2\x8C").Utf16(), u"\uFFFD\uFFFD"); // cut short
    EXPECT_EQ(CText("\xC1\x81").Utf16(), u"\uFFFD\uFFFD"); // 'A' in two bytes
}

TEST(Text, MayCrossThreads)
{
    const CText original("shared between threads");
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i)
        threads.emplace_back([original] {
            for (int round = 0; round < 2000; ++round) {
                CText copy = original;
                const CText longer = CText::Join({copy.View(), "!"});
                copy = longer;
                ASSERT_EQ(copy.ByteLength(), original.ByteLength() + 1) << "round " << round;
            }
        });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(original, "shared between threads");
}

TEST(CharacterEncoding, TakesOneToSixBytes)
{
    const std::pair<std::uint32_t, std::string_view> rows[] = {
        {0x7F, "\x7F"},
        {0x80, "\xC2\x80"},
        {0x7FF, "\xDF\xBF"},
        {0x800, "\xE0\xA0\x80"},
        {0xFFFF, "\xEF\xBF\xBF"},
        {0x10000, "\xF0\x90\x80\x80"},
        {0x1FFFFF, "\xF7\xBF\xBF\xBF"},
        {0x200000, "\xF8\x88\x80\x80\x80"},
        {0x3FFFFFF, "\xFB\xBF\xBF\xBF\xBF"},
        {0x4000000, "\xFC\x84\x80\x80\x80\x80"},
        {0x7FFFFFFE, "\xFD\xBF\xBF\xBF\xBF\xBE"},
    };
    for (const auto& [value, bytes] : rows) {
        SCOPED_TRACE(value);
        std::string text;
        AppendCharacter(text, value);
        EXPECT_EQ(text, bytes);
        std::string_view rest = text;
        EXPECT_EQ(TakeCharacter(rest), value);
        EXPECT_TRUE(rest.empty());
    }
    for (const std::uint32_t value : {0x7FFFFFFFU, 0x80000000U, 0xFFFFFFFFU}) { // above the limit
        std::string text;
        AppendCharacter(text, value);
        EXPECT_EQ(text, "\xEF\xBF\xBD") << value;
    }
}
