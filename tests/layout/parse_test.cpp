// Whole layout texts.
#include "layout/recording_generator.h"
#include "support/testing.h"

using namespace Kesto;
using testing::ElementsAre;

namespace {

std::string ErrorOf(const char* text)
{
    CRecordingGenerator generator;
    return LogicErrorOf([&] { generator.Parse(text); });
}

// The integer and the text of a property of the outermost view.
std::pair<std::int32_t, std::string> PropertyOf(const char* text, const char* name)
{
    std::pair<std::int32_t, std::string> found;
    CRecordingGenerator generator(
        [&](std::string_view, CExpressionScope& properties, CExpressionScope&) {
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

TEST(Parse, SaysWhatItRefuses)
{
    for (const char* text : {"", " \r\n", "a = 1;", "A(); B();"})
        EXPECT_EQ(ErrorOf(text), "Warning! (viewProxyList.list->size() == 1)") << text;
    for (const char* text : {"A(a: 1,);", "A(a: 1) { B( }", "A(a: 'open);", "A()", "A() {", "A();;",
                             "step(1, 2, &a, b); A();", "A(a: 1 + );", "A(a: b c);", "A(a = 1);",
                             "A(1a: 1);", "A() { // remark\n }", "\x80();"})
        EXPECT_EQ(ErrorOf(text), "Warning! (*definition == 0)") << text;
    for (const char* text : {"x = y; A();", "A(x: y);"})
        EXPECT_EQ(ErrorOf(text), "Warning! (variable != NULL)") << text;
    EXPECT_EQ(ErrorOf("A(x: 1 / 0);"), "Warning! (divisor != 0)");
    for (const char* text :
         {"A();", "x = y + 0; A(x: (y));"}) // an undefined expression is no unknown name
        EXPECT_EQ(ErrorOf(text), "") << text;
}

TEST(Parse, KeepsStringsAsTheyAre)
{
    const struct {
        const char* text;
        std::int32_t number;
        const char* string;
    } cases[] = {
        {"A(a: 'x),;\r\n{\xE9');", VexUndefined, "x),;\r\n{\xE9"},
        {"A(a: 'abcd');", 0x61626364, "abcd"},
        {"A(a: 'ab\200d');", 0x61620000 - 0x8000 + 'd', "ab\200d"},
        {"A(a: '');", VexUndefined, ""},
        {"b = 'abcd'; A(a: b);", 0x61626364, "abcd"},
        {"b = 'abcd'; A(a: b + 1);", 0x61626365, ""},
        {"A(b: 2, b: b * 3, a: b + 1);", 7, ""},
    };
    for (const auto& [text, number, string] : cases)
        EXPECT_EQ(PropertyOf(text, "a"), std::pair(number, std::string(string))) << text;
}

TEST(Parse, LimitsAssignmentsToTheirBlock)
{
    std::string seen;
    CRecordingGenerator generator(
        [&](std::string_view name, CExpressionScope& properties, CExpressionScope&) {
            std::int32_t font = -1;
            properties.GetIntVariable("f", &font);
            seen.append(name).append(std::to_string(font)).append(" ");
        });
    generator.Parse("f = 1; A(f: 9) { B(); f = 2; C() { f = 3; D(); } E(f: f + 5); F(); } f = 7;");
    EXPECT_EQ(seen, "A9 B1 C2 D3 E7 F2 ");
}

TEST(Parse, NestsViewsAsDeepAsTheLimit)
{
    for (const auto& [depth, error] :
         {std::pair{CExpressionScope::kMaxNesting, ""},
          {CExpressionScope::kMaxNesting + 1, "Warning! (nesting < kMaxNesting)"},
          {100000, "Warning! (nesting < kMaxNesting)"}})
        EXPECT_EQ(ErrorOf(Nested(static_cast<std::size_t>(depth), "A(){", "B();", "}").c_str()),
                  error)
            << depth;
}

TEST(ViewScopes, NeedAGenerator)
{
    CExpressionScope plain;
    for (CExpressionScope* const parent : {&plain, static_cast<CExpressionScope*>(nullptr)})
        EXPECT_EQ(LogicErrorOf([&] { CRapidViewScope scope(parent, nullptr); }),
                  "Warning! (viewParentScope)")
            << (parent == nullptr ? "no parent" : "a parent without a generator");
    CRecordingGenerator generator;
    CRapidViewScope parent(nullptr, &generator);
    CRapidViewScope child(&parent, nullptr);
    EXPECT_EQ(&child.Generator(), &generator);
}

} // namespace
