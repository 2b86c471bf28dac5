// Whole layout texts.
#include "layout/recording_generator.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

using namespace Kesto;
using testing::ElementsAre;

namespace {

constexpr const char* kUnreadable = "Warning! (*definition == 0)";
constexpr const char* kNotOneView = "Warning! (viewProxyList.list->size() == 1)";
constexpr const char* kUnknownName = "Warning! (variable != NULL)";

std::string ErrorOf(const char* text)
{
    CRecordingGenerator generator;
    return LogicErrorOf([&] { generator.Parse(text); });
}

// The integer and the text of a property of the outermost view.
std::pair<std::int32_t, std::string> PropertyOf(const char* text, const char* name)
{
    std::pair<std::int32_t, std::string> found;
    CRecordingGenerator generator([&](std::string_view, CExpressionScope& properties, CExpressionScope&) {
        const char* string = "";
        properties.GetIntVariable(name, &found.first);
        properties.GetStringVariable(name, &string);
        found.second = string;
    });
    generator.Parse(text);
    return found;
}

TEST(Parse, HandsOverEnclosingViewsFirst)
{
    CRecordingGenerator generator;
    generator.Parse("\r\n a = 1; A(){B(){C();}D(x:1,y:'z'){}} b = 2;\f");
    EXPECT_THAT(generator.fMeasured, ElementsAre("A", "B", "C", "D"));
    EXPECT_EQ(generator.fBuilt, generator.fMeasured);
}

TEST(Parse, WantsOneOutermostView)
{
    EXPECT_EQ(ErrorOf(""), kNotOneView);
    EXPECT_EQ(ErrorOf(" \r\n"), kNotOneView);
    EXPECT_EQ(ErrorOf("a = 1;"), kNotOneView);
    EXPECT_EQ(ErrorOf("A(); B();"), kNotOneView);
    EXPECT_EQ(ErrorOf("A();"), "");
}

TEST(Parse, RefusesWhatItCannotReadToTheEnd)
{
    for (const char* text :
         {"A(a: 1,);", "A(a: 1) { B( }", "A(a: 'open);", "A()", "A() {", "A();;", "step(1, 2, &a, b); A();",
          "A(a: 1 + );", "A(a: b c);", "A(a = 1);", "A(1a: 1);", "A() { // remark\n }", "\x80();"})
        EXPECT_EQ(ErrorOf(text), kUnreadable) << text;
}

TEST(Parse, TellsAnUnknownNameFromAnUndefinedExpression)
{
    EXPECT_EQ(ErrorOf("x = y; A();"), kUnknownName);
    EXPECT_EQ(ErrorOf("A(x: y);"), kUnknownName);
    EXPECT_EQ(ErrorOf("x = y + 0; A(x: (y));"), "");
    EXPECT_EQ(ErrorOf("A(x: 1 / 0);"), "Warning! (divisor != 0)");
}

TEST(Parse, KeepsStringsAsTheyAre)
{
    using Found = std::pair<std::int32_t, std::string>;
    EXPECT_EQ(PropertyOf("A(a: 'x),;\r\n{\xE9');", "a"), (Found{VexUndefined, "x),;\r\n{\xE9"}));
    EXPECT_EQ(PropertyOf("A(a: 'abcd');", "a"), (Found{0x61626364, "abcd"}));
    EXPECT_EQ(PropertyOf("A(a: 'ab\x80"
                         "d');",
                         "a"),
              (Found{0x61620000 - 0x8000 + 'd', "ab\x80"
                                                "d"}));
    EXPECT_EQ(PropertyOf("A(a: '');", "a"), (Found{VexUndefined, ""}));
    EXPECT_EQ(PropertyOf("b = 'abcd'; A(a: b);", "a"), (Found{0x61626364, "abcd"}));
    EXPECT_EQ(PropertyOf("b = 'abcd'; A(a: b + 1);", "a"), (Found{0x61626365, ""}));
}

TEST(Parse, LetsPropertiesBuildOnEachOther)
{
    EXPECT_EQ(PropertyOf("A(a: 2, a: a * 3, b: a + 1);", "b").first, 7);
}

TEST(Parse, LimitsAssignmentsToTheirBlock)
{
    std::string seen;
    CRecordingGenerator generator([&](std::string_view name, CExpressionScope& properties, CExpressionScope&) {
        std::int32_t font = -1;
        properties.GetIntVariable("f", &font);
        seen.append(name).append(std::to_string(font)).append(" ");
    });
    generator.Parse("f = 1; A(f: 9) { B(); f = 2; C() { f = 3; D(); } E(f: f + 5); F(); } f = 7;");
    EXPECT_EQ(seen, "A9 B1 C2 D3 E7 F2 ");
}

TEST(Parse, NestsViewsAsDeepAsTheLimit)
{
    const auto nested = [](int depth) {
        std::string text;
        for (int i = 0; i < depth; ++i)
            text += "A(){";
        return text + "B();" + std::string(static_cast<std::size_t>(depth), '}');
    };
    EXPECT_EQ(ErrorOf(nested(CExpressionScope::kMaxNesting).c_str()), "");
    EXPECT_EQ(ErrorOf(nested(CExpressionScope::kMaxNesting + 1).c_str()), "Warning! (nesting < kMaxNesting)");
    EXPECT_EQ(ErrorOf(nested(100000).c_str()), "Warning! (nesting < kMaxNesting)");
}

TEST(Parse, ReadsTheFrameDialog)
{
    std::ifstream file(SIDECAR_SOURCE_DIR "/resources/layouts/electricimage.vex", std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    std::string fonts;
    CRecordingGenerator generator([&](std::string_view name, CExpressionScope& properties, CExpressionScope&) {
        std::int32_t font = -1;
        properties.GetIntVariable(name == "CPushButton" ? "push_button_font" : "text_font", &font);
        fonts += std::to_string(font) + ' ';
        std::int32_t features = 0;
        if (name == "PDialog") {
            EXPECT_TRUE(properties.GetIntVariable("window_features", &features));
            EXPECT_EQ(features, 2 + 4 + 8 + 16 + 128 + 256);
        }
    });
    generator.Parse(text.c_str());
    EXPECT_THAT(generator.fBuilt, ElementsAre("PDialog", "CFramePane", "CFramePane", "CStaticText", "CEditNumber",
                                              "CStaticText", "CFramePane", "CFramePane", "CPushButton", "CPushButton"));
    EXPECT_EQ(fonts, "-1 10 10 10 10 10 10 10 6 6 ");
}

TEST(ViewScopes, NeedAGenerator)
{
    CExpressionScope plain;
    EXPECT_EQ(LogicErrorOf([&] { CRapidViewScope scope(&plain, nullptr); }), "Warning! (viewParentScope)");
    EXPECT_EQ(LogicErrorOf([&] { CRapidViewScope scope(nullptr, nullptr); }), "Warning! (viewParentScope)");
    CRecordingGenerator generator;
    CRapidViewScope parent(nullptr, &generator);
    CRapidViewScope child(&parent, nullptr);
    EXPECT_EQ(&child.Generator(), &generator);
}

} // namespace
