#include "view/tree/test_views.h"

using namespace Kesto;

namespace {

TEST_F(Tree, TheMouseIsOverTheFirstChildThatTakesIt)
{
    LoggedPane* const outer = Add("o", {10, 10, 110, 110});
    Add("front", {0, 0, 50, 50}, outer);
    LoggedPane* const back = Add("back", {20, 20, 80, 80}, outer);
    LoggedPane* const ignored = Add("ignored", {0, 0, 400, 300}, nullptr, kView_IgnoreMouseEvents);
    Add("below", {0, 0, 400, 300}, ignored);
    Take();
    const std::tuple<const char*, Point, const char*> cases[] = {
        {"in the one in front", {35, 35}, "front"},
        {"behind it", {75, 75}, "back"},
        {"right edges are outside", {60, 35}, "back"},
        {"left edges are inside", {10, 10}, "front"},
        {"around the children", {15, 100}, "o"},
        {"around all, and over one that is ignored", {200, 200}, "root"},
    };
    for (const auto& [what, at, found] : cases) {
        SCOPED_TRACE(what);
        EXPECT_EQ(root.ChildAtPoint(at)->GetID(), CObjID(found));
        Move(at.x, at.y);
        EXPECT_EQ(CView::MouseView()->GetID(), CObjID(found));
    }
    back->Hide();
    EXPECT_EQ(root.ChildAtPoint({75, 75}), outer);
}

// Children in a run are found without a look at each of them, and so are those to be drawn.
TEST_F(Tree, ManyChildrenAreFoundWhereTheyLie)
{
    constexpr int kCount = 40;
    const struct {
        const char* what;
        int perRow;
        double width, height; // of a step; a child is a unit smaller
    } cases[] = {{"down", 1, 30, 7}, {"across", kCount, 9, 30}, {"in a grid", 7, 40, 40}};
    for (const auto& row : cases) {
        SCOPED_TRACE(row.what);
        LoggedPane* const parent = Add("p", {5, 5, 395, 295});
        const auto frameOf = [&](int i) {
            const Point at{i % row.perRow * row.width, i / row.perRow * row.height};
            return Rect{at.x, at.y, at.x + row.width - 1, at.y + row.height - 1};
        };
        for (int i = 0; i < kCount; ++i)
            Add("c", frameOf(i), parent);
        const auto check = [&](const char* when) {
            SCOPED_TRACE(when);
            root.UpdateNow();
            for (double y = 0.5; y < 290; y += 3.1)
                for (double x = 0.5; x < 390; x += 4.3) {
                    CView* expected = parent;
                    for (std::size_t i = parent->CountChildren(); i-- > 0;)
                        if (const Rect frame = parent->GetChild(i)->GetFrame();
                            frame.left <= x && x < frame.right && frame.top <= y &&
                            y < frame.bottom)
                            expected = parent->GetChild(i);
                    ASSERT_EQ(parent->ChildAtPoint({x, y}), expected) << x << ", " << y;
                }
        };
        check("as made");
        parent->GetChild(20)->MoveBy(3, 4);
        check("one moved over another");
        parent->GetChild(20)->MoveBy(-3, -4);
        check("and back");
        parent->GetChild(3)->SetSize(200, 200);
        check("one in front of many");
        parent->GetChild(3)->Dispose();
        check("and gone");
        Add("late", frameOf(2), parent);
        check("one added behind");
        parent->ScrollBy(7, 6, false, false);
        check("all scrolled");
        parent->Dispose();
    }
}

TEST_F(Tree, EnteringAndLeavingAreToldOnce)
{
    LoggedPane* const a = Add("a", {0, 0, 50, 50});
    Add("inner", {10, 10, 20, 20}, a);
    Add("b", {50, 0, 100, 50});
    Take();
    Move(5, 5);
    Move(6, 6);
    EXPECT_EQ(Take(), "a:enter");
    Move(15, 15);
    EXPECT_EQ(Take(), "a:exit inner:enter a:enterChild");
    Move(60, 5);
    EXPECT_EQ(Take(), "inner:exit a:exitChild b:enter");
    root.GetChild(1)->Hide();
    EXPECT_EQ(Take(), "b:exit b:hidden");
    EXPECT_EQ(CView::MouseView(), nullptr);
}

TEST_F(Tree, ClicksAreCountedByPlaceTimeViewAndButton)
{
    const struct {
        const char* what;
        double x, y, after;
        const char* hooks;
    } steps[] = {
        {"the first", 20, 20, 0, "v:click"},
        {"2.9 away", 22.9, 17.1, 0.1, "v:multi2"},
        {"the third, at the last moment", 22.9, 17.1, 0.5, "v:multi3"},
        {"3.0 away", 25.9, 17.1, 0.1, "v:click"},
        {"too late", 25.9, 17.1, 0.51, "v:click"},
        {"on another view", 60, 20, 0.1, "w:click"},
    };
    Add("v", {0, 0, 50, 50});
    Add("w", {50, 0, 100, 50});
    Take();
    for (const auto& step : steps) {
        SCOPED_TRACE(step.what);
        now += step.after;
        Press(step.x, step.y);
        EXPECT_EQ(Take(), step.hooks);
        Release(step.x, step.y);
        Take();
    }
    Press(60, 20, kMouseButton_Context);
    Press(60, 20);
    EXPECT_EQ(Take(), "w:click") << "another button began a series of its own";
}

TEST_F(Tree, AMultiClickThatIsNotDealtWithIsAClick)
{
    Add("v", {0, 0, 50, 50})->eatsMultiClicks = false;
    Take();
    Press(5, 5);
    Press(5, 5);
    EXPECT_EQ(Take(), "v:click v:multi2 v:click");
}

TEST_F(Tree, ClicksThatAreCountedAtTheReleaseHaveTheirOwnTime)
{
    Add("v", {0, 0, 50, 50}, nullptr, kView_MultiOnMouseUp);
    Take();
    const struct {
        const char* what;
        double after;
        bool press;
        const char* hooks;
    } steps[] = {
        {"the first press", 0, true, "v:click"},
        {"its release", 0.1, false, "v:up"},
        {"the second press", 0.2, true, "v:click"},
        {"its release, in the grace", 0.65, false, "v:up v:multi2"},
        {"a third release counts on", 0.1, false, "v:up v:multi3"},
        {"a press that is too late", 0.6, true, "v:click"},
        {"and its release, beyond the grace", 0.75, false, "v:up"},
    };
    for (const auto& step : steps) {
        SCOPED_TRACE(step.what);
        now += step.after;
        step.press ? Press(5, 5) : Release(5, 5);
        EXPECT_EQ(Take(), step.hooks);
    }
}

TEST_F(Tree, APressAsksWhoeverHasTheFocus)
{
    LoggedPane* const field = Add("field", {0, 0, 50, 50}, nullptr, kView_TabStop);
    const struct {
        const char* what;
        std::uint32_t options;
        bool refuses;
        const char* hooks;
        bool fieldKeeps;
    } cases[] = {
        {"a plain view and a good field", 0, false, "field:asked v:click", true},
        {"a plain view and a bad field", 0, true, "field:asked", true},
        {"one that asks nobody", kView_SupressSurrenders, true, "v:click", true},
        {"one that takes the focus from a good field", kView_Bullseye, false, "field:asked v:click",
         false},
        {"one that would, from a bad field", kView_Bullseye, true, "field:asked", true},
        {"one that takes it by force", kView_Bullseye | kView_SupressSurrenders, true,
         "field:asked v:click", false},
        {"one that could, but not by a click", kView_Bullseye | kView_NoFocusOnClick, false,
         "field:asked v:click", true},
        {"a disabled one", kView_Bullseye | kView_Disabled, true, "", true},
        {"the context button as a click", kView_ContextClick, false, "field:asked v:click", true},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.what);
        LoggedPane* const view = Add("v", {50, 0, 100, 50}, nullptr, row.options);
        field->surrenders = true;
        ASSERT_TRUE(field->BecomeBullseye(true));
        field->surrenders = !row.refuses;
        Take();
        Press(60, 10,
              (row.options & kView_ContextClick) != 0 ? kMouseButton_Context
                                                      : kMouseButton_Primary);
        EXPECT_EQ(Take(), row.hooks);
        EXPECT_EQ(field->IsBullseye(), row.fieldKeeps);
        view->Dispose();
    }
}

TEST_F(Tree, TheWheelClimbsAndTheReleaseGoesToWhoWasPressed)
{
    struct Wheeled : CPane {
        using CPane::CPane;
        bool MouseWheel(const CMouseEvent& event) override
        {
            turned += event.fWheel.y;
            return true;
        }
        double turned = 0;
    };
    Wheeled* const outer = root.AppendChild(std::make_unique<Wheeled>(Rect{0, 0, 50, 50}));
    Add("inner", {0, 0, 20, 20}, outer);
    CMouseEvent event = At(5, 5);
    event.fWheel = {0, -2};
    EXPECT_TRUE(root.DispatchMouse(event));
    EXPECT_EQ(outer->turned, -2);
    event.fPortPoint = {300, 200};
    EXPECT_FALSE(root.DispatchMouse(event));
    Take();
    Press(5, 5);
    Release(300, 200);
    EXPECT_EQ(Take(), "inner:click inner:up");
}

} // namespace
