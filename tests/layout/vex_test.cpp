// The checker, the formatter and the dump.
#include "vex/check.h"
#include "vex/dump.h"
#include "vex/format.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include <array>
#include <sstream>

using namespace Vex;

namespace {

// "line:column kind" of each mistake.
std::string MistakesIn(const char* text)
{
    const CSourceText source("test.vex", text);
    std::string found;
    for (const Diagnostic& diagnostic : CheckLayout(source)) {
        const SourcePlace place = source.PlaceOf(diagnostic.position);
        found += (found.empty() ? "" : ", ") + std::to_string(place.line) + ':' +
                 std::to_string(place.column) + ' ' + diagnostic.kind;
    }
    return found;
}

TEST(Check, FindsMistakesAndTheirPlaces)
{
    const std::pair<std::string, const char*> cases[] = {
        // syntax, where the furthest rule failed
        {"PDialog() {\n  CPane(width: 1,);\n}", "2:18 syntax"},
        {"PDialog() {\n  CPane(width 1);\n}", "2:15 syntax"},
        {"PDialog(text: 'open);\n", "1:15 syntax"},
        {"step(1, 2, &a, b); PDialog();", "1:16 ampersand"},
        {"step(1, 2, a); PDialog();", "1:12 ampersand"},
        {"align_centers(1, 20, 30, &a, b); PDialog();", "1:30 ampersand"},
        {"PDialog(); align_centers(1, 20, 30, a, &b);", "1:42 ampersand"},
        // the vocabulary
        {"PDialog(magin: 4) { CStatcText(); }", "1:9 unknown-key, 1:21 unknown-class"},
        {"PDialog(width: kBind_Sizable, height: 2 * high);",
         "1:16 unknown-constant, 1:43 unknown-constant"},
        // scopes
        {"step(1, 2, &w); PDialog(width: w, height: width) { h = w; CPane(height: h) {} }", ""},
        {"PDialog() { CPane() { h = 1; } CPane(height: h); }", "1:46 unknown-constant"},
        // kinds of values, and identifiers
        {"PDialog(width: 'broad', window_title: 5, view_id: 5);",
         "1:16 wrong-kind, 1:39 wrong-kind"},
        {"PDialog(width: 'abcd') { CEditNumber(number_value: '1.5', number_maximum: 'several'); }",
         "1:75 wrong-kind"},
        {"t = 'broad'; PDialog(width: t, window_title: t);", "1:29 wrong-kind"},
        {"PDialog(view_id: 'a') { CPane(view_id: 'b', scrub_id: 'a'); CPane(view_id: 'a'); }",
         "1:76 duplicate-id"},
        // what the parser throws
        {"a = 1;\n", "2:1 views"},
        {"PDialog();\nCPane();", "2:1 views"},
        {"PDialog(width: 8 / 0);", "1:20 division"},
        {"PDialog(width: " + std::string(300, '('), "1:215 nesting"},
    };
    for (const auto& [text, mistakes] : cases)
        EXPECT_EQ(MistakesIn(text.c_str()), mistakes) << text;
}

TEST(Check, ExplainsOrHints)
{
    const std::pair<const char*, const char*> cases[] = {
        {"PDialog(width 1);", "expected ':', but found '1'"},
        {"PDialog(width: (1 2));", "expected an operator or ')', but found '2'"},
        {"PDialog(width: 1 2);", "expected an operator, ',' or ')', but found '2'"},
        {"PDialog() {", "expected a name or '}', but found the end of the text"},
        {"PDialog(text: 'open);\n", "this string has no closing quote"},
        {"PDialog(magin: 4);", "Did you mean margin?"},
        {"PDialog() { CStatcText(); }", "Did you mean CStaticText?"},
        {"PDialog(view_binding: kBind_Sizable);", "Did you mean kBind_Sizeable?"},
    };
    for (const auto& [text, expected] : cases) {
        const Diagnostic first = CheckLayout(CSourceText("test.vex", text)).at(0);
        EXPECT_THAT((std::array{first.message, first.hint}), testing::Contains(expected)) << text;
    }
    EXPECT_EQ(CheckLayout(CSourceText("test.vex", "PDialog(qqqqqqqqqq: 1);")).at(0).hint, "");
}

TEST(Check, TakesLongSums)
{
    std::string sum = "q";
    for (int i = 0; i < 100000; ++i)
        sum += "+1";
    EXPECT_EQ(MistakesIn(("PDialog(width: " + sum + ");").c_str()), "1:16 unknown-constant");
}

TEST(Check, DrawsACaret)
{
    const CSourceText source("a.vex", "PDialog(\r\n\t\xC3\xA9);\r\n");
    std::ostringstream out;
    Print(out, source, {source.Text().data() + 13, "syntax", "wrong", ""});
    EXPECT_EQ(out.str(), "a.vex:2:4: wrong\n    \t\xC3\xA9);\n    \t ^\n");
}

std::string Formatted(const std::string& text)
{
    return FormatLayout(CSourceText("test.vex", text));
}

TEST(Format, WritesOneForm)
{
    EXPECT_EQ(Formatted("\r\na=1 ;step(1,-2,& x,&y);PDialog( width:( 1+ - 2)*min (a,3),title:'a  "
                        "b' ){CPane();}"),
              "a = 1;\nstep(1, -2, &x, &y);\n\n"
              "PDialog(width: (1 + -2) * min(a, 3), title: 'a  b') {\n    CPane();\n}\n");
    EXPECT_EQ(Formatted("A(a: (!b||-1<=+c), d: 'two\nlines') {}"),
              "A(\n    a: (!b || -1 <= +c),\n    d: 'two\nlines'\n) {\n}\n");
}

TEST(Format, KeepsTheMeaning)
{
    const char* const texts[] = {"a=1;A(x:a--a){b=a+1;B(width:b,t:'q');}",
                                 "A(x: 1%2*(3-4)/-in(3,3)) { steps = 3; step(1,2,&s); B(y: s); }"};
    for (const char* text : texts) {
        const std::string formatted = Formatted(text);
        EXPECT_EQ(DumpLayout(CSourceText("a", text)), DumpLayout(CSourceText("b", formatted)));
        EXPECT_EQ(Formatted(formatted), formatted);
    }
}

TEST(Format, RefusesBrokenTexts)
{
    EXPECT_THROW(Formatted("A("), std::runtime_error);
}

TEST(Dump, ShowsEveryScope)
{
    const nlohmann::json view =
        DumpLayout(CSourceText("a", "A(width: 7, t: 'x', u: q + 1) { v = 2; B(); w = v; }"));
    EXPECT_EQ(view["properties"], (nlohmann::json{{"width", 7}, {"t", "x"}, {"u", nullptr}}));
    EXPECT_EQ(view["variables"], (nlohmann::json{{"v", 2}, {"w", 2}}));
    EXPECT_EQ(view["children"][0]["class"], "B");
    EXPECT_TRUE(view["layout"].contains("width"));
    std::ostringstream out;
    PrintDump(out, view);
    EXPECT_NE(out.str().find("    u = undefined\n"), std::string::npos);
}

} // namespace
