// Pages and their tabs.
#include "controls/control_panel.h"
#include "controls/registered_classes.h"
#include "controls/tabs/tabbed_pane.h"
#include "layout/build/layout_owner.h"
#include "support/testing.h"
#include "view/messages/key_codes.h"

using namespace Kesto;

namespace {

class Tabs : public testing::Test {
protected:
    CTabPane* AddPage(const char* title)
    {
        auto page = std::make_unique<CTabPane>(Rect{12, 38, 188, 88}, CObjID(), kView_Target);
        page->SetTitle(title);
        return tabs.AppendChild(std::move(page));
    }
    Point OnTab(std::size_t page) const
    {
        const Rect tab = tabs.TabRect(page);
        return {(tab.left + tab.right) / 2, (tab.top + tab.bottom) / 2};
    }

    ControlPanel panel;
    CTabbedPane& tabs = panel.Add<CTabbedPane>("tabs", {0, 0, 200, 100}, kView_TabStop);
    CTabPane* first = AddPage("First");
    CTabPane* second = AddPage("Second");
    CTabPane* third = AddPage("Third");
};

TEST_F(Tabs, OnePageShows)
{
    EXPECT_TRUE(first->IsVisible());
    EXPECT_FALSE(second->IsVisible());
    tabs.SetFront(2);
    tabs.SetFront(9);
    EXPECT_TRUE(third->IsVisible());
    EXPECT_FALSE(first->IsVisible());
    EXPECT_EQ(panel.Take(), "") << "quietly";
    tabs.RemoveChild(first);
    EXPECT_TRUE(third->IsVisible()) << "the same page, though its number is another";
    EXPECT_EQ(tabs.GetFront(), 1U);
    tabs.RemoveChild(third);
    EXPECT_TRUE(second->IsVisible());
    tabs.RemoveChild(second);
    EXPECT_FALSE(tabs.TabAt({5, 5}));
    panel.Click(5, 5);
}

TEST_F(Tabs, APressOnATabBringsItsPage)
{
    panel.Click(OnTab(1).x, OnTab(1).y);
    EXPECT_EQ(panel.Take(), "tabs phase=1 value=1 was=0");
    panel.Click(OnTab(1).x, OnTab(1).y);
    panel.Click(195, 5); // beside the tabs
    panel.Click(100, 60);
    third->Disable();
    panel.Click(OnTab(2).x, OnTab(2).y);
    EXPECT_EQ(panel.Take(), "");
    EXPECT_TRUE(second->IsVisible());
}

TEST_F(Tabs, KeysGoRoundThePagesThatCanBeUsed)
{
    ASSERT_TRUE(tabs.BecomeBullseye(false));
    constexpr std::uint32_t kControl = CMessage::kModifier_Control;
    constexpr std::uint32_t kShift = CMessage::kModifier_Shift;
    second->Disable();
    const struct {
        const char* what;
        std::uint32_t key, held;
        std::size_t from, to;
    } rows[] = {
        {"right, over one that is disabled", kKeyCode_Right, 0, 0, 2},
        {"right, round the end", kKeyCode_Right, 0, 2, 0},
        {"left", kKeyCode_Left, 0, 2, 0},
        {"home", kKeyCode_Home, 0, 2, 0},
        {"end", kKeyCode_End, 0, 0, 2},
        {"Control Tab", kKeyCode_Tab, kControl, 0, 2},
        {"Control Shift Tab", kKeyCode_Tab, kControl | kShift, 2, 0},
        {"Control PageDown", kKeyCode_PageDown, kControl, 0, 2},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        tabs.SetFront(row.from);
        EXPECT_TRUE(panel.Key(tabs, row.key, row.held));
        EXPECT_EQ(tabs.GetFront(), row.to);
    }
    tabs.SetFront(0);
    EXPECT_TRUE(panel.Key(*first, kKeyCode_Tab, kControl)) << "from within a page";
    EXPECT_EQ(tabs.GetFront(), 2U);
}

TEST_F(Tabs, TheFocusOfAPageThatGoesIsTheTabs)
{
    auto* const field =
        first->AppendChild(std::make_unique<CPane>(Rect{0, 0, 9, 9}, CObjID(), kView_TabStop));
    ASSERT_TRUE(field->BecomeBullseye(false));
    tabs.Choose(1);
    EXPECT_TRUE(tabs.IsBullseye());
}

TEST_F(Tabs, ManyTabsShareTheRow)
{
    for (int i = 0; i < 20; ++i)
        AddPage("Another page");
    double right = 0.0;
    for (std::size_t i = 0; i < tabs.CountChildren(); ++i) {
        SCOPED_TRACE(i);
        EXPECT_EQ(tabs.TabRect(i).left, right);
        right = tabs.TabRect(i).right;
        EXPECT_GT(right, tabs.TabRect(i).left);
    }
    EXPECT_LE(right, 200);
}

TEST(TabsLayout, ATextMakesPagesBehindEachOther)
{
    RegisterViewClasses();
    LayoutOwner owner;
    LoadLayoutFromText(
        owner, "PDialog() { CTabbedPane(view_id: 'pages', enclosure_index: 1) {"
               " CTabPane(title: 'Image') { CPane(width: 100, height: 20); }"
               " CTabPane(title: 'Alpha', view_id: 'alpha') { CPane(width: 80, height: 50); } } }");
    auto& tabs = dynamic_cast<CTabbedPane&>(*owner.fRootView->FindChild(CObjID("pages"), true));
    EXPECT_EQ(tabs.GetFrame().Width(), 124);
    EXPECT_EQ(tabs.GetFrame().Height(), 100);
    EXPECT_EQ(tabs.GetFront(), 1U);
    EXPECT_EQ(tabs.TitleOf(0), "Image");
    EXPECT_EQ(tabs.GetChild(1)->GetFrame(), (Rect{12, 38, 112, 88}));
}

} // namespace
