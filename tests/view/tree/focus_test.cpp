#include "view/tree/test_views.h"

using namespace Kesto;

namespace {

CKeyboardMessage Tab(bool shift, CObjID id = kMessage_KeyDown)
{
    CKeyboardMessage message(nullptr, id, 9, 9);
    message.fModifiers = shift ? CMessage::kModifier_Shift : 0;
    return message;
}

std::string NameOf(CView* view)
{
    auto* const pane = dynamic_cast<LoggedPane*>(view);
    return pane != nullptr ? pane->Name() : view != nullptr ? "root" : "none";
}

// a, b(c, d, e), f, g: b is a stop with stops below it, g is none.
class Tabs : public Tree {
public:
    LoggedPane* a = Add("a", {0, 0, 10, 10}, nullptr, kView_TabStop);
    LoggedPane* b = Add("b", {0, 10, 50, 60}, nullptr, kView_TabStop);
    LoggedPane* c = Add("c", {0, 0, 10, 10}, b, kView_TabStop);
    LoggedPane* d = Add("d", {0, 10, 10, 20}, b, kView_TabStop | kView_Disabled);
    LoggedPane* e = Add("e", {0, 20, 10, 30}, b, kView_TabStop);
    LoggedPane* f = Add("f", {0, 60, 10, 70}, nullptr, kView_TabStop | kView_Invisible);
    LoggedPane* g = Add("g", {0, 70, 10, 80}, nullptr, kView_Bullseye);
};

TEST_F(Tabs, StopsFollowInPreOrderAndWrap)
{
    EXPECT_EQ(NameOf(root.FirstTabStop()), "a");
    EXPECT_EQ(NameOf(b->FirstTabStop()), "b");
    EXPECT_EQ(NameOf(b->FirstTabStopOrSelf()), "c");
    EXPECT_EQ(NameOf(a->FirstTabStopOrSelf()), "a");
    EXPECT_EQ(NameOf(root.LastTabStop()), "e");
    const struct {
        CView* from;
        CView* after; // a child of it, or null
        const char *next, *previous;
    } cases[] = {
        {a, nullptr, "b", "e"}, {b, nullptr, "c", "a"}, {c, nullptr, "e", "b"},
        {e, nullptr, "a", "c"}, {g, nullptr, "a", "e"}, {b, c, "e", "b"},
        {b, e, "a", "c"},       {&root, b, "a", "a"},   {&root, nullptr, "a", "e"},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(NameOf(row.from) + " " + NameOf(row.after));
        EXPECT_EQ(NameOf(row.from->NextTabStop(row.after, true)), row.next);
        EXPECT_EQ(NameOf(row.from->NextTabStop(row.after, false)), row.previous);
    }
    b->Hide();
    EXPECT_EQ(NameOf(g->NextTabStop(nullptr, true)), "a");
    EXPECT_EQ(NameOf(a->NextTabStop(nullptr, true)), "none") << "nor itself";
}

TEST_F(Tabs, TheTabKeyMovesTheFocusAndNothingElse)
{
    ASSERT_TRUE(a->BecomeBullseye(true));
    Take();
    CKeyboardMessage forward = Tab(false);
    EXPECT_TRUE(a->Send(forward));
    EXPECT_TRUE(b->IsBullseye());
    EXPECT_EQ(Take(), "a:asked a:asked b:select") << "once by the key, once by the move";
    CKeyboardMessage character = Tab(false, kMessage_KeyChar);
    EXPECT_TRUE(b->Send(character)) << "the rest of the press";
    CKeyboardMessage backward = Tab(true);
    EXPECT_TRUE(b->Send(backward));
    EXPECT_TRUE(a->IsBullseye());
    a->surrenders = false;
    EXPECT_TRUE(a->Send(forward));
    EXPECT_TRUE(a->IsBullseye()) << "it refuses";
    for (const std::uint32_t modifier : {CMessage::kModifier_Control, CMessage::kModifier_Alt}) {
        CKeyboardMessage other = Tab(false);
        other.fModifiers = modifier;
        EXPECT_FALSE(a->Send(other)) << modifier;
    }
    a->SetNoTabNavigate(true);
    EXPECT_FALSE(a->Send(forward));
}

TEST_F(Tabs, WhoeverIsHiddenDisabledOrRemovedLosesTheFocusByForce)
{
    const std::pair<const char*, std::function<void(LoggedPane*)>> ways[] = {
        {"hidden", [](LoggedPane* v) { v->Hide(); }},
        {"disabled", [](LoggedPane* v) { v->Disable(); }},
        {"its parent hidden", [this](LoggedPane*) { b->Hide(); }},
        {"no target any more", [](LoggedPane* v) { v->SetTargetOptions(false, false, false); }},
        {"removed", [](LoggedPane* v) { v->GetParent()->RemoveChild(v); }},
        {"disposed", [](LoggedPane* v) { v->Dispose(); }},
    };
    root.SetTargetOptions(true, true, false);
    for (const auto& [what, lose] : ways) {
        SCOPED_TRACE(what);
        b->Show();
        LoggedPane* const field = Add("field", {0, 0, 10, 10}, b, kView_TabStop);
        ASSERT_TRUE(field->BecomeBullseye(true));
        field->surrenders = false;
        lose(field);
        EXPECT_TRUE(b->IsBullseye() || root.IsBullseye());
        b->DisposeContents();
        EXPECT_EQ(b->TargetMessenger(), nullptr);
    }
}

} // namespace
