#include "view/tree/test_views.h"

using namespace Kesto;

namespace {

TEST_F(Tree, AChildKeepsItsOwnWishThroughChangesAbove)
{
    CPane* const parent = Add("p", {0, 0, 100, 100});
    CPane* const wishes[] = {Add("a", {0, 0, 10, 10}, parent),
                             Add("h", {0, 0, 10, 10}, parent, kView_Invisible),
                             Add("d", {0, 0, 10, 10}, parent, kView_Disabled)};
    EXPECT_EQ(Take(), "p:shown a:shown d:shown");
    parent->Hide();
    EXPECT_EQ(Take(), "p:hidden a:hidden d:hidden");
    parent->Show();
    EXPECT_EQ(Take(), "p:shown a:shown d:shown");
    EXPECT_FALSE(wishes[1]->IsVisible());
    wishes[1]->Show();
    EXPECT_EQ(Take(), "h:shown");
    parent->SetEnabled(false);
    EXPECT_EQ(Take(), "p:disabled a:disabled h:disabled");
    EXPECT_TRUE(wishes[0]->IsEnabled() && !wishes[0]->IsUsable());
    parent->SetEnabled(true);
    EXPECT_EQ(Take(), "p:enabled a:enabled h:enabled");
    EXPECT_FALSE(wishes[2]->IsUsable());
}

TEST_F(Tree, ATreeThatIsAttachedTakesOverTheStateAboveAndLosesItAgain)
{
    auto made = std::make_unique<LoggedPane>(*this, "m", Rect{0, 0, 50, 50}, 0U, 0U);
    CPane* const leaf = Add("leaf", {0, 0, 10, 10}, made.get());
    EXPECT_FALSE(leaf->IsVisible() || leaf->IsUsable());
    EXPECT_EQ(leaf->GetContext(), nullptr);
    root.Activate();
    root.SetHot(true);
    CPane* const inside = root.AppendChild(std::move(made));
    EXPECT_TRUE(leaf->IsVisible() && leaf->IsUsable() && leaf->IsActive() && leaf->IsHot());
    EXPECT_EQ(leaf->GetContext(), &root);
    root.SetDragged(true);
    EXPECT_TRUE(leaf->IsDragged() && !leaf->IsHot()) << "one of the two at a time";
    root.ClearHover();
    EXPECT_TRUE(leaf->IsIdle());
    const std::unique_ptr<CPane> out = root.RemoveChild(inside);
    ASSERT_EQ(out.get(), inside);
    EXPECT_FALSE(leaf->IsVisible() || leaf->IsUsable() || leaf->IsActive());
    EXPECT_EQ(leaf->GetContext(), nullptr);
    EXPECT_EQ(root.RemoveChild(inside), nullptr) << "no child any more";
}

TEST_F(Tree, ChildrenStandWhereTheyArePut)
{
    const auto order = [&] {
        std::string names;
        for (std::size_t i = 0; i < root.CountChildren(); ++i)
            names += static_cast<LoggedPane*>(root.GetChild(i))->Name();
        return names;
    };
    const auto make = [&](const char* name) {
        return std::make_unique<LoggedPane>(*this, name, Rect{0, 0, 10, 10}, 0U, 0U);
    };
    Add("b", {0, 0, 10, 10});
    root.PrependChild(make("a"));
    root.InsertChild(99, make("d"));
    root.InsertChild(2, make("c"));
    root.InsertChild(0, nullptr);
    EXPECT_EQ(order(), "abcd");
    EXPECT_EQ(root.GetChild(4), nullptr);
    CPane* const deep = Add("deep", {0, 0, 5, 5}, root.GetChild(1));
    EXPECT_EQ(root.FindChild(CObjID("deep"), true), deep);
    EXPECT_EQ(root.FindChild(CObjID("deep"), false), nullptr);
    EXPECT_EQ(root.GetChild(0)->FindSibling(CObjID("deep"), true), deep);
    EXPECT_EQ(root.FindMessenger(CObjID("deep")), deep);
}

TEST_F(Tree, EachTargetOptionImpliesTheOnesBeforeIt)
{
    const struct {
        const char* what;
        std::uint32_t options;
        bool target, bullseye, tabStop;
    } cases[] = {{"none", kView_NoOptions, false, false, false},
                 {"target", kView_Target, true, false, false},
                 {"bullseye", kView_Bullseye, true, true, false},
                 {"tab stop", kView_TabStop, true, true, true}};
    for (const auto& row : cases) {
        SCOPED_TRACE(row.what);
        CPane* const made = Add("v", {0, 0, 10, 10}, nullptr, row.options);
        CPane* const set = Add("v", {0, 0, 10, 10});
        set->SetTargetOptions((row.options & kView_Target) != 0,
                              (row.options & kView_Bullseye) != 0,
                              (row.options & kView_TabStop) != 0);
        for (const CPane* const view : {made, set}) {
            EXPECT_EQ(view->WantsTarget(), row.target);
            EXPECT_EQ(view->WantsBullseye(), row.bullseye);
            EXPECT_EQ(view->IsTabStop(), row.tabStop);
            EXPECT_EQ(view->CanBullseye(), row.bullseye);
        }
        made->Hide();
        set->Disable();
        EXPECT_FALSE(made->CanTarget() || set->CanTarget());
    }
}

TEST_F(Tree, CursorsAndTipsAreTheParentsUntilTheyAreSet)
{
    CPane* const parent = Add("p", {0, 0, 100, 100});
    CPane* const child = Add("c", {0, 0, 50, 50}, parent);
    EXPECT_EQ(child->GetCursor(), nullptr);
    EXPECT_TRUE(child->GetTip().IsEmpty());
    const Platform::Cursor hand(Platform::CursorShape::kHand);
    const Platform::Cursor text(Platform::CursorShape::kText);
    parent->SetCursor(hand, true);
    parent->SetCursor(text, false);
    parent->SetTip("usable", true);
    parent->SetTip("not usable", false);
    EXPECT_EQ(*child->GetCursor(), hand);
    EXPECT_EQ(child->GetTip(), CText("usable"));
    child->SetTip("own", true);
    EXPECT_EQ(child->GetTip(), CText("own"));
    EXPECT_FALSE(child->HasTip(false) || child->HasCursor(true));
    child->Disable();
    EXPECT_EQ(*child->GetCursor(), text);
    EXPECT_EQ(child->GetTip(), CText("not usable"));
}

TEST_F(Tree, AChangeOfScaleReachesTheLeavesFirstAndInvalidatesOnce)
{
    struct Scaled : CPane {
        Scaled(std::string& log, const char* name) : CPane({0, 0, 10, 10}), fLog(log), fName(name)
        {
        }
        void UIScaleChanged() override { fLog += fName; }
        std::string& fLog;
        const char* fName;
    };
    CPane* const parent = root.AppendChild(std::make_unique<Scaled>(log, "p"));
    parent->AppendChild(std::make_unique<Scaled>(log, "a"));
    parent->AppendChild(std::make_unique<Scaled>(log, "b"));
    root.UpdateNow();
    log.clear();
    root.DoScaleChanged(false);
    EXPECT_EQ(log, "abp");
    EXPECT_TRUE(root.GetInvalid().IsEmpty());
    root.ChangeScale(2.0);
    EXPECT_EQ(root.GetInvalid().GetBounds(), (PixelRect{0, 0, 800, 600}));
}

} // namespace
