// Text on ports: what it measures, where it stands, how it is broken and cut.
#include "drawing/ports/desktop_port.h"
#include "drawing/ports/test_image.h"
#include "drawing/ports/text_rows.h"
#include "support/testing.h"

namespace Kesto {
namespace {

TEST(Text, StandsOnOneBaseLineInAllSizes)
{
    for (const double scale : {1.0, 1.5, 2.0})
        for (const double size : {9.0, 10.0, 11.0, 12.0}) {
            SCOPED_TRACE(::testing::Message() << size << " units at scale " << scale);
            TestImage image(200, 60, scale);
            image.SetFont({"Tahoma", size});
            image.DrawTextBox("HHH", {0, 0, 90, 24}, kText_Left);
            EXPECT_EQ(image.Inked().bottom, ToDevice(16.0, scale)); // of a cell of 24
            EXPECT_EQ(image.MeasureTextBox("H\nH", 0, 0).y, 32.0);
        }
}

TEST(Text, GoesWhereItsFlagsSay)
{
    const struct {
        const char* what;
        std::uint32_t flags;
        bool left, right, top, bottom; // touches that side
    } rows[] = {
        {"centred", kText_Centred, false, false, false, false},
        {"left, top", kText_Left | kText_Top, true, false, true, false},
        {"right, bottom", kText_Right | kText_Bottom, false, true, false, true},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        TestImage image(120, 60);
        image.DrawTextBox("HHHH", {10, 10, 110, 50}, row.flags);
        const PixelRect inked = image.Inked();
        EXPECT_EQ(inked.left - 10 < 4, row.left);
        EXPECT_EQ(110 - inked.right < 4, row.right);
        EXPECT_EQ(inked.top - 10 < 6, row.top);
        EXPECT_EQ(50 - inked.bottom < 6, row.bottom);
        EXPECT_LE(inked.right - inked.left, image.MeasureText("HHHH"));
    }
}

TEST(Text, IsBrokenBetweenWordsAndAtLineEnds)
{
    CDesktopPort port;
    const double word = port.MeasureText("word");
    EXPECT_EQ(port.MeasureTextBox("word word word", word + 1, kText_Wrap).y, 48.0);
    EXPECT_EQ(port.MeasureTextBox("word word word", word + 1, 0).y, 16.0);
    EXPECT_EQ(port.MeasureTextBox("a\r\nb\rc\nd\n", 500, kText_Wrap).y, 64.0);
    EXPECT_EQ(port.MeasureTextBox("", 10, kText_Wrap), (Point{0, 16}));
    EXPECT_GE(port.MeasureTextBox("unbreakable", 1, kText_Wrap).y, 16.0); // a letter at least

    const Platform::Font font;
    const std::string text = "one two  three";
    std::string together;
    for (const CTextRow& row : BreakRows(font, text, font.WidthOf("one two"), true))
        together += text.substr(row.first, row.line->Length()) + "|";
    EXPECT_EQ(together, "one two|three|");
}

TEST(Text, ThatIsTooWideEndsInThreePoints)
{
    const Platform::Font font;
    const std::string text = "A rather long name of a picture";
    for (std::int32_t width = 0; width <= font.WidthOf(text) + 1; ++width) {
        SCOPED_TRACE(width);
        const auto line = Shortened(font, text, width);
        EXPECT_EQ(line == font.Line(text), width >= font.WidthOf(text));
        EXPECT_TRUE(width < font.WidthOf("\xE2\x80\xA6") || line->Width() <= width);
    }
    // Within its frame even so.
    TestImage image(60, 20);
    image.DrawTextBox(text, {10, 0, 50, 20}, kText_Left | kText_Ellipsis);
    EXPECT_GE(image.Inked().left, 10);
    EXPECT_LE(image.Inked().right, 50);
}

TEST(Text, ShowsMnemonicsAsAsked)
{
    const std::tuple<const char*, const char*, std::size_t> rows[] = {
        {"&Open", "Open", 0},
        {"Save &As", "Save As", 5},
        {"Black && White", "Black & White", CMnemonicText::kNone},
        {"&One &Two", "One Two", 0},
        {"end&", "end", CMnemonicText::kNone},
        {"&\xC3\x84rger", "\xC3\x84rger", 0},
    };
    for (const auto& [marked, plain, mnemonic] : rows) {
        SCOPED_TRACE(marked);
        const CMnemonicText label(marked);
        EXPECT_EQ(label.text, plain);
        EXPECT_EQ(label.mnemonic, mnemonic);
    }
    const auto inkedOf = [](std::uint32_t flags) {
        TestImage image(60, 24);
        image.DrawTextBox("&HH", {0, 0, 60, 24}, flags);
        return image.Inked();
    };
    EXPECT_GT(inkedOf(kText_Mnemonic).bottom, inkedOf(kText_HideMnemonic).bottom); // the line
    // The line is as wide as the letter, whose ink may leave a pixel free beside it.
    EXPECT_NEAR(inkedOf(kText_Mnemonic).left, inkedOf(kText_HideMnemonic).left, 1);
    EXPECT_LT(inkedOf(0).left, inkedOf(kText_HideMnemonic).left); // the mark is text
}

TEST(Text, GrowsWithTheScaleAndTheFontScale)
{
    CDesktopPort port(1.0);
    const double one = port.MeasureText("Measure of things");
    port.SetScaleFactor(2.0);
    EXPECT_NEAR(port.MeasureText("Measure of things"), one, one / 10);
    port.SetFontScale(2.0);
    EXPECT_NEAR(port.MeasureText("Measure of things"), 2 * one, one / 5);
    port.SetFontScale(0.0); // counts as 1
    EXPECT_NEAR(port.MeasureText("Measure of things"), one, one / 10);
}

} // namespace
} // namespace Kesto
