#include "platform/graphics/fonts.h"

#include "platform/graphics/canvas.h"
#include "platform/graphics/sheet.h"
#include "support/testing.h"

namespace {

using namespace Platform;
using testing::ElementsAre;

std::vector<std::size_t> Stops(const TextLine& line)
{
    std::vector<std::size_t> stops{0};
    while (stops.back() < line.Length())
        stops.push_back(line.NextPosition(stops.back()));
    return stops;
}

struct HostileText {
    const char* words;
    std::string text;
};

std::vector<HostileText> HostileTexts()
{
    std::string marks = "a";
    for (int i = 0; i < 500; ++i)
        marks += "\u0301";
    return {
        {"nothing", ""},
        {"lone surrogates", "a\xED\xA0\x80z\xED\xB0\x80"},
        {"broken bytes", "\xFF\xC3(\x80\xF0\x9F\x98"},
        {"beyond Unicode", "\xF7\xBF\xBF\xBF\xFD\xBF\xBF\xBF\xBF\xBF"},
        {"zeros and controls", std::string("a\0b\x1B\x7F\r\n\tc", 9)},
        {"paragraph ends", "one\u2028two\u2029three"},
        {"right to left", "\u05E9\u05DC\u05D5\u05DD"},
        {"mixed directions", "abc \u05E9\u05DC\u05D5\u05DD 123 \u0645\u0631\u062D\u0628\u0627 xyz"},
        {"direction marks left open", "\u202E\u2067abc\u202D\u05E9"},
        {"a mark alone", "\u0301"},
        {"500 marks on one letter", marks},
        {"joined emoji", "\U0001F468\u200D\U0001F469\u200D\U0001F467!"},
        {"a script without a font", "\U00012000\U00012001\uFFFF"},
        {"blanks only", "   \u3000 "},
        {"a long text", std::string(40000, 'w')},
    };
}

TEST(Font, HasSensibleMetricsAtEverySize)
{
    for (const std::int32_t pixels : {1, 9, 10, 11, 12, 17, 22, 300}) {
        SCOPED_TRACE(pixels);
        const auto& metrics = Font({"Tahoma", pixels}).Metrics();
        EXPECT_EQ(metrics.height, metrics.ascent + metrics.descent);
        EXPECT_NEAR(metrics.height, pixels * 1.2, pixels * 0.2 + 2);
        EXPECT_GE(metrics.ascent, metrics.descent);
        EXPECT_GE(metrics.averageWidth, 1);
        EXPECT_GE(metrics.maxWidth, metrics.averageWidth);
        EXPECT_GE(metrics.underlineTop, 1);
    }
    EXPECT_EQ(Font({"Tahoma", -5}).Spec().pixels, 1) << "sizes are cut to what fonts can have";
    EXPECT_EQ(Font({"Tahoma", 1 << 30}).Spec().pixels, 1000);
}

TEST(Font, FallsBackFromFacesThatAreNotInstalled)
{
    for (const char* face : {"", "No Such Face", "\xFF\xFE", "a,b,c"})
        EXPECT_GT(Font({face, 12}).WidthOf("Hello"), 10) << face;
}

TEST(Font, MeasuresTexts)
{
    const Font font({"Tahoma", 11});
    EXPECT_EQ(font.WidthOf(""), 0);
    EXPECT_GT(font.WidthOf("W"), font.WidthOf("i"));
    EXPECT_EQ(font.WidthOf("1111111"), font.WidthOf("0837465")) << "digits are equally wide";
    EXPECT_GE(font.WidthOf("fi"), font.WidthOf("i") + 1) << "no ligature";
    EXPECT_GT(Font({"Tahoma", 11, 700}).WidthOf("Sidecar"), font.WidthOf("Sidecar"));
    EXPECT_NEAR(Font({"Tahoma", 110}).WidthOf("Sidecar"), 10 * font.WidthOf("Sidecar"), 40);
}

TEST(Font, KnowsALineAgain)
{
    const Font font({"Tahoma", 13});
    const auto first = font.Line("once and again");
    EXPECT_EQ(Font({"Tahoma", 13}).Line("once and again"), first);
    for (int i = 0; i < 2000; ++i)
        font.Line(std::to_string(i));
    EXPECT_NE(font.Line("once and again"), first) << "the least recently used were dropped";
    EXPECT_EQ(first->Width(), font.WidthOf("once and again"));
}

TEST(TextLine, HasACaretStopBeforeEachCharacterAReaderSees)
{
    const std::tuple<const char*, std::string, std::vector<std::size_t>> rows[] = {
        {"letters", "abc", {0, 1, 2, 3}},
        {"two-byte letters", "\u00E4\u00F6", {0, 2, 4}},
        {"a mark belongs to its letter", "xe\u0301y", {0, 1, 4, 5}},
        {"beyond 16 bits", "a\U0001F600b", {0, 1, 5, 6}},
        {"broken bytes count one by one", "a\xFF\xFE", {0, 1, 2, 3}},
        {"right to left", "\u05E9\u05DC", {0, 2, 4}},
    };
    const Font font({"Tahoma", 11});
    for (const auto& [words, text, stops] : rows)
        EXPECT_EQ(Stops(*font.Line(text)), stops) << words;
}

TEST(TextLine, GoesFromPositionsToDistancesAndBack)
{
    const Font font({"Tahoma", 11});
    for (const char* text : {"Frame number", "e\u0301a\u0308", "\u05E9\u05DC\u05D5\u05DD", "WiW"}) {
        SCOPED_TRACE(text);
        const auto line = font.Line(text);
        for (const std::size_t stop : Stops(*line)) {
            EXPECT_EQ(line->PositionAt(static_cast<double>(line->XOf(stop))), stop);
            if (stop > 0) {
                EXPECT_EQ(line->NextPosition(line->PreviousPosition(stop)), stop);
            }
        }
    }
    const auto line = font.Line("ab");
    EXPECT_EQ(line->PositionAt(-100), 0U);
    EXPECT_EQ(line->PositionAt(1e9), 2U);
    EXPECT_EQ(line->XOf(1000), line->XOf(2)) << "past the end is the end";
    EXPECT_EQ(line->NextPosition(2), 2U);
    EXPECT_EQ(line->PreviousPosition(0), 0U);
}

TEST(TextLine, RunsFromTheRightInRightToLeftScripts)
{
    const Font font({"Tahoma", 20});
    const auto line = font.Line("\u05E9\u05DC\u05D5\u05DD");
    EXPECT_TRUE(line->IsRightToLeft());
    EXPECT_GT(line->XOf(0), line->XOf(2));
    EXPECT_GT(line->XOf(6), line->XOf(8));
    EXPECT_EQ(line->XOf(8), 0.0F);

    const auto mixed = font.Line("ab \u05E9\u05DC\u05D5\u05DD cd");
    EXPECT_FALSE(mixed->IsRightToLeft());
    EXPECT_EQ(mixed->ExtentsOf(0, mixed->Length()).size(), 1U);
    EXPECT_EQ(mixed->ExtentsOf(1, 7).size(), 2U) << "b, a blank, and letters further to the right";
    EXPECT_THAT(mixed->ExtentsOf(4, 4), testing::IsEmpty());
}

TEST(TextLine, BreaksRowsWhereATextMayBeBroken)
{
    const Font font({"Tahoma", 11});
    const std::string text = "one two  three";
    const auto line = font.Line(text);
    const auto rows = [&](double width) {
        std::vector<std::string> found;
        for (std::size_t from = 0; from < text.size(); from += found.back().size())
            found.push_back(text.substr(from, line->FitRow(from, width)));
        return found;
    };
    const double two = font.WidthOf("one two");
    EXPECT_THAT(rows(1000), ElementsAre(text));
    EXPECT_THAT(rows(two), ElementsAre("one two  ", "three")) << "blanks take no room at the end";
    EXPECT_THAT(rows(two - 2), ElementsAre("one ", "two  ", "three"));
    EXPECT_EQ(rows(0).size(), 11U) << "one letter at least; blanks follow theirs";
    EXPECT_EQ(line->FitRow(text.size(), 100), 0U);
}

TEST(TextLine, TakesEveryTextThereIs)
{
    Tests::Sheet sheet(300, 40, 0xFFFFFFFF);
    Platform::Canvas canvas(sheet.GetBitmap());
    for (const bool underline : {false, true}) {
        const Font font({"Tahoma", 13, 400, underline, underline});
        for (const HostileText& each : HostileTexts()) {
            SCOPED_TRACE(each.words);
            const auto line = font.Line(each.text);
            EXPECT_LE(line->Length(), each.text.size());
            EXPECT_GE(line->Width(), 0);
            const auto stops = Stops(*line);
            for (std::size_t i = 0; i < stops.size(); i += 1 + stops.size() / 50) {
                EXPECT_GE(line->XOf(stops[i]), 0.0F);
                EXPECT_LE(line->XOf(stops[i]), static_cast<float>(line->Width()) + 0.01F);
                line->ExtentsOf(i, stops[i]);
                EXPECT_LE(line->FitRow(stops[i], 20), each.text.size());
            }
            for (const std::int32_t x : {0, -200, 299, INT32_MAX, INT32_MIN})
                canvas.DrawTextLine(*line, {x, 20}, {0, 0, 0, 255});
        }
    }
}

TEST(TextLine, DrawsItsInkWithinItsBounds)
{
    const Font font({"Tahoma", 24, 400, true});
    const auto line = font.Line("jfQ\u00C5");
    Tests::Sheet sheet(140, 80);
    Platform::Canvas(sheet.GetBitmap()).DrawTextLine(*line, {40, 50}, {0, 0, 0, 255});
    EXPECT_GT(sheet.CoveredArea(), 100);
    EXPECT_LT(sheet.CoveredArea(), 600);
    std::uint32_t outside = 0;
    for (std::int32_t y = 0; y < 80; ++y)
        for (std::int32_t x = 0; x < 140; ++x)
            if (x < 30 || x > 40 + line->Width() + 10 || y < 15 || y > 65)
                outside |= sheet.At(x, y);
    EXPECT_EQ(outside, 0U);
}

TEST(TextLine, UnderlinesAllOfIt)
{
    const Font font({"Tahoma", 11, 400, false, true});
    const auto line = font.Line("a b");
    Tests::Sheet sheet(60, 30);
    Platform::Canvas(sheet.GetBitmap()).DrawTextLine(*line, {3, 20}, {0, 0, 0, 255});
    for (std::int32_t x = 3; x < 3 + line->Width(); ++x)
        EXPECT_EQ(sheet.AlphaAt(x, 20 + font.Metrics().underlineTop), 255U) << x;
}

} // namespace
