// What a view's keys become in its layout scope and its proxy.
#include "layout/placement/view_proxy.h"
#include "layout/recording_generator.h"
#include "support/testing.h"

using namespace Kesto;

namespace {

// Parses a text with a generator that copies what stands in the view and the blocks around it, and
// tells the numbers that the layout scopes have.
std::string NumbersOf(const char* text, bool copies = true)
{
    std::string found;
    const auto measure = [&](std::string_view name, CExpressionScope& properties,
                             CExpressionScope& layout) {
        for (const CExpressionScope* scope = &properties; copies && scope->Parent() != nullptr;
             scope = scope->Parent())
            for (LayoutKey key : {LayoutKey::kWidth, LayoutKey::kHorizontal, LayoutKey::kVertical,
                                  LayoutKey::kChildVertical, LayoutKey::kTopOutset})
                if (const VexValue* value =
                        scope->LayoutKeys().Has(key) ? scope->FindVariable(key) : nullptr)
                    layout.AddVariable(key, value->integer);
        for (const char* key : {"width", "horizontal", "vertical", "top_outset", "alwaysL2R"}) {
            std::int32_t number = 0;
            if (layout.GetIntVariable(key, &number))
                found += std::string(name) + "." + key + "=" + std::to_string(number) + " ";
        }
    };
    CRecordingGenerator(measure).Parse(text);
    return found;
}

TEST(LayoutScopes, GetKeysOfTheRootAsTruthValuesAndInheritTheAlignmentForChildren)
{
    EXPECT_EQ(NumbersOf("width = 100; top_outset = 0; A();"), "A.width=1 A.top_outset=0 ");
    EXPECT_EQ(NumbersOf("A(){ width = 100; B(horizontal: align_right); }"),
              "B.width=100 B.horizontal=5 ");
    EXPECT_EQ(NumbersOf("A(width: nothing + 1, alwaysL2R: 7);", false), "A.width=1 A.alwaysL2R=1 ");
    EXPECT_EQ(NumbersOf("A(child_vertical: 5) { B(); C(vertical: 4) { D(); } }"),
              "B.vertical=5 C.vertical=4 ");
}

// A proxy from the variables of a layout scope, as a generator leaves them.
class Proxies : public testing::Test {
protected:
    using Numbers = std::vector<std::pair<const char*, std::int32_t>>;

    CViewProxy& Define(const Numbers& numbers, CViewProxy* parent = nullptr)
    {
        CRecordingGenerator::OnMeasure fill = [&](std::string_view, CExpressionScope&,
                                                  CExpressionScope& layout) {
            for (const auto& [name, number] : numbers)
                layout.AddVariable(name, number);
        };
        CRecordingGenerator generator(fill);
        fProxies.push_back(std::make_unique<CViewProxy>(parent, fPool));
        fProxies.back()->Define("A", fProperties, generator);
        return *fProxies.back();
    }

    StringPool fPool;
    CExpressionScope fProperties;
    ViewProxyList fProxies;
};

TEST_F(Proxies, ResolveNumbersFromTheWidestToTheNearest)
{
    using P = CViewProxy;
    const std::pair<Numbers, std::vector<std::pair<std::int32_t P::*, std::int32_t>>> cases[] = {
        {{{"margin", 4}, {"margin_width", 6}, {"margin_left", 8}, {"margin_bottom", 0}},
         {{&P::fMarginLeft, 8},
          {&P::fMarginRight, 6},
          {&P::fMarginTop, 4},
          {&P::fMarginBottom, 0}}},
        {{{"outset", 3}, {"top_outset", 5}},
         {{&P::fLeftOutset, 3},
          {&P::fTopOutset, 5},
          {&P::fRightOutset, 3},
          {&P::fBottomOutset, 3}}},
        {{{"margin", 4}, {"margin_width", 6}, {"margin_height", 7}},
         {{&P::fMarginLeft, 6},
          {&P::fMarginRight, 6},
          {&P::fMarginTop, 7},
          {&P::fMarginBottom, 7}}},
        {{}, {{&P::fSpacing, 12}}},
        {{{"spacing", 0}}, {{&P::fSpacing, 0}}},
        {{{"width", VexUndefined}, {"margin", VexUndefined}},
         {{&P::fWidth, 0}, {&P::fMarginLeft, 0}}},
        {{{"placement", kPlace_Offscreen}, {"child_horizontal", 2}}, {{&P::fChildHorizontal, 2}}},
    };
    fProperties.AddVariable("gSpace", 12);
    for (const auto& [numbers, fields] : cases) {
        const CViewProxy& proxy = Define(numbers);
        for (const auto& [field, value] : fields)
            EXPECT_EQ(proxy.*field, value) << (numbers.empty() ? "no keys" : numbers[0].first);
    }
    EXPECT_FALSE(Define({}).fHasLabel);
    EXPECT_TRUE(Define({{"label_width", 0}}).fHasLabel);
}

TEST_F(Proxies, StretchWhatIsKeptOffTheScreen)
{
    CViewProxy& stack = Define({{"placement", kPlace_Offscreen}});
    EXPECT_EQ(stack.fChildHorizontal, kAlign_InFill);
    const CViewProxy& child = Define({}, &stack);
    EXPECT_EQ(child.fHorizontal, kAlign_InFill);
    EXPECT_EQ(child.fVertical, 0);
}

} // namespace
