// What runs: how starts, stops and requests to be done go through the tree.
#include "test_pump.h"

#include "view/input/gesture.h"
#include "view/process/executable.h"

#include <gmock/gmock.h>

#include <string>
#include <tuple>

namespace {

using Kesto::CExecutable;
using testing::ElementsAre;

class Executables : public testing::Test {
protected:
    struct Node : CExecutable {
        Node(Executables& itsTest, CExecutable* super, std::string itsName, std::uint32_t flags)
            : CExecutable(super, flags), test(itsTest), name(std::move(itsName))
        {
        }
        ~Node() override { test.log += "~" + name + ' '; }

        void OnStart() override
        {
            test.log += "+" + name + ' ';
            if (doneByStart)
                SetDone(true);
        }
        void OnStop() override { test.log += "-" + name + ' '; }
        void ChildStopped(CExecutable* child) override
        {
            test.log += static_cast<Node*>(child)->name + "! ";
        }
        bool CanFinish() override
        {
            test.log += name + "? ";
            return agrees;
        }

        Executables& test;
        std::string name;
        bool agrees = true;
        bool doneByStart = false;
    };

    std::string TakeLog() { return std::exchange(log, {}); }

    // Runs one turn; is the root still running?
    bool Poll(bool force = false)
    {
        const bool runs = root.Poll(force);
        EXPECT_FALSE(runs && force) << "the request is answered";
        return runs;
    }

    std::string log;
    PumpedProcess process;
    Node root{*this, &process, "root", 0};
    Node* first = new Node(*this, &root, "first",
                           CExecutable::kAutoStart | CExecutable::kAutoDelete); // the root's
    Node second{*this, &root, "second", CExecutable::kAutoStart};
    Node third{*this, &root, "third", 0};
};

TEST_F(Executables, StartInOrderAndStopInReverse)
{
    root.Start();
    root.Start();
    EXPECT_FALSE(third.IsStarted());
    EXPECT_EQ(TakeLog(), "+root +first +second ");
    root.Stop();
    EXPECT_EQ(TakeLog(), "-second second! -first first! ~first -root ");
    EXPECT_THAT(root.Children(), ElementsAre(&second, &third));
    root.doneByStart = true;
    root.Start();
    EXPECT_EQ(TakeLog(), "+root ") << "one that is done by its start starts no children";
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
        EXPECT_TRUE(Poll(root.IsDone()));
        EXPECT_FALSE(root.IsDone() || process.IsDone());
        EXPECT_TRUE(root.IsStarted() && first->IsStarted());
    }
}

TEST_F(Executables, AChildThatIsDoneLeavesAloneAndIsDeleted)
{
    process.Start();
    root.Start();
    first->SetDoneFlag(true);
    TakeLog();
    EXPECT_TRUE(Poll());
    EXPECT_EQ(TakeLog(), "first? -first first! ~first ");
    second.SetDone(true);
    EXPECT_FALSE(Poll(true));
    EXPECT_EQ(TakeLog(), "root? second? -second second! -root ");
    EXPECT_FALSE(Poll()) << "it doesn't run any more";
}

TEST_F(Executables, TheTreeSurvivesAnyOrderOfDeaths)
{
    auto parent = std::make_unique<Node>(*this, &root, "parent", 0U);
    Node child(*this, parent.get(), "child", 0);
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

TEST_F(Executables, AChildThatIsLeftBehindHasNoFocus)
{
    auto parent = std::make_unique<Node>(*this, &root, "parent", 0U);
    Node child(*this, parent.get(), "child", 0);
    for (Node* const node : {&root, parent.get(), &child})
        node->SetCanTarget(true);
    child.SetCanBullseye(true);
    ASSERT_TRUE(child.BecomeBullseye(false));
    parent.reset();
    EXPECT_FALSE(child.IsTarget() || child.IsBullseye());
    EXPECT_EQ(Kesto::CMessenger::GetBullseye(), &process);
    EXPECT_FALSE(root.IsTarget());
}

TEST(Session, OpensOnceWithTheProcess)
{
    struct Session : PumpedProcess {
        void OnSessionStart() override { log.push_back(1); }
        void MakeFirstWindows() override { log.push_back(2); }
        void OnSessionStop() override { log.push_back(3); }
    } process;
    for (const bool on : {true, true, false, false})
        process.SetStarted(on);
    EXPECT_THAT(process.log, ElementsAre(1, 2, 3));
}

TEST(Gestures, TheDirectionOfASwipeIsInItsSigns)
{
    const std::tuple<float, float, int> cases[] = {
        {1.0F, 2.0F, 5},  {1.0F, -2.0F, 6}, {1.0F, 0.0F, 2},  {-1.0F, 2.0F, 4}, {-1.0F, -2.0F, 7},
        {-1.0F, 0.0F, 0}, {0.0F, 2.0F, 1},  {0.0F, -2.0F, 3}, {0.0F, 0.0F, 3}};
    for (const auto& [x, y, direction] : cases)
        EXPECT_EQ(Kesto::CSwipeGesture(x, y).Direction(), direction) << x << ", " << y;
}

} // namespace
