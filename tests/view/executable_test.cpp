// What runs: how starts, stops and requests to be done go through the tree.
#include "test_pump.h"

#include "view/executable.h"
#include "view/gesture.h"

#include <gmock/gmock.h>

#include <string>
#include <tuple>

namespace {

using Kesto::CExecutable;
using testing::ElementsAre;

std::vector<std::string> gLog;

class Node : public CExecutable {
public:
    Node(CExecutable* super, std::string name, std::uint32_t flags) : CExecutable(super, flags), fName(std::move(name))
    {
    }
    ~Node() override { gLog.push_back("~" + fName); }

    void OnStart() override
    {
        gLog.push_back("+" + fName);
        onStart(*this);
    }
    void OnStop() override { gLog.push_back("-" + fName); }
    void ChildStopped(CExecutable* child) override { gLog.push_back(static_cast<Node*>(child)->fName + " left"); }
    bool CanFinish() override
    {
        gLog.push_back(fName + "?");
        return agrees;
    }

    bool agrees = true;
    std::function<void(Node&)> onStart = [](Node&) {};

private:
    std::string fName;
};

class Executables : public testing::Test {
protected:
    void SetUp() override { gLog.clear(); }

    PumpedProcess process;
    Node root{&process, "root", 0};
    Node* first = new Node(&root, "first", CExecutable::kAutoStart | CExecutable::kAutoDelete); // the root's
    Node second{&root, "second", CExecutable::kAutoStart};
    Node third{&root, "third", 0};
};

TEST_F(Executables, StartInOrderAndStopInReverse)
{
    root.Start();
    root.Start();
    EXPECT_FALSE(third.IsStarted());
    EXPECT_THAT(gLog, ElementsAre("+root", "+first", "+second"));
    gLog.clear();
    root.Stop();
    EXPECT_THAT(gLog, ElementsAre("-second", "second left", "-first", "first left", "~first", "-root"));
    EXPECT_THAT(root.Children(), ElementsAre(&second, &third));
}

TEST_F(Executables, OneThatIsDoneByItsStartStartsNoChildren)
{
    root.onStart = [](Node& node) { node.SetDone(true); };
    root.Start();
    EXPECT_THAT(gLog, ElementsAre("+root"));
    EXPECT_TRUE(root.IsDone());
}

TEST_F(Executables, ARefusalClearsTheRequestUpToTheRoot)
{
    process.Start();
    root.Start();
    for (Node* const refuses : {&root, first}) {
        root.agrees = refuses != &root;
        first->agrees = refuses != first;
        second.SetDone(true);
        EXPECT_TRUE(process.IsDone() && root.IsDone() && second.IsDone());
        second.SetDoneFlag(false);
        bool force = root.IsDone();
        EXPECT_TRUE(root.Poll(force));
        EXPECT_FALSE(force);
        EXPECT_FALSE(root.IsDone());
        EXPECT_FALSE(process.IsDone());
        EXPECT_TRUE(root.IsStarted() && first->IsStarted());
    }
}

TEST_F(Executables, AChildThatIsDoneLeavesAloneAndIsDeleted)
{
    process.Start();
    root.Start();
    first->SetDoneFlag(true);
    gLog.clear();
    bool force = false;
    EXPECT_TRUE(root.Poll(force));
    EXPECT_THAT(gLog, ElementsAre("first?", "-first", "first left", "~first"));
    second.SetDone(true);
    gLog.clear();
    force = root.IsDone();
    EXPECT_FALSE(root.Poll(force));
    EXPECT_THAT(gLog, ElementsAre("root?", "second?", "-second", "second left", "-root"));
    EXPECT_FALSE(root.Poll(force)) << "it doesn't run any more";
}

TEST_F(Executables, TheTreeSurvivesAnyOrderOfDeaths)
{
    auto parent = std::make_unique<Node>(&root, "parent", 0U);
    Node child(parent.get(), "child", 0);
    EXPECT_EQ(child.ParentMessenger(), parent.get());
    const Kesto::CObjID id("ExecutableTest/Child");
    child.SetID(id);
    EXPECT_EQ(process.FindMessenger(id), &child);
    parent.reset();
    EXPECT_EQ(child.Super(), nullptr);
    EXPECT_EQ(child.ParentMessenger(), nullptr);
    EXPECT_EQ(process.FindMessenger(id), nullptr);
    std::string lines;
    process.ReportChildren(lines, 0);
    EXPECT_EQ(lines, "- stopped\n  - stopped\n    - stopped\n    - stopped\n    - stopped\n");
}

TEST(Session, OpensOnceWithTheProcess)
{
    struct Session : PumpedProcess {
        void OnSessionStart() override { log.push_back(1); }
        void MakeFirstWindows() override { log.push_back(2); }
        void OnSessionStop() override { log.push_back(3); }
    } process;
    process.Start();
    process.Start();
    process.Stop();
    process.Stop();
    EXPECT_THAT(process.log, ElementsAre(1, 2, 3));
}

TEST(Gestures, TheDirectionOfASwipeIsInItsSigns)
{
    const std::tuple<float, float, int> cases[] = {{1.0F, 2.0F, 5},  {1.0F, -2.0F, 6},  {1.0F, 0.0F, 2},
                                                   {-1.0F, 2.0F, 4}, {-1.0F, -2.0F, 7}, {-1.0F, 0.0F, 0},
                                                   {0.0F, 2.0F, 1},  {0.0F, -2.0F, 3},  {0.0F, 0.0F, 3}};
    for (const auto& [x, y, direction] : cases)
        EXPECT_EQ(Kesto::CSwipeGesture(x, y).Direction(), direction) << x << ", " << y;
}

} // namespace
