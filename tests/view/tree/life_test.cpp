#include "view/tree/test_views.h"

#include "view/tree/view_depth.h"
#include "view/tree/view_hold.h"

using namespace Kesto;

namespace {

// A pane all of whose hooks call back.
class Wired : public CPane {
public:
    using Call = std::function<void(Wired& pane, const std::string& hook)>;
    Wired(const Rect& frame, std::uint32_t options, std::uint32_t binding, Call& call)
        : CPane(frame, {}, options, binding), fCall(call)
    {
    }

    void DidShow() override { Tell("DidShow"); }
    void DidHide() override { Tell("DidHide"); }
    void DidEnable() override { Tell("DidEnable"); }
    void DidDisable() override { Tell("DidDisable"); }
    void DidActivate() override { Tell("DidActivate"); }
    void DidDeactivate() override { Tell("DidDeactivate"); }
    void DidChangeHover() override { Tell("DidChangeHover"); }
    void DidResize() override { Tell("DidResize"); }
    void ContextDidChange() override { Tell("ContextDidChange"); }
    void UIScaleChanged() override { Tell("UIScaleChanged"); }
    void PortOffset() override { Tell("PortOffset"); }
    void ScrollChanged(const Rect&, const Point&, const Point&, const Point&) override
    {
        Tell("ScrollChanged");
    }
    void MouseEnter(const CMouseEvent&) override { Tell("MouseEnter"); }
    void MouseExit() override { Tell("MouseExit"); }
    void MouseOver(const CMouseEvent&) override { Tell("MouseOver"); }
    void MouseEnterChild(CView&) override { Tell("MouseEnterChild"); }
    void MouseExit2(CView&) override { Tell("MouseExit2"); }
    void AdjustCursor(const CMouseEvent&) override { Tell("AdjustCursor"); }
    bool MouseWheel(const CMouseEvent&) override { return Tell("MouseWheel"); }
    void PrimaryClick(const CMouseEvent&) override { Tell("PrimaryClick"); }
    bool PrimaryMultiClick(const CMouseEvent&, int) override { return Tell("PrimaryMultiClick"); }
    void PrimaryUp(const CMouseEvent&) override { Tell("PrimaryUp"); }
    void SelectContents() override { Tell("SelectContents"); }
    void DrawInContext(const CPaintEvent&) override { Tell("DrawInContext"); }
    void DrawFrame() override { Tell("DrawFrame"); }
    void DrawFocusRing() override { Tell("DrawFocusRing"); }
    void DrawHighlight() override { Tell("DrawHighlight"); }
    void Idle() override { Tell("Idle"); }
    bool CanSurrender(bool) override { return !Tell("CanSurrender"); }
    bool HandleCommand(CCommandMessage&) override { return Tell("HandleCommand"); }
    bool HandleValue(CValueMessage&) override { return Tell("HandleValue"); }
    void OnTargetEnable() override { Tell("OnTargetEnable"); }
    void OnTargetDisable() override { Tell("OnTargetDisable"); }
    void OnBullseyeEnable() override { Tell("OnBullseyeEnable"); }
    void OnBullseyeDisable() override { Tell("OnBullseyeDisable"); }
    void OnBecameTarget() override { Tell("OnBecameTarget"); }
    void OnLostTarget() override { Tell("OnLostTarget"); }
    void TargetChanged() override { Tell("TargetChanged"); }
    void BullseyeLost() override { Tell("BullseyeLost"); }
    void OnUpdateOwn() override { Tell("OnUpdateOwn"); }
    void OnUpdateChain() override { Tell("OnUpdateChain"); }

private:
    // False, from a member: a pane that is gone is found out here.
    bool Tell(const char* hook)
    {
        fCall(*this, hook);
        return fAnswer;
    }

