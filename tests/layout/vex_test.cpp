// The checker, the formatter, the dump, the places and the tables of keys.
#include "support/testing.h"
#include "vex/check.h"
#include "vex/describe.h"
#include "vex/dump.h"
#include "vex/format.h"
#include "vex/keys.h"
#include "vex/place.h"

#include <nlohmann/json.hpp>

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

TEST(Check, StopsAtDeepNesting)
{
    EXPECT_EQ(MistakesIn(("PDialog(width: " + std::string(300, '(')).c_str()), "1:215 nesting");
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
    const CSourceText wide("b.vex", std::string(500, 'a') + "\xC3\xA9" + std::string(500, 'b'));
    std::ostringstream part;
    Print(part, wide, {wide.Text().data() + 500, "syntax", "wrong", ""});
    EXPECT_EQ(part.str(), "b.vex:1:501: wrong\n    ..." + std::string(60, 'a') + "\xC3\xA9" +
                              std::string(58, 'b') + "...\n" + std::string(67, ' ') + "^\n");

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

TEST(Format, RefusesBrokenTexts)
{
    EXPECT_THROW(Formatted("A("), std::runtime_error);
}

TEST(Dump, ShowsEveryScope)
{
    const nlohmann::json view =
        DumpLayout(CSourceText("a", "r = 5; A(width: 7, t: 'x', u: q + 1, placement: 2) "
                                    "{ v = 2; B(top_outset: r); w = v; }"));
    EXPECT_EQ(view["properties"],
              (nlohmann::json{{"width", 7}, {"t", "x"}, {"u", nullptr}, {"placement", 2}}));
    EXPECT_EQ(view["variables"], (nlohmann::json{{"v", 2}, {"w", 2}}));
    EXPECT_EQ(view["children"][0]["class"], "B");
    EXPECT_EQ(view["textVariables"], (nlohmann::json{{"r", 5}}));
    EXPECT_EQ(view["layout"]["placement"], 2) << "the number, not a truth value";
    EXPECT_EQ(view["layout"]["t"], "x");
    EXPECT_EQ(view["children"][0]["layout"]["v"], 2) << "what a block assigns reaches its views";
    EXPECT_FALSE(view["children"][0]["layout"].contains("r"));
    std::ostringstream out;
    PrintDump(out, view);
    EXPECT_NE(out.str().find("    u = undefined\n"), std::string::npos);
}

// The tree of a text as it is built.
nlohmann::ordered_json Places(const char* text, BuildOptions options = {})
{
    return PlacesOf(CBuiltLayout(CSourceText("a.vex", text), options));
}

TEST(Place, NestsTheViewsAsTheyWereBuilt)
{
    const auto window = Places("PDialog(view_id: 'window', margin: 3) { A() { CPane(width: 10); } "
                               "CPane(height: 5, view_id: 'last') {} }");
    EXPECT_EQ(window["class"], "PDialog");
    EXPECT_EQ(window["id"], "window");
    EXPECT_EQ(window["width"], 16);
    ASSERT_EQ(window["children"].size(), 2U) << "a view of an unknown class is no node";
    EXPECT_EQ(window["children"][0]["id"], "");
    EXPECT_EQ(window["children"][1]["top"], 3);
    EXPECT_EQ(window["children"][1]["children"], nlohmann::ordered_json::array());
}

TEST(Place, PutsAPaneIntoABareWindowAndResizes)
{
    const char* const text =
        "CPane(width: 40, height: 20, view_binding: kBind_Sizeable) { CPane(view_binding: "
        "kBind_FixedMiddle, width: 10, height: 10, horizontal: align_center, vertical: "
        "align_center); }";
    EXPECT_EQ(Places(text)["children"][0]["left"], 15);
    const auto large = Places(text, {Kesto::Point{100, 50}, 1.0});
    EXPECT_EQ(large["width"], 100);
    EXPECT_EQ(large["children"][0]["left"], 45);
    EXPECT_EQ(large["children"][0]["top"], 20);
}

TEST(Place, SaysWhyATextIsRefused)
{
    const std::pair<const char*, const char*> cases[] = {
        {"CPane(", "a.vex:1:7: expected a name or ')', but found the end of the text"},
        {"CPane(\nwidth: high);", "a.vex:2:8: nothing defines the name 'high'"},
        {"CNoSuch() { CPane(); CPane(); }", "a.vex: no class of its outermost view is known"},
        {"CPane(width: 100000, height: 100000);",
         "a.vex: the layout is 100000 x 100000 units, which is too large; 67108864 pixels are the "
         "limit"},
    };
    for (const auto& [text, words] : cases)
        EXPECT_THAT([text = text] { Places(text); },
                    testing::ThrowsMessage<std::runtime_error>(words))
            << text;
}

TEST(Describe, TellsWhatAHostIsTold)
{
    const auto window = DescriptionOf(
        CBuiltLayout(CSourceText("a.vex", "PDialog(view_id: 'window', width: 90, height: 20) { "
                                          "CStaticText(text: 'Hello', view_disabled: true); }"),
                     {std::nullopt, 2.0}));
    EXPECT_EQ(window["bounds"], (nlohmann::ordered_json{0, 0, 180, 40})) << "pixels";
    EXPECT_EQ(window["class"], "PDialog");
    EXPECT_EQ(window["Nm  "], "window");
    EXPECT_EQ(window["Vsbl"], true);
    const auto& label = window["subViews"][0];
    EXPECT_EQ(label["Nm  "], "Hello");
    EXPECT_EQ(label["enab"], false);
    EXPECT_EQ(label["id"], "");
    EXPECT_FALSE(label.contains("subViews"));
}

TEST(Keys, AreDocumentedAsTheClassesReadThem)
{
    std::ostringstream tables;
    PrintAllKeys(tables);
    std::ifstream file(SIDECAR_SOURCE_DIR "/docs/layout.md");
    const std::string page{std::istreambuf_iterator<char>(file), {}};
    EXPECT_TRUE(page.ends_with(tables.str()))
        << "`vex keys` prints what the end of docs/layout.md should be";
}

} // namespace
