// What runs: how starts, stops and requests to be done go through the tree.
#include "view/test_pump.h"

#include "support/testing.h"
#include "view/input/gesture.h"
#include "view/process/executable.h"

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
            if (atStart)
                atStart();
        }
        void OnStop() override
        {
            test.log += "-" + name + ' ';
            if (atStop)
                atStop();
        }
        void ChildStopped(CExecutable* child) override
        {
            test.log += static_cast<Node*>(child)->name + "! ";
        }
        void OnBeforePoll() override
        {
            if (const auto poll = atPoll) // this may be gone before it is done
                poll();
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
        std::function<void()> atStart;
        std::function<void()> atPoll;
        std::function<void()> atStop;
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
    root.doneByStart = false;
    Node late(*this, &root, "late", CExecutable::kAutoStart);
    second.doneByStart = true;
    root.Stop();
    TakeLog();
    root.Start();
    EXPECT_EQ(TakeLog(), "+root +second +late ") << "a child that is done at once keeps none back";
    EXPECT_TRUE(root.IsDone());
}

TEST_F(Executables, EachChildIsStartedOnceWhoeverGoes)
{
    Node late(*this, &root, "late", CExecutable::kAutoStart);
    second.atStart = [this] { delete std::exchange(first, nullptr); };
    root.Start();
    EXPECT_EQ(TakeLog(), "+root +first +second ~first +late ");
}

TEST_F(Executables, ARequestThatComesDuringThePollIsAnsweredInTheNextTurn)
{
    root.Start();
    second.atPoll = [this] { root.SetDone(true); };
    TakeLog();
    EXPECT_TRUE(Poll());
    EXPECT_EQ(TakeLog(), "");
    EXPECT_TRUE(root.IsDone());
    second.atPoll = nullptr;
    root.agrees = false;
    EXPECT_TRUE(Poll());
    EXPECT_EQ(TakeLog(), "root? ");
    EXPECT_FALSE(root.IsDone()) << "it was asked, and refused";
}

TEST_F(Executables, EachChildIsPolledOnceWhoeverGoesOrComes)
{
    root.Start();
    third.Start();
    auto goes = std::make_unique<Node>(*this, &root, "goes", CExecutable::kAutoStart);
    Node last(*this, &root, "last", 0);
    last.Start();
    std::string polled;
    std::unique_ptr<Node> comes;
    for (Node* const node : {first, &second, &third, &last})
        node->atPoll = [&polled, node] { polled += node->name + ' '; };
    third.atPoll = [&] {
        polled += "third ";
        delete std::exchange(first, nullptr);
        goes.reset();
        comes = std::make_unique<Node>(*this, &root, "comes", 0U);
        comes->Start();
        comes->atPoll = [&polled] { polled += "comes "; };
    };
    EXPECT_TRUE(Poll());
    EXPECT_EQ(polled, "last third second ");
}

TEST_F(Executables, OneMayBeDestroyedInItsOwnPollAndLoop)
{
    for (const bool inRun : {false, true}) {
        SCOPED_TRACE(inRun ? "in its run" : "in its poll");
        auto parent = std::make_unique<Node>(*this, &process, "parent", 0U);
        Node child(*this, parent.get(), "child", CExecutable::kAutoStart);
        child.atPoll = [&parent] { parent.reset(); };
        bool force = false;
        Node& runs = *parent;
        if (inRun)
            EXPECT_EQ(runs.Run(), 0);
        else {
            runs.Start();
            EXPECT_FALSE(runs.Poll(force));
        }
        EXPECT_EQ(parent, nullptr);
    }
}

TEST_F(Executables, ARunGivesItsResultAndIsStoppedWhateverIsThrown)
{
    second.atPoll = [this] { root.EndRun(7); };
    EXPECT_EQ(root.Run(), 7);
    second.atPoll = [this] { root.SetDone(true); };
    EXPECT_EQ(root.Run(), 0) << "the result of the run before doesn't count";
    second.atPoll = [this] {
        root.EndRun(7);
        second.atPoll = [this] { // refused once
            root.agrees = true;
            root.SetDone(true);
        };
    };
    root.agrees = false;
    EXPECT_EQ(root.Run(), 0) << "a refusal forgets the result";
    TakeLog();
    second.atPoll = [] { throw std::runtime_error("a hook's own"); };
    EXPECT_THROW(root.Run(), std::runtime_error);
    EXPECT_EQ(TakeLog(), "+root +second -second second! -root ");
    EXPECT_EQ(CExecutable::Current(), nullptr);
    second.atPoll = [this] { root.SetDone(true); };
    second.atStop = [] { throw std::logic_error("another hook's"); };
    EXPECT_THROW(root.Run(), std::logic_error);
    EXPECT_EQ(TakeLog(), "+root +second root? second? -second -root ");
    EXPECT_FALSE(root.IsStarted() || second.IsStarted());
}

TEST_F(Executables, ARefusalClearsTheRequestUpToTheRoot)
{
    process.Start();
    root.Start();
    for (Node* const refuses : {&root, first}) {
        SCOPED_TRACE(refuses->name + " refuses");
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

TEST_F(Executables, AChildThatIsLeftBehindIsInNoTreeAndHasNoFocus)
{
    auto parent = std::make_unique<Node>(*this, &root, "parent", 0U);
    Node child(*this, parent.get(), "child", 0);
    EXPECT_EQ(child.ParentMessenger(), parent.get());
    const Kesto::CObjID id("ExecutableTest/Child");
    child.SetID(id);
    EXPECT_EQ(process.FindMessenger(id), &child);
    for (Node* const node : {&root, parent.get(), &child})
        node->SetCanTarget(true);
    child.SetCanBullseye(true);
    ASSERT_TRUE(child.BecomeBullseye(false));
    parent.reset();
    EXPECT_EQ(child.Super(), nullptr);
    EXPECT_EQ(child.ParentMessenger(), nullptr);
    EXPECT_EQ(process.FindMessenger(id), nullptr);
    EXPECT_FALSE(child.IsTarget() || child.IsBullseye());
    EXPECT_EQ(Kesto::CMessenger::GetBullseye(), &process);
    EXPECT_FALSE(root.IsTarget());
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
