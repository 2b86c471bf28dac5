#include "support/testing.h"
#include "view/test_messengers.h"

using namespace Kesto;

namespace {

// The process P, a window w, and below it the path a, b, c with the bullseye c, and beside it x
// with y.
class FocusTest : public testing::Test {
protected:
    FocusTest()
    {
        c->BecomeBullseye(false);
        Node::TakeLog();
    }

    // The path from the top down, as the links and flags have it; "|" stands before what isn't on
    // it any more.
    std::string Path() const
    {
        std::string path;
        for (const CMessenger* at = &process; at != nullptr; at = at->TargetMessenger())
            path +=
                (at->IsTarget() ? "" : "|") + at->GetID().Name() + (at->IsBullseye() ? "!" : "");
        return path;
    }

    NotingProcess process;
    Node w{"w", &process};
    std::unique_ptr<Node> a = std::make_unique<Node>("a", &w);
    std::unique_ptr<Node> b = std::make_unique<Node>("b", a.get());
    std::unique_ptr<Node> c = std::make_unique<Node>("c", b.get());
    Node x{"x", &w};
    Node y{"y", &x};
};

TEST_F(FocusTest, ARefusalAtAnyDepthStopsTheMoveUnlessItIsForced)
{
    // What follows the questions when the move takes place.
    const std::string moves = "c-B c-T b-T a-T x+T y+T y+B yo yc xo xc wo wc Po Pc ";
    const struct {
        const char* what;
        Node* refuses;
        bool force;
        std::string log, path;
    } cases[] = {
        {"the top refuses", a.get(), false, "a? ", "Pwabc!"},
        {"the middle refuses", b.get(), false, "a? b? ", "Pwabc!"},
        {"the bullseye refuses", c.get(), false, "a? b? c? ", "Pwabc!"},
        {"nobody refuses", nullptr, false, "a? b? c? " + moves, "Pwxy!"},
        {"the top refuses in vain", a.get(), true, "a? b? c? " + moves, "Pwxy!"},
        {"the middle refuses in vain", b.get(), true, "a? b? c? " + moves, "Pwxy!"},
        {"the bullseye refuses in vain", c.get(), true, "a? b? c? " + moves, "Pwxy!"},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.what);
        c->BecomeBullseye(true);
        for (Node* const node : {a.get(), b.get(), c.get()})
            node->fRefuses = node == row.refuses;
        Node::TakeLog();
        EXPECT_EQ(y.BecomeBullseye(row.force), row.path == "Pwxy!");
        EXPECT_EQ(Node::TakeLog(), row.log);
        EXPECT_EQ(Path(), row.path);
        EXPECT_EQ(CMessenger::GetBullseye()->GetID().Name(),
                  row.path.substr(row.path.size() - 2, 1));
        EXPECT_EQ(a->IsTarget(), row.path == "Pwabc!");
    }
}

TEST_F(FocusTest, WhatHasResignedBeforeARefusalFurtherUpStaysResigned)
{
    Node deaf("d", nullptr, Node::kCanBullseye);
    w.SetParentMessenger(&deaf);
    EXPECT_FALSE(w.BecomeBullseye(false));
    EXPECT_EQ(Node::TakeLog(), "a? b? c? c-B c-T b-T a-T ");
    EXPECT_TRUE(w.IsTarget() && !w.IsBullseye());
    EXPECT_EQ(w.TargetMessenger(), a.get());
    EXPECT_EQ(CMessenger::GetBullseye(), &process);
    w.SetParentMessenger(&process);
}

TEST_F(FocusTest, AContainerLeadsBackToItsLastBullseye)
{
    ASSERT_TRUE(y.BecomeBullseye(false));
    EXPECT_EQ(a->FindBullseye(), c.get());
    c->SetCanBullseye(false);
    EXPECT_EQ(a->FindBullseye(), b.get()) << "the deepest that can be it";
    c->SetCanBullseye(true);
    for (const char* const what : {"it comes back", "it is on the path already"}) {
        SCOPED_TRACE(what);
        EXPECT_TRUE(a->BecomeBullseyeIfPossible(false));
        EXPECT_EQ(Path(), "Pwabc!");
    }
    x.SetCanBullseye(false);
    EXPECT_TRUE(x.BecomeBullseye(false));
    Node::TakeLog();
    EXPECT_TRUE(x.BecomeBullseye(false));
    EXPECT_EQ(Path(), "Pwxy!");
    EXPECT_EQ(Node::TakeLog(), "") << "it leads the keyboard already";
}

TEST_F(FocusTest, OneThatMayNotBeTheBullseyeIsPassedOverOnTheWayUp)
{
    b->SetCanBullseye(false);
    c->fRefuses = true;
    Node::TakeLog();
    EXPECT_FALSE(c->ResignBullseye(false));
    EXPECT_EQ(Path(), "Pwabc!");
    c->SetCanTarget(false); // by force
    EXPECT_EQ(Path(), "Pwa!");
    EXPECT_EQ(Node::TakeLog(), "b? c? b? c? c-B c-T b-T a+B ao ac wo wc Po Pc c!b c!t ");
    c->SetCanTarget(true);
    EXPECT_EQ(Node::TakeLog(), "ct cb ");
}

TEST_F(FocusTest, TheProcessIsTheLastResort)
{
    for (Node* const node : {&w, a.get(), b.get(), c.get()})
        node->SetCanBullseye(false);
    EXPECT_EQ(CMessenger::GetBullseye(), &process);
    EXPECT_EQ(Path(), "P!");
    EXPECT_FALSE(c->BecomeBullseyeIfPossible(true));
    EXPECT_EQ(x.GetOwnerWindowOrActive(), Platform::FrontmostWindow());
}

