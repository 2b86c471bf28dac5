// Whose turn it is: posted events, messages of the system, timers, and a request to quit.
#include "view/test_pump.h"
#include "view/test_timers.h"
#include "view/test_window.h"

#include "support/alert_capture.h"

#include "view/messages/message_event.h"
#include "view/messages/message_ids.h"
#include "view/process/desktop.h"
#include "view/process/posted_events.h"

#include "foundation/base/link.h"
#include "foundation/base/service.h"
#include "foundation/errors/debug_report.h"
#include "foundation/errors/exceptions.h"
#include "support/testing.h"

#include <chrono>
#include <thread>

namespace {

using Kesto::CProcess;
using testing::ElementsAre;

class Pump : public testing::Test {
protected:
    PumpedProcess process;

    void PumpTo(std::size_t entries)
    {
        process.PumpUntil([&] { return process.log.size() >= entries; });
    }
    static void PostNumber(int number)
    {
        Platform::PostToQueue(nullptr,
                              Platform::Number::kUser + static_cast<std::uint32_t>(number));
    }
};

TEST_F(Pump, EventsGoByPriorityAndAgeAndSoOvertakeMessages)
{
    const std::pair<std::int8_t, int> posted[] = {{0, 11},    {127, 12}, {0, 13},
                                                  {-128, 14}, {-1, 15},  {127, 16}};
    for (const auto& [priority, mark] : posted)
        process.PostMark(priority, mark);
    process.PostEvent(nullptr);
    PassATick();
    PostNumber(1);
    PostNumber(2);
    PassATick();
    process.PostMark(0, 17);
    process.PostMark(1, 18);
    PumpTo(10);
    EXPECT_THAT(process.log, ElementsAre(12, 16, 18, 11, 13, 1, 2, 17, 15, 14));
}

TEST_F(Pump, AHandlerMayPostAndPumpAndThrow)
{
    process.PostCall(1, [this] {
        process.PostMark(1, 1);
        process.GetNextEvent(CProcess::kEvent_Poll);
        process.log.push_back(2);
        throw std::runtime_error("a handler's own");
    });
    EXPECT_THROW(process.GetNextEvent(CProcess::kEvent_Poll), std::runtime_error);
    EXPECT_THAT(process.log, ElementsAre(1, 2));
    EXPECT_EQ(process.TopEvent(), nullptr);
}

TEST_F(Pump, AWindowGetsItsMessagesAndMayPostMore)
{
    constexpr std::uint32_t kFirst = Platform::Number::kUser + 7;
    TestWindow window;
    window.onMessage = [&] {
        if (window.received.size() == 1)
            Platform::PostToQueue(window.Handle(), kFirst + 1);
    };
    Platform::PostToQueue(window.Handle(), kFirst);
    process.PumpUntil([&] { return window.received.size() == 2; });
    EXPECT_THAT(window.received, ElementsAre(kFirst, kFirst + 1));
}

TEST_F(Pump, QueuedEventsLetGoOfMessengersThatDie)
{
    static int heard; // by all
    heard = 0;
    struct Hearer : Kesto::CMessenger {
        bool HandleCommand(Kesto::CCommandMessage& message) override
        {
            heard += message.fSource == nullptr ? 1 : 100;
            return true;
        }
    };
    Hearer stays;
    auto goes = std::make_unique<Hearer>();
    const Kesto::CCommandMessage message(goes.get(), Kesto::kWindow_CloseBox);
    for (Hearer* const to : {goes.get(), &stays, goes.get()})
        Kesto::CMessageEvent::Post(message, to);
    process.PostEvent(std::make_unique<Kesto::CTabEvent>(*goes, true));
    {
        const PumpedProcess inner; // the current one when it dies
        goes.reset();
    }
    process.PostMark(-1, 1);
    PumpTo(1);
    EXPECT_EQ(heard, 1) << "the one that stays, without a source";
}

TEST_F(Pump, ARequestToQuitEndsNestedRunsUnlessOneRefuses)
{
    struct Dialog : Kesto::CExecutable {
        using CExecutable::CExecutable;
        bool CanFinish() override { return agrees; }
        void OnBeforePoll() override
        {
            if (const auto poll = std::exchange(atPoll, nullptr))
                poll();
        }
        bool agrees = true;
        std::function<void()> atPoll;
    };
    for (const bool agrees : {true, false}) {
        SCOPED_TRACE(agrees ? "both agree" : "the inner one refuses");
        Dialog outer(&process);
        Dialog inner(&process);
        bool outerWasAsked = false;
        inner.agrees = agrees;
        inner.atPoll = [] { Platform::RequestQuit(3); };
        outer.atPoll = [&] {
            if (!agrees) {
                PostNumber(1);
                process.PostCall(-128, [&] {
                    EXPECT_THAT(process.log, ElementsAre(1)) << "the pump goes on";
                    inner.agrees = true;
                    inner.SetDone(true);
                });
            }
            inner.Run();
            outerWasAsked = outer.IsDone() || process.IsQuitting();
            outer.SetDone(true); // or else the test would go on for ever
        };
        outer.Run();
        EXPECT_EQ(outerWasAsked, agrees);
        EXPECT_EQ(Kesto::CExecutable::Current(), nullptr);
        EXPECT_EQ(Platform::TakeQuitRequest(), 3) << "the host gets it all the same";
        EXPECT_EQ(Platform::TakeQuitRequest(), std::nullopt);
    }
}

TEST_F(Pump, AForeignLoopStillRunsEventsIdlersAndTimersAndReportsWhatTheyThrow)
{
    CallIdler idler([this] { process.log.push_back(2); });
    idler.StartIdling();
    CallTimer timer(0.001, [this] { process.log.push_back(3); });
    timer.Start();
    AlertCapture alerts;
    process.PostMark(-1, 1);
    process.PostCall(1, [] { throw std::runtime_error("a handler's own"); });
    PassATick();
    PassATick();
    CProcess::RunForeignTurn();
    EXPECT_THAT(process.log, ElementsAre(1, 2, 3));
    EXPECT_EQ(alerts.boxes.size(), 1U);
}

TEST_F(Pump, ABlockedPumpTakesNoProcessorTime)
{
    const double before = ProcessorSeconds();
    for (int turn = 0; turn < 10; ++turn)
        process.GetNextEvent(0);
    EXPECT_LT(ProcessorSeconds() - before, 0.25) << "ten turns wait for a tenth of a second each";
}

TEST_F(Pump, ABellIsNoMessageAndEndsOneWait)
{
    Platform::QueueBell bell;
    bell.Ring();
    bell.Ring();
    EXPECT_EQ(Platform::PeekQueue(Platform::Peek::kLeave), std::nullopt);
    EXPECT_EQ(Platform::AwaitMessage(), std::nullopt);
    const auto next = Platform::AwaitMessage();
    ASSERT_TRUE(next) << "it waited for the process's timer";
    EXPECT_EQ(next->number, Platform::Number::kTimer);
}

TEST_F(Pump, ARunRestsUntilSomethingConcernsIt)
{
    struct Dialog : Kesto::CExecutable {
        using CExecutable::CExecutable;
        void OnAfterPoll() override
        {
            ++polls;
            if (const auto poll = std::exchange(atPoll, nullptr))
                poll(*this);
        }
        int polls = 0;
        std::function<void(Dialog&)> atPoll;
    };
    std::thread other;
    const std::pair<const char*, std::function<void(Dialog&)>> rows[] = {
        {"another thread's event",
         [&](Dialog& dialog) {
             other = std::thread([&] {
                 std::this_thread::sleep_for(std::chrono::milliseconds(500));
                 Kesto::CProcessLink::Post(
                     std::make_unique<CallEvent>(0, [&] { dialog.SetDone(true); }));
             });
         }},
        {"an event of its own",
         [&](Dialog& dialog) { process.PostCall(-1, [&] { dialog.SetDone(true); }); }},
        {"done at the end of a turn", [](Dialog& dialog) { dialog.SetDone(true); }},
        {"a child that is", [](Dialog& dialog) {
             auto* const child = new Dialog(&dialog, Kesto::CExecutable::kAutoDelete);
             child->Start();
             child->SetDoneFlag(true);
             child->atPoll = [&dialog](Dialog&) { dialog.SetDone(true); };
         }}};
    for (const auto& [words, end] : rows) {
        SCOPED_TRACE(words);
        Dialog dialog(&process);
        dialog.atPoll = end;
        dialog.Run();
        EXPECT_LE(dialog.polls, 4);
    }
    other.join();
}

TEST_F(Pump, FourThreadsPostWhileThePumpRunsAndPosts)
{
    constexpr std::size_t kThreads = 4;
    constexpr int kEach = 2000;
    std::array<std::vector<int>, kThreads * 2> seen;
    int left = kThreads * kEach + kThreads * kEach / 16;
    const auto post = [&](std::size_t thread) {
        for (int i = 0; i < kEach; ++i)
            Kesto::CProcessLink::Post(std::make_unique<CallEvent>(i % 2, [&, thread, i] {
                seen[thread * 2 + static_cast<std::size_t>(i % 2)].push_back(i);
                --left;
                if (i % 16 == 0)
                    process.PostCall(0, [&left] { --left; });
            }));
    };
    std::vector<std::thread> threads;
    for (std::size_t thread = 0; thread < kThreads; ++thread)
        threads.emplace_back(post, thread);
    process.PumpUntil([&] { return left == 0; });
    for (std::thread& thread : threads)
        thread.join();
    for (const std::vector<int>& list : seen) {
        EXPECT_EQ(list.size(), kEach / 2U) << "list " << &list - seen.data();
        EXPECT_TRUE(std::is_sorted(list.begin(), list.end()))
            << "one thread's events of one priority keep their order";
    }
}

TEST_F(Pump, ADebugReportOfAnotherThreadIsMadeInItsTurn)
{
    CProcess::NoteMainThread();
    std::thread([] { Kesto::DebugReport("the wheels", "wheels.cpp", 4, true); }).join();
    EXPECT_THROW(process.GetNextEvent(CProcess::kEvent_Poll), Kesto::CDebugError);
    EXPECT_EQ(process.TopEvent(), nullptr);
}

TEST(Process, IsWhereEventsGoAndTheBullseyeWhileThereIsOne)
{
    EXPECT_FALSE(Kesto::CProcessLink::Post(std::make_unique<CallEvent>(0, [] {})));
    {
        PumpedProcess process;
        process.PostMark(0, 1);
        EXPECT_EQ(Kesto::CMessenger::GetBullseye(), &process);
        EXPECT_FALSE(process.GetModulePath().Path().IsEmpty());
    }
    EXPECT_EQ(Kesto::CMessenger::GetBullseye(), nullptr);
}

TEST(Process, HandsTheKeyboardBackToTheOneBefore)
{
    struct View : Kesto::CMessenger {
        using CMessenger::CMessenger;
    };
    constexpr std::uint32_t kBoth = View::kCanTarget | View::kCanBullseye;
    PumpedProcess dialogs;
    View field(&dialogs, {}, kBoth);
    ASSERT_TRUE(field.BecomeBullseye(false));
    auto second = std::make_unique<PumpedProcess>();
    EXPECT_EQ(Kesto::CMessenger::GetBullseye(), second.get());
    {
        const Kesto::CProcessScope scope(dialogs);
        EXPECT_EQ(Kesto::CMessenger::GetBullseye(), &field);
    }
    EXPECT_EQ(Kesto::CMessenger::GetBullseye(), second.get());
    second.reset();
    EXPECT_EQ(CProcess::Current(), &dialogs);
    EXPECT_EQ(Kesto::CMessenger::GetBullseye(), &field);

    auto gone = std::make_unique<PumpedProcess>();
    {
        const Kesto::CProcessScope scope(dialogs);
        gone.reset();
    }
    EXPECT_EQ(CProcess::Current(), nullptr) << "the process that the scope found has ended";
}

TEST(Process, EndsTheServicesWithTheLastOne)
{
    using Service = Kesto::CServiceT<Kesto::CDesktop>;
    auto first = std::make_unique<PumpedProcess>();
    auto second = std::make_unique<PumpedProcess>();
    Service::Get();
    first.reset();
    EXPECT_NE(Service::Get(false), nullptr);
    second.reset();
    EXPECT_EQ(Service::Get(false), nullptr);
}

} // namespace
