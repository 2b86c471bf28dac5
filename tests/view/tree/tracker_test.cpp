#include "view/tree/test_views.h"

#include "view/tree/view_tracker.h"

using namespace Kesto;

namespace {

// Writes down each step, with the place in the port.
class LoggedTracker : public CNonPollingTracker {
public:
    LoggedTracker(CView& view, const CMouseEvent& press, Tree& tree)
        : CNonPollingTracker(view, press), fTree(tree)
    {
    }
    void Begin(const CMouseEvent& event) override { Say("begin", event); }
    void MoveTo(const CMouseEvent& event) override { Say("move", event); }
    void End(const CMouseEvent& event) override { Say("end", event); }
    void Abort() override { fTree.log += " abort"; }
    void DrawFeedback(CSystemPort& port) override
    {
        port.Paint(Rect{0, 0, 2, 2}, Colour{255, 0, 0});
    }

private:
    void Say(const char* what, const CMouseEvent& event)
    {
        fTree.log += std::string(" ") + what + std::to_string(static_cast<int>(event.fPortPoint.x));
    }

    Tree& fTree;
};

class Trackers : public Tree {
public:
    Trackers()
    {
        view = Add("v", {0, 0, 50, 50});
        view->AddTracker(kMouseButton_Primary, [this](const CMouseEvent& press) {
            return std::make_unique<LoggedTracker>(*view, press, *this);
        });
        Add("w", {50, 0, 100, 50});
        Take();
    }
    LoggedPane* view;
};

TEST_F(Trackers, HaveTheMouseFromThePressToTheRelease)
{
    Press(10, 10);
    Release(10, 10);
    EXPECT_EQ(Take(), "begin10 end10") << "a click without a turn between";
    now += 1.0; // a click of its own
    Press(10, 10);
    Move(60, 10);
    Press(60, 10, kMouseButton_Context);
    Release(60, 10, kMouseButton_Context);
    EXPECT_NE(root.GetTracker(), nullptr) << "another button";
    Release(70, 10);
    EXPECT_EQ(Take(), "begin10 move60 end70") << "no other view was told";
    EXPECT_EQ(root.GetTracker(), nullptr);
    Move(60, 10);
    EXPECT_EQ(Take(), "w:enter");
}

TEST_F(Trackers, AreBrokenOffOnce)
{
    const std::pair<const char*, std::function<void()>> ways[] = {
        {"by Escape", [this] { root.BreakOffTracker(); }},
        {"by another window that takes the mouse", [this] { root.GetTracker()->CaptureLost(); }},
        {"by the end of the view", [this] { view->Dispose(); }},
    };
    for (const auto& [what, end] : ways) {
        SCOPED_TRACE(what);
        now += 1.0;
        Press(10, 10);
        end();
        EXPECT_EQ(Take().substr(0, 13), "begin10 abort");
        EXPECT_FALSE(root.BreakOffTracker());
    }
}

TEST_F(Trackers, DrawOverTheTree)
{
    Press(10, 10);
    root.InvalidateAll();
    root.UpdateNow();
    EXPECT_EQ(PixelAt(0, 0), 0x0000FFU);
}

TEST_F(Trackers, GesturesAreFoundByTheirCodes)
{
    view->AddGesture(3, 0);
    view->AddGesture(-1, -1);
    view->AddRotateGesture(0.5F);
    view->AddMagnifyGesture(2.0F);
    const struct {
        const char* what;
        std::uint32_t kind, detail;
        bool found;
    } cases[] = {
        {"to the right", CGesture::kKind_Swipe, 2, true},
        {"to the upper left", CGesture::kKind_Swipe, 7, true},
        {"a swipe that isn't there", CGesture::kKind_Swipe, 0, false},
        {"a turn", CGesture::kKind_Rotate, 0, true},
        {"a pinch", CGesture::kKind_Magnify, 0, true},
        {"a tracker of its button", CGesture::kKind_Tracker, kMouseButton_Primary.Value(), true},
        {"of another", CGesture::kKind_Tracker, kMouseButton_Context.Value(), false}};
    for (const auto& row : cases)
        EXPECT_EQ(view->GetTrackerForCodes(row.kind, row.detail) != nullptr, row.found) << row.what;
    view->ClearTrackers();
    EXPECT_EQ(view->GetTrackerForCodes(CGesture::kKind_Rotate, 0), nullptr);
}

} // namespace