TEST_F(FocusTest, SurrenderAsksTheBullseyeAlone)
{
    c->fRefuses = true;
    EXPECT_FALSE(CMessenger::Surrender(false));
    EXPECT_EQ(Node::TakeLog(), "c? ");
    c.reset();
    EXPECT_TRUE(CMessenger::Surrender(false));
    EXPECT_EQ(b->TargetMessenger(), nullptr);
    EXPECT_EQ(CMessenger::GetBullseye(), &process);
}

TEST_F(FocusTest, WhoeverDiesInAHookEndsTheMoveThatLedToIt)
{
    auto target = std::make_unique<Node>("t", &x);
    c->fWhenLost = [&target] { target.reset(); };
    EXPECT_FALSE(target->BecomeBullseye(false));
    EXPECT_EQ(Path(), "Pw|x");

    auto parent = std::make_unique<Node>("p", &w);
    auto child = std::make_unique<Node>("q", parent.get());
    ASSERT_TRUE(child->BecomeBullseye(false));
    child->fWhenLost = [&] {
        child.reset();
        parent.reset();
    };
    EXPECT_TRUE(y.BecomeBullseye(false));
    EXPECT_EQ(Path(), "Pwxy!");

    auto late = std::make_unique<Node>("l", a.get());
    a->fWhenTarget = [&late] { late.reset(); };
    EXPECT_FALSE(late->BecomeBullseye(false)) << "its parent's turn was its end";
}

TEST_F(FocusTest, AChildThatIsMovedAwayInAHookIsNobodysTarget)
{
    const std::pair<const char*, std::function<void()>*> hooks[] = {
        {"the old bullseye loses the focus", &c->fWhenLost},
        {"the parent becomes a target", &x.fWhenTarget}};
    for (const auto& [what, hook] : hooks) {
        SCOPED_TRACE(what);
        ASSERT_TRUE(c->BecomeBullseye(true));
        auto moved = std::make_unique<Node>("m", &x);
        *hook = [&] { moved->SetParentMessenger(&w); };
        EXPECT_FALSE(moved->BecomeBullseye(true));
        *hook = nullptr;
        EXPECT_FALSE(moved->IsTarget());
        moved.reset();
        EXPECT_EQ(x.TargetMessenger(), nullptr);
        EXPECT_TRUE(y.BecomeBullseye(true)) << "the path can be led there again";
    }
}

TEST_F(FocusTest, WhoeverLeavesThePathLeavesNothingBehind)
{
    const struct {
        const char* what;
        CMessenger* leaves;
        std::uint32_t above; // abilities that those above it keep
        bool takesBack;      // a hook asks for the focus again
        std::string path;
    } cases[] = {
        {"the bullseye", c.get(), Node::kBoth, false, "Pwab!"},
        {"the middle of the path", a.get(), Node::kBoth, false, "Pw!"},
        {"the last target of one that is off the path", &y, Node::kBoth, false, "Pwabc!"},
        {"nobody above can be the bullseye", c.get(), Node::kCanTarget, false, "P!"},
        {"a hook takes the focus back", c.get(), Node::kBoth, true, "Pwab!"},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.what);
        ASSERT_TRUE(y.BecomeBullseye(true) && c->BecomeBullseye(true));
        for (Node* const node : {&w, a.get(), b.get()})
            node->SetCanBullseye((row.above & Node::kCanBullseye) != 0);
        if (row.takesBack)
            c->fWhenLost = [this] { c->BecomeBullseye(true); };
        EXPECT_TRUE(row.leaves->LeavePath());
        EXPECT_EQ(Path(), row.path);
        for (CMessenger* const node : {row.leaves, static_cast<CMessenger*>(c.get())})
            EXPECT_EQ(node->IsTarget() || node->IsBullseye(), row.leaves == &y && node == c.get())
                << node->GetID().Name();
        EXPECT_NE(row.leaves->ParentMessenger()->TargetMessenger(), row.leaves);
        for (Node* const node : {&w, a.get(), b.get()})
            node->SetCanBullseye(true);
    }
    c->fWhenLost = [this] { c.reset(); };
    ASSERT_TRUE(c->BecomeBullseye(true));
    EXPECT_FALSE(c->LeavePath()) << "it is destroyed as it loses the focus";
}

TEST(ObjectIDTest, EqualTextsHaveEqualIdsAndRangesStayApart)
{
    EXPECT_TRUE(CObjID(nullptr).IsNone());
    EXPECT_TRUE(CObjID("").IsNone());
    EXPECT_EQ(CObjID(std::string("kesto/default/ok").c_str()), CObjID("kesto/default/ok"));
    EXPECT_NE(CObjID("kesto/default/ok"), CObjID("Kesto/default/ok"));

    const CObjID third("Test/Items", 10, 3);
    EXPECT_EQ(third.Name(), "Test/Items+3");
    EXPECT_EQ(CObjID("Test/Items", 1, 4).Value(), third.Value() + 1);
    EXPECT_EQ(CObjID("Test/Behind").Value(), CObjID("Test/Items").Value() + 10);
    const CObjID separate("Test/Separate", 0x7FFFFFFF, 0, CObjID::Family::kSeparate);
    EXPECT_EQ(separate.Value(), 0x80000000);
    EXPECT_EQ(CObjID("Test/Last", 1, 0, CObjID::Family::kSeparate).Value(), 0xFFFFFFFF);
    EXPECT_THROW(CObjID("Test/NoMore", 1, 0, CObjID::Family::kSeparate), std::length_error);
    EXPECT_THROW(CObjID("Test/TooMany", 0x7FFFFFFF, 0), std::length_error);
    EXPECT_EQ(CObjID("Test/NoMore").Value(), CObjID("Test/Behind").Value() + 1);
}

} // namespace
