// The engine for plain texts against Pango's, which it stands for: what they measure, where their
// carets and breaks are, and each pixel.
#include "platform/graphics/linux/latin_engine.h"

#include "platform/graphics/linux/pango_engine.h"
#include "support/testing.h"

#include <random>

namespace Platform {
namespace {

constexpr PixelRect kArea{-20, -150, 3000, 60};

std::vector<std::uint8_t> Drawn(const TextLine::Shape& shape)
{
    std::vector<std::uint8_t> coverage((kArea.right - kArea.left) * (kArea.bottom - kArea.top));
    if (shape.ink != nullptr)
        shape.ink->Render(kArea, coverage);
    return coverage;
}

// Each number of a line's clusters, so that the first that differs is shown.
std::vector<float> Numbers(TextLine::Shape& shape)
{
    if (shape.mark)
        shape.mark(shape.clusters);
    std::vector<float> numbers{shape.advance, float(shape.width)};
    for (const TextCluster& each : shape.clusters)
        numbers.insert(numbers.end(),
                       {float(each.start), each.leading, each.trailing, float(each.breakBefore),
                        float(each.wordBefore), float(each.blank)});
    return numbers;
}

std::vector<std::string> Texts()
{
    std::vector<std::string> texts{
        "",           " ",           "  two  blanks ",   "Frame number:", "AVAToWaLTYPefffifl",
        "12 of 3.50", "a-b/c.d (e)", "\"1,234.5\" 100%", "-17",           "..."};
    std::mt19937 dice(5);
    for (int i = 0; i < 60; ++i) {
        std::string& text = texts.emplace_back();
        for (unsigned length = dice() % 30 + 1; length > 0; --length)
            text += static_cast<char>(' ' + dice() % 95);
    }
    return texts;
}

TEST(LatinEngine, IsPangosEqual)
{
    const FontSpec specs[] = {
        {"Tahoma", 11},      {"Tahoma", 11, 700},      {"Tahoma", 12},      {"Tahoma", 22, 700},
        {"DejaVu Sans", 13}, {"DejaVu Serif", 9, 400}, {"DejaVu Sans", 31}, {"", 10, 600},
        {"Tahoma", 100},     {"DejaVu Sans Mono", 14}, {"Tahoma", 17, 900}};
    for (const FontSpec& spec : specs) {
        SCOPED_TRACE(spec.face + " " + std::to_string(spec.pixels) + " " +
                     std::to_string(spec.weight));
        const auto latin = MakeLatinEngine(spec);
        ASSERT_NE(latin, nullptr);
        const auto pango = MakePangoEngine(spec);
        const auto numbers = [](const FontMetrics& it) {
            return std::vector{
                it.ascent,       it.descent,           it.height, it.averageWidth, it.maxWidth,
                it.underlineTop, it.underlineThickness};
        };
        EXPECT_EQ(numbers(latin->Metrics()), numbers(pango->Metrics()));
        for (const std::string& text : Texts()) {
            SCOPED_TRACE(text);
            const PlainText plain = MakePlainText(text, 100);
            auto ours = latin->LayOut(plain);
            ASSERT_TRUE(ours.has_value());
            auto theirs = pango->LayOut(plain);
            EXPECT_EQ(ours->length, theirs.length);
            EXPECT_EQ(Numbers(*ours), Numbers(theirs));
            EXPECT_TRUE(Drawn(*ours) == Drawn(theirs)) << "the same pixels";
        }
    }
}

TEST(LatinEngine, LeavesToPangoWhatIsNotPlain)
{
    const auto latin = MakeLatinEngine({"Tahoma", 11});
    ASSERT_NE(latin, nullptr);
    for (const char* text : {"na\u00EFve", "\u05E9\u05DC\u05D5\u05DD", "a\u0301", "\U0001F600"})
        EXPECT_FALSE(latin->LayOut(MakePlainText(text, 100)).has_value()) << text;
    const FontSpec others[] = {{"Tahoma", 101}, {"a,b", 11}, {"Tahoma", 6}};
    for (const FontSpec& spec : others)
        EXPECT_EQ(MakeLatinEngine(spec), nullptr) << spec.face << " " << spec.pixels;
}

} // namespace
} // namespace Platform
