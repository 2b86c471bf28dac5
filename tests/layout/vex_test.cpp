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
        {"PDialog(window_title: 'Edit') { CEditNumber(number_value: '1.25'); }",
         "1:23 four-bytes, 1:59 four-bytes"},
        {"PDialog(horizontal: kAlign_Left, button_style_class: 'CButtonGraphic', "
         "window_features: kWin_CanMove + kFont_UI);",
         "1:21 wrong-family, 1:104 wrong-family"},
        {"PDialog(width: 2147483648, height: 7 % 2, width: 2147483647);",
         "1:16 overflow, 1:38 percent, 1:43 duplicate-key"},
        {"CFramePane(button_label: 'Fine', view_id: 5) { CPushButton(button_label: 'Fine '); }",
         "1:12 unread-key, 1:26 four-bytes"},
        // assignments
        {"PDialog() { text_fnt = 1; gSpace = 4; label_font = 'large'; CPane(); }",
         "1:13 unused-name, 1:52 wrong-kind"},
        {"width = 100; alwaysL2R = true; text_font = kFont_UI; PDialog();",
         "1:1 root-key, 1:32 root-key"},
        {"PDialog(view_id: 'a') { CStaticText(view_id: 'b', scrub_id: 'a'); CPane(view_id: 'a'); }",
         "1:82 duplicate-id"},
        // what the parser throws
        {"gSpace = 1;\n", "2:1 views"},
        {"PDialog();\nCPane();", "2:1 views"},
        {"PDialog(width: 8 / 0);", "1:20 division"},
        {"PDialog(width: " + std::string(300, '('), "1:215 nesting"},
        // names within what can't be read are no matter
        {"PDialog(width: high) { CPane(magin: 1); CPane(magin: 2,); }",
         "1:30 unknown-key, 1:56 syntax"},
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
        {"PDialog() { CPane(); ", "this brace is never closed"},
        {"PDialog() { // remark", "there are no comments in a layout text"},
        {"a = 1 /* one */; PDialog();", "there are no comments in a layout text"},
        {"PDialog(text: \"two\");", "texts stand in single quotes, not in double ones"},
        {"PDialog(view_binding: kBind_Left | kBind_Top);",
         "options are combined with +, not with |"},
        {"PDialog(width: 1.5);", "Where a key takes one, the number is a text: '1.5'."},
        {"PDialog(width: 0x10);", "numbers are decimal"},
        {"PDialog(width: 1,);", "another property must follow the comma"},
        {"PDialog(text: 'it's');", "the text before this ended at its second quote"},
        {"PDialog(width = 1);", "a property is written with a colon"},
        {"PDialog() { width: 1; }", "an assignment is written with an equals sign"},
        {"PDialog(text: Hello);", "A text stands in single quotes: 'Hello'."},
        {"PDialog(text: Hello World);", "A text stands in single quotes."},
        {"PDialog(width: high) {\n high = 1; }", "Its definition stands in line 2."},
        {"\nPDialog(view_id: 'a') { CPane(view_id: 'a'); }",
         "Messages and lookups find only one of them. The first stands in line 2."},
        {"PDialog();\nCPane();", "A layout holds exactly one. The first is PDialog in line 1."},
        {"PDialog(width: 4294967297);", "this number is too large and counts as 1"},
        {"PDialog(horizontal: kAlign_Left);", "Its number means align_fill here."},
        {"PDialog(width: \xC3\xA9);", "expected an expression, but found '\xC3\xA9'"},
        {"PDialog(text: 'open);\n", "this string has no closing quote"},
        {"PDialog(magin: 4);", "Did you mean margin?"},
        {"PDialog() { CStatcText(); }", "Did you mean CStaticText?"},
        {"PDialog(view_binding: kBind_Sizable);", "Did you mean kBind_Sizeable?"},
    };
    for (const auto& [text, expected] : cases) {
        SCOPED_TRACE(text);
        const std::vector<Diagnostic> found = CheckLayout(CSourceText("test.vex", text));
        ASSERT_FALSE(found.empty());
        EXPECT_THAT((std::array{found[0].message, found[0].hint}), testing::Contains(expected));
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

// The widths of texts are the system's fonts'; all else follows from them.
TEST(Place, LaysTheFrameDialogOut)
{
    std::ifstream file(SIDECAR_SOURCE_DIR "/resources/layouts/electricimage.vex");
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    for (const Kesto::Point& more : {Kesto::Point{0, 0}, {100, 60}}) {
        const double natural = Places(text.c_str())["width"];
        const auto window =
            Places(text.c_str(), {Kesto::Point{natural + more.x, 80 + more.y}, 1.0});
        const auto at = [&window](const char* path) {
            return window.at(nlohmann::ordered_json::json_pointer(path));
        };
        const double label = at("/children/0/children/0/children/0")["width"];
        const double field = at("/children/0/children/0/children/1")["width"];
        const double row = natural - 132;
        const std::pair<const char*, std::array<double, 4>> cases[] = {
            {"", {0, 0, natural + more.x, 80 + more.y}},
            {"/children/0", {4, 4, row + 8 + more.x, 72 + more.y}},
            {"/children/0/children/0", {4 + more.x, 4, row, 44}},
            {"/children/0/children/0/children/0", {8, 14, label, 16}},
            {"/children/0/children/0/children/1", {row - 8 - field, 10, field, 24}},
            {"/children/0/children/1", {4, 50, row, 16}},
            {"/children/1", {row + 12 + more.x, 4, 116, 72 + more.y}},
            {"/children/1/children/0", {0, 0, 116, 72}},
            {"/children/1/children/0/children/0", {8, 8, 100, 24}},
            {"/children/1/children/0/children/1", {8, 40, 100, 24}},
        };
        for (const auto& [path, numbers] : cases) {
            const auto view = at(path);
            EXPECT_EQ(
                (std::array<double, 4>{view["left"], view["top"], view["width"], view["height"]}),
                numbers)
                << path << " with " << more.x << " more";
        }
    }
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
