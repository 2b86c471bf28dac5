// Where the views of a layout come to lie.
#include "layout/build/text_generator.h"
#include "layout/placement/placement.h"
#include "layout/recording_generator.h"
#include "support/testing.h"

using namespace Kesto;

namespace {

// "left,top widthxheight" of each view within the outermost one, in the order of building.
class CPlacesGenerator : public CTextGenerator {
public:
    static std::string PlacesOf(const std::string& text)
    {
        CPlacesGenerator generator;
        const auto root =
            CRapidViewScope::CreateRootScope(nullptr, &generator, nullptr, nullptr, true);
        generator.SetRoot(root.get());
        root->Parse(text.c_str());
        return generator.fPlaces;
    }

    CView* Build(std::string_view name, CExpressionScope* layout, CView*) override
    {
        const auto number = [layout](const char* key) {
            return std::to_string(layout->FindVariable(key)->integer);
        };
        const std::string size = number("width") + 'x' + number("height");
        fPlaces += name == "Out" ? size : "  " + number("left") + ',' + number("top") + ' ' + size;
        return nullptr;
    }

private:
    std::string fPlaces;
};

TEST(Placement, FollowsItsRules)
{
    const struct {
        const char *words, *text, *places;
    } cases[] = {
        {"one child fills the row",
         "Out(placement: place_row, width: 100, height: 10) { A(width: 10); "
         "B(width: 20, horizontal: align_fill); C(width: 10); }",
         "100x10  0,5 10x0  10,5 80x0  90,5 10x0"},
        {"two fill, and the odd pixel stays at the right",
         "Out(placement: place_row, width: 31) { horizontal = align_fill; A(width: 5); "
         "B(width: 10); }",
         "31x0  0,0 13x0  13,0 18x0"},
        {"a column shares by default", "Out(width: 10, height: 100) { height = 20; A(); B(); }",
         "10x100  0,15 0x20  0,65 0x20"},
        {"a row does not",
         "Out(placement: place_row, width: 100, height: 10) { width = 20; A(); B(); }",
         "100x10  0,5 20x0  20,5 20x0"},
        {"the last ones stick to the bottom, and reverse turns all first",
         "Out(height: 100, margin: 3, spacing: 2, reverse: true) { vertical = align_bottom; "
         "height = 10; A(); B(); C(vertical: align_top); }",
         "6x100  3,3 0x10  3,75 0x10  3,87 0x10"},
        {"a trailing child that others follow leads",
         "Out(placement: place_row, width: 50) { width = 10; A(horizontal: align_right); B(); "
         "C(horizontal: align_right); }",
         "50x0  0,0 10x0  10,0 10x0  40,0 10x0"},
        {"a wide child raises the width; the height has an upper bound",
         "Out(width: 10, height: 10, max_height: 25) { A(width: 40, height: 30); }",
         "40x25  0,0 40x30"},
        {"the height of a leaf is limited when it is stretched only",
         "Out(height: 100) { vertical = align_fill; A(height: 40, max_height: 30); "
         "B(height: 10, max_height: 20); }",
         "0x100  0,0 0x30  0,30 0x20"},
        {"labels line up at the end of the widest",
         "Out() { A(width: 50, label_width: 20); B(width: 40, label_width: 30); }",
         "60x0  0,0 60x0  0,0 40x0"},
        {"a row with a label joins the column of the labels around it",
         "Out() { A(width: 50, label_width: 20); B(placement: place_row) { "
         "C(width: 20, label_width: 5); } }",
         "50x0  0,0 50x0  0,0 35x0  0,0 35x0"},
        {"a proportional child moves with what lies before it",
         "Out(placement: place_row, width: 100) { width = 20; A(horizontal: align_fill); "
         "B(horizontal: align_proportional); }",
         "100x0  0,0 50x0  80,0 20x0"},
        {"a proportional child without room",
         "Out(placement: place_row, width: 20) { A(width: 20, horizontal: align_proportional); }",
         "20x0  0,0 20x0"},
        {"the margin takes its part of an outset",
         "Out(margin: 4) { A(width: 10, height: 10, outset: 6); B(height: 5, left_outset: 7); }",
         "18x23  7,6 10x10  7,16 0x5"},
        {"trailing children ask the left margin",
         "Out(width: 50, margin_left: 2, margin_right: 9) { A(width: 10, horizontal: align_right); "
         "}",
         "50x0  38,0 10x0"},
        {"margins do not enter centring",
         "Out(width: 50, margin_left: 20) { A(width: 10, horizontal: align_center); }",
         "50x0  20,0 10x0"},
        {"a row lines up its top insets",
         "Out(placement: place_row, vertical: align_top, child_vertical: align_top) { "
         "A(width: 5, height: 20, top_inset: 12); B(width: 5, height: 30); }",
         "10x42  0,0 5x20  5,12 5x30"},
        {"a stack gives each child all of its inside",
         "Out(placement: place_offscreen, margin: 2, width: 40, height: 30) { "
         "A(width: 50, height: 5, vertical: align_bottom); B(max_height: 9, horizontal: "
         "align_right); }",
         "54x30  2,2 50x26  52,2 0x9"},
        {"offsets come last",
         "Out() { A(width: 5, left_offset: 3, top_offset: -2) { B(left_offset: 1); } }",
         "5x0  3,-2 5x0  1,0 0x0"},
        {"a key of the whole text is a truth value", "width = 100; Out() { A(height: 7); }",
         "1x7  0,0 1x7"},
    };
    for (const auto& [words, text, places] : cases)
        EXPECT_EQ(CPlacesGenerator::PlacesOf(text), places) << words;
}

TEST(LargeTrees, AreSolvedWithoutRecursion)
{
    StringPool pool;
    CViewProxy root(nullptr, pool);
    CViewProxy* innermost = &root;
    for (int i = 0; i < 10000; ++i) {
        innermost->fMarginLeft = 1;
        innermost =
            innermost->fChildren.emplace_back(std::make_unique<CViewProxy>(nullptr, pool)).get();
    }
    for (int i = 0; i < 1000000; ++i)
        innermost->fChildren.emplace_back(std::make_unique<CViewProxy>(nullptr, pool))->fHeight =
            INT32_MAX;
    SolvePlacement(root);
    EXPECT_EQ(root.fWidth, 10000);
    EXPECT_EQ(root.fHeight, INT32_MAX) << "pinned";
    EXPECT_EQ(innermost->fChildren[1]->fTop, INT32_MAX);
    EXPECT_EQ(innermost->fChildHeightSum, 1000000LL * INT32_MAX);
    CRecordingGenerator generator;
    RealizeViews(root, generator);
    EXPECT_EQ(generator.fBuilt.size(), 1010001U);
}

} // namespace
