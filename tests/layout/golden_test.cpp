// Where the views of whole layouts come to lie, ours and odd ones, held against files in golden/.
// golden/make writes them anew; the numbers of the odd ones were checked by hand against the rules.
// Those have no texts, so that they are the same on every system; what texts measure is its fonts'.
#include "support/testing.h"
#include "vex/check.h"
#include "vex/place.h"

#include <nlohmann/json.hpp>

#include <regex>

namespace {

const std::string kFolder = "tests/layout/golden/";

struct GoldenLayout {
    std::string path;                                  // without its .vex
    const char* oddity;                                // the head of its golden
    std::optional<Kesto::Point> second = std::nullopt; // a size to place it at, too
    bool hasTexts = false;
};

const GoldenLayout kLayouts[] = {
    {kFolder + "alignments", "every alignment; one to the end amid a run; odd pixels"},
    {kFolder + "margins", "unequal margins, cushions, outsets that margins don't cover"},
    {kFolder + "scopes", "names that change; keys as variables; a width at the top is 1"},
    {kFolder + "bindings", "edges, middles and halves, by odd amounts", {{141, 91}}},
    {kFolder + "hidden", "hidden and disabled views take their room; a reversed row"},
    {kFolder + "empty_groups", "no margins around nothing; classes that don't exist"},
    {kFolder + "sizes", "zero, below zero, larger than the parent, to the end of 32 bits"},
    {kFolder + "frames", "frames that are margins; a size box takes no room", {{60, 90}}},
    {kFolder + "port_coordinates", "children that stay with the port", {{141, 91}}},
    {"resources/layouts/electricimage", "the frame dialog", {{500, 140}}, true},
    {"examples/layouts/gallery", "buttons and fields", {}, true},
    {"examples/layouts/gallery-sliders", "sliders, popups and tabs", {}, true},
};

std::string TextOf(const std::string& path)
{
    std::ifstream file(SIDECAR_SOURCE_DIR "/" + path, std::ios::binary);
    EXPECT_TRUE(file.is_open()) << path;
    return {std::istreambuf_iterator<char>(file), {}};
}

std::string PlacesIn(const GoldenLayout& golden)
{
    const std::string path = golden.path + ".vex";
    const Vex::CSourceText source(path, TextOf(path));
    std::ostringstream out;
    out << "# " << golden.oddity << '\n';
    Vex::PrintPlaces(out, Vex::PlacesOf(Vex::CBuiltLayout(source, {})));
    if (golden.second) {
        out << "# at " << golden.second->x << " x " << golden.second->y << '\n';
        Vex::PrintPlaces(out, Vex::PlacesOf(Vex::CBuiltLayout(source, {golden.second, 1.0})));
    }
    return out.str();
}

// What a file of this folder should hold. It is written anew when the tests run in order to make
// it.
std::string Expected(const std::string& path, const std::string& found)
{
    if (std::getenv("SIDECAR_REMAKE_GOLDEN"))
        std::ofstream(SIDECAR_SOURCE_DIR "/" + path, std::ios::binary) << found;
    return TextOf(path);
}

TEST(Golden, LayoutsLieWhereTheyDid)
{
    for (const GoldenLayout& golden : kLayouts) {
        const std::string path = kFolder + golden.path.substr(golden.path.rfind('/') + 1) + ".txt";
        std::string found = PlacesIn(golden);
        std::string expected = Expected(path, found);
        if (golden.hasTexts && !SIDECAR_GOLDEN_FONTS) {
            const std::regex numbers("  -?[0-9].*");
            found = std::regex_replace(found, numbers, "");
            expected = std::regex_replace(expected, numbers, "");
        }
        EXPECT_EQ(found, expected)
            << path << ". If that is right now, run tests/layout/golden/make.";
    }
}

// What the checker says of each text of mistakes.txt, which four hyphens end.
TEST(Golden, MistakesAreFoundPlacedAndExplained)
{
    std::istringstream lines(TextOf(kFolder + "mistakes.txt"));
    std::ostringstream found;
    std::string text;
    for (std::string line; std::getline(lines, line);) {
        if (line != "----") {
            text += line + '\n';
            continue;
        }
        text.pop_back();
        const Vex::CSourceText source("mistake.vex", std::exchange(text, {}));
        for (const Vex::Diagnostic& mistake : Vex::CheckLayout(source)) {
            found << mistake.kind << ": ";
            Vex::Print(found, source, mistake);
        }
        found << "----\n";
    }
    EXPECT_EQ(found.str(), Expected(kFolder + "mistakes_found.txt", found.str()));
}

} // namespace