    Call& fCall;
    bool fAnswer = false;
};

// A pane with a child, inside another, through all that may happen to it.
void LiveALife(Tree& tree, Wired::Call& call)
{
    Wired::Call silence = [](Wired&, const std::string&) {};
    CPane* const outer =
        std::make_unique<Wired>(Rect{0, 0, 200, 200}, kView_Target, 0U, silence).release();
    const CViewHold hold(*outer);
    Wired* const view = outer->AppendChild(std::make_unique<Wired>(
        Rect{10, 10, 100, 100}, kView_TabStop | kView_TargetRing, kBind_Scrollable, call));
    const auto isThere = [&] { return !hold.IsOver() && outer->GetChild(0) == view; };
    CCommandMessage command(nullptr, CObjID("Test/Command"));
    CValueMessage value(nullptr, CObjID("Test/Value"));
    CMouseEvent wheel = tree.At(50, 50);
    wheel.fWheel = {0, 1};
    const std::function<void()> steps[] = {
        [&] { view->SetClient(CPane::kClient_Idle); },
        [&] {
            view->AppendChild(
                std::make_unique<Wired>(Rect{0, 0, 20, 20}, kView_TabStop, 0U, silence));
        },
        [&] { tree.root.AppendChild(std::unique_ptr<CPane>(outer)); },
        [&] { tree.root.Activate(); },
        [&] { view->SetImageExtent(500, 500); },
        [&] { view->ScrollBy(1, 1, true, false); },
        [&] { outer->MoveBoundsBy(1, 1); },
        [&] { tree.Move(50, 50); },
        [&] { tree.Move(12, 12); },
        [&] { tree.root.DispatchMouse(wheel); },
        [&] { tree.Press(50, 50); },
        [&] { tree.Press(50, 50); },
        [&] { tree.Release(50, 50); },
        [&] { view->SetDragged(true); },
        [&] { tree.Drawn(); },
        [&] { view->TabToNext(true); },
        [&] { view->Send(command); },
        [&] { view->Send(value); },
        [&] { tree.root.RunIdlePanes(); },
        [&] { view->DisposeContents(); },
        [&] {
            tree.Add("stop", {300, 0, 310, 10}, nullptr, kView_TabStop)->BecomeBullseye(true);
        },
        [&] { static_cast<LoggedPane*>(tree.root.GetChild(1))->TabToNext(true); },
        [&] { outer->Disable(); },
        [&] { outer->Enable(); },
        [&] { view->BecomeBullseye(true); },
        [&] { tree.Move(50, 50); },
        [&] { outer->Hide(); },
        [&] { outer->Show(); },
        [&] { tree.root.ChangeScale(1.5); },
        [&] { tree.root.ChangeScale(1.0); },
        [&] { tree.root.Deactivate(); },
        [&] {
            if (std::unique_ptr<CPane> out = outer->RemoveChild(view))
                out.release()->Dispose();
        },
    };
    for (const auto& step : steps)
        if (isThere())
            step();
    outer->Dispose();
    tree.root.DisposeContents();
}

// A view, its parent and its child end in each of the view's own hooks.
TEST_F(Tree, AnyHookMayEndAnyView)
{
    std::set<std::string> hooks;
    Wired::Call call = [&](Wired&, const std::string& hook) { hooks.insert(hook); };
    LiveALife(*this, call);
    EXPECT_EQ(hooks.size(), 41U) << "a step of the life is missing";
    enum class Who { kView, kParent, kChild };
    for (const std::string& hook : hooks)
        for (const Who who : {Who::kView, Who::kParent, Who::kChild}) {
            SCOPED_TRACE(hook + " ends number " + std::to_string(static_cast<int>(who)));
            bool done = false;
            call = [&](Wired& view, const std::string& called) {
                if (done || called != hook)
                    return;
                done = true;
                CView* const ended = who == Who::kView     ? &view
                                     : who == Who::kParent ? view.GetParent()
                                                           : view.GetChild(0);
                if (ended != nullptr)
                    ended->Dispose();
            };
            LiveALife(*this, call);
            EXPECT_TRUE(done);
            EXPECT_EQ(root.CountChildren(), 0U);
        }
}

TEST_F(Tree, HooksMayThrowWhileTheirViewGoes)
{
    int thrown = 0;
    bool throws = false;
    Wired::Call silence = [](Wired&, const std::string&) {};
    Wired::Call call = [&](Wired&, const std::string& hook) {
        if (!throws)
            return;
        ++thrown;
        throw std::runtime_error(hook);
    };
    const auto make = [](Wired::Call& what) {
        return std::make_unique<Wired>(Rect{0, 0, 50, 50}, kView_TabStop, kBind_Fixed, what);
    };
    CPane* const outer = root.AppendChild(make(silence));
    CPane* const view = outer->AppendChild(make(call));
    view->AppendChild(make(silence));
    root.Activate();
    view->BecomeBullseye(true);
    throws = true;
    EXPECT_THROW(outer->Dispose(), std::runtime_error);
    EXPECT_GT(thrown, 0);
    EXPECT_EQ(root.CountChildren(), 0U);
}

// Eats the notices that panes send when they go.
class Notices : public CContext {
public:
    using CContext::CContext;
    bool HandleCommand(CCommandMessage& message) override
    {
        const auto* const pane = dynamic_cast<LoggedPane*>(message.fSource);
        if (message.fID == kMessage_DisposePane && pane != nullptr)
            gone += pane->Name();
        return true;
    }
    std::string gone;
};

TEST_F(Tree, ATreeGoesFromItsLastLeafAndTellsAbove)
{
    Notices window({100, 100});
    CPane* const a = Add("a", {0, 0, 50, 50}, &window);
    Add("b", {0, 0, 10, 10}, a);
    Add("c", {0, 0, 10, 10}, Add("d", {0, 0, 10, 10}, a));
    a->Dispose();
    EXPECT_EQ(window.gone, "cdba");
    EXPECT_EQ(window.CountChildren(), 0U);
}

// However deep a tree is let grow, all that walks it comes back.
TEST_F(Tree, DepthIsBounded)
{
    CView* deepest = &root;
    for (int depth = 1; depth < kMaxViewDepth; ++depth)
        deepest = Add("p", {0, 0, 50, 50}, deepest, kView_DrawBuffer);
    EXPECT_THROW(Add("too deep", {0, 0, 50, 50}, deepest), std::logic_error);
    EXPECT_EQ(root.ChildAtPoint({5, 5}), deepest);
    EXPECT_NE(Drawn(), "");
    root.Disable();
    root.ChangeScale(2.0);
    EXPECT_FALSE(deepest->IsUsable());
    root.DisposeContents();

    auto tower = std::make_unique<CPane>(Rect{0, 0, 10, 10});
    for (int height = 1; height < kMaxViewDepth - 1; ++height) {
        SCOPED_TRACE(height);
        auto below = std::make_unique<CPane>(Rect{0, 0, 10, 10});
        below->AppendChild(std::move(tower));
        tower = std::move(below);
    }
    CPane* const top = Add("t", {0, 0, 10, 10});
    EXPECT_THROW(top->AppendChild(std::move(tower)), std::logic_error)
        << "it is counted to its leaf";
    EXPECT_EQ(top->CountChildren(), 0U);
}

TEST_F(Tree, TheMouseForgetsWhoeverGoes)
{
    CPane* const outer = Add("o", {0, 0, 50, 50});
    Add("i", {0, 0, 20, 20}, outer);
    Move(5, 5);
    Press(5, 5);
    EXPECT_NE(CView::MouseView(), nullptr);
    const CViewHold hold(*outer);
    outer->Dispose();
    EXPECT_EQ(CView::MouseView(), nullptr);
    EXPECT_EQ(CView::LastMouseDownView(), nullptr);
    EXPECT_TRUE(outer->IsDisposed() && hold.IsOver());
    outer->Dispose();
}

TEST_F(Tree, AHandlerMayEndItsViewAndTheMessageGoesOn)
{
    struct Fleeting : CPane {
        bool HandleCommand(CCommandMessage&) override
        {
            Dispose();
            return false;
        }
    };
    Notices window({100, 100});
    CPane* const parent = Add("p", {0, 0, 50, 50}, &window);
    CPane* const view = parent->AppendChild(std::make_unique<Fleeting>());
    CCommandMessage message(view, CObjID("Test/Command"));
    EXPECT_TRUE(view->Send(message)) << "by the window";
    EXPECT_EQ(message.fSource, nullptr);
}

TEST_F(Tree, PanesAreRegisteredWhileTheyAreInAContext)
{
    struct Idler : CPane {
        void Idle() override
        {
            ++turns;
            if (ends)
                Dispose();
        }
        int turns = 0;
        bool ends = false;
    };
    CPane* const outer = Add("o", {0, 0, 50, 50});
    Idler* const idler = outer->AppendChild(std::make_unique<Idler>());
    idler->SetClient(CPane::kClient_Idle | CPane::kClient_Keys);
    EXPECT_EQ(root.GetClients(CPane::kClient_Keys).size(), 1U);
    root.RunIdlePanes();
    outer->Hide();
    root.RunIdlePanes();
    EXPECT_EQ(idler->turns, 1) << "a hidden pane has none";
    const std::unique_ptr<CPane> out = root.RemoveChild(outer);
    EXPECT_TRUE(root.GetClients(CPane::kClient_Idle).empty());
    root.AppendChild(std::make_unique<Idler>())->SetClient(CPane::kClient_Idle);
    static_cast<Idler*>(root.GetChild(0))->ends = true;
    root.RunIdlePanes();
    EXPECT_TRUE(root.GetClients(CPane::kClient_Idle).empty());
}

} // namespace
