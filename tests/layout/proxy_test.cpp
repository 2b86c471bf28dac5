// What a view's keys become in its layout scope and its proxy.
#include "layout/recording_generator.h"
#include "layout/view_proxy.h"

#include <gtest/gtest.h>

using namespace Kesto;

namespace {

// Copies what stands in the view and the blocks around it, as a generator does, and keeps the layout scope's numbers.
class CNumbers : public CRecordingGenerator {
public:
    explicit CNumbers(const char* text, bool copies = true)
        : CRecordingGenerator(
              [this, copies](std::string_view name, CExpressionScope& properties, CExpressionScope& layout) {
                  for (const CExpressionScope* scope = &properties; copies && scope->Parent() != nullptr;
                       scope = scope->Parent())
                      for (LayoutKey key : {LayoutKey::kWidth, LayoutKey::kHorizontal, LayoutKey::kVertical,
                                            LayoutKey::kChildVertical, LayoutKey::kTopOutset})
                          if (const VexValue* value = scope->LayoutKeys().Has(key) ? scope->FindVariable(key) : nullptr)
                              layout.AddVariable(key, value->integer);
                  for (const char* key : {"width", "horizontal", "vertical", "top_outset", "alwaysL2R"}) {
                      std::int32_t number = 0;
                      if (layout.GetIntVariable(key, &number))
                          fFound.append(name)
                              .append(".")
                              .append(key)
                              .append("=")
                              .append(std::to_string(number))
                              .append(" ");
                  }
              })
    {
        Parse(text);
    }
    std::string fFound;
};

TEST(LayoutScopes, GetKeysOfTheRootAsTruthValues)
{
    EXPECT_EQ(CNumbers("width = 100; top_outset = 0; A();").fFound, "A.width=1 A.top_outset=0 ");
    EXPECT_EQ(CNumbers("A(){ width = 100; B(horizontal: align_right); }").fFound, "B.width=100 B.horizontal=5 ");
}

TEST(LayoutScopes, CountAnUndefinedKeyAsTrue)
{
    EXPECT_EQ(CNumbers("A(width: nothing + 1, alwaysL2R: 7);", false).fFound, "A.width=1 A.alwaysL2R=1 ");
}

TEST(LayoutScopes, InheritTheAlignmentForChildren)
{
    EXPECT_EQ(CNumbers("A(child_vertical: 5) { B(); C(vertical: 4) { D(); } }").fFound, "B.vertical=5 C.vertical=4 ");
}

// A proxy from the variables of a layout scope, as a generator leaves them.
class Proxies : public testing::Test {
protected:
    CViewProxy& Define(std::initializer_list<std::pair<const char*, std::int32_t>> numbers,
                       CViewProxy* parent = nullptr)
    {
        CRecordingGenerator::OnMeasure fill = [&](std::string_view, CExpressionScope&, CExpressionScope& layout) {
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

TEST_F(Proxies, ResolveMarginsFromTheWidestToTheNearest)
{
    const CViewProxy& proxy = Define({{"margin", 4}, {"margin_width", 6}, {"margin_left", 8}, {"margin_bottom", 0}});
    EXPECT_EQ(proxy.fMarginLeft, 8);
    EXPECT_EQ(proxy.fMarginRight, 6);
    EXPECT_EQ(proxy.fMarginTop, 4);
    EXPECT_EQ(proxy.fMarginBottom, 0);
}

TEST_F(Proxies, ResolveOutsets)
{
    const CViewProxy& proxy = Define({{"outset", 3}, {"top_outset", 5}});
    EXPECT_EQ(proxy.fLeftOutset, 3);
    EXPECT_EQ(proxy.fTopOutset, 5);
    EXPECT_EQ(proxy.fRightOutset, 3);
    EXPECT_EQ(proxy.fBottomOutset, 3);
}

TEST_F(Proxies, TakeTheCommonSpacingWhenTheyHaveNone)
{
    fProperties.AddVariable("gSpace", 12);
    EXPECT_EQ(Define({}).fSpacing, 12);
    EXPECT_EQ(Define({{"spacing", 0}}).fSpacing, 0);
}

TEST_F(Proxies, StretchWhatIsKeptOffTheScreen)
{
    CViewProxy& stack = Define({{"placement", kPlace_Offscreen}});
    EXPECT_EQ(stack.fChildHorizontal, kAlign_InFill);
    const CViewProxy& child = Define({}, &stack);
    EXPECT_EQ(child.fHorizontal, kAlign_InFill);
    EXPECT_EQ(child.fVertical, 0);
    EXPECT_EQ(Define({{"placement", kPlace_Offscreen}, {"child_horizontal", 2}}).fChildHorizontal, 2);
}

TEST_F(Proxies, HaveALabelWhenItsWidthIsGiven)
{
    EXPECT_FALSE(Define({}).fHasLabel);
    EXPECT_TRUE(Define({{"label_width", 0}}).fHasLabel);
}

TEST_F(Proxies, PassOverUndefinedNumbers)
{
    const CViewProxy& proxy = Define({{"width", VexUndefined}, {"margin", VexUndefined}});
    EXPECT_EQ(proxy.fWidth, 0);
    EXPECT_EQ(proxy.fMarginLeft, 0);
}

} // namespace
