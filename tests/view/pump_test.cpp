// Whose turn it is: posted events, messages of the system, timers, and a request to quit.
#include "test_pump.h"
#include "test_window.h"

#include "view/message_event.h"
#include "view/message_ids.h"
#include "view/posted_events.h"

#include "foundation/debug_report.h"
#include "foundation/exceptions.h"
#include "foundation/link.h"

#include <gmock/gmock.h>

#include <atomic>
#include <stdexcept>
#include <string>
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
};

TEST_F(Pump, HigherPrioritiesGoFirstAndEqualOnesByAge)
{
    const std::pair<std::int8_t, int> posted[] = {{0, 1}, {127, 2}, {0, 3}, {-128, 4}, {1, 5}, {-1, 6}, {127, 7}};
    for (const auto& [priority, mark] : posted)
        process.PostMark(priority, mark);
    process.PostEvent(nullptr);
    PumpTo(7);
    EXPECT_THAT(process.log, ElementsAre(2, 7, 5, 1, 3, 6, 4));
}

TEST_F(Pump, AnEventOvertakesAMessageByPriorityOrAge)
{
    process.PostMark(-1, 101);
    process.PostMark(0, 102);
    PassATick();
    process.PostNumber(1);
    process.PostNumber(2);
    PassATick();
    process.PostMark(0, 103);
    process.PostMark(1, 104);
    PumpTo(6);
    EXPECT_THAT(process.log, ElementsAre(104, 102, 1, 2, 103, 101));
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
    TestWindow window;
    window.onMessage = [&] {
        if (window.received.size() == 1)
            Platform::PostToQueue(window.Handle(), Platform::Number::kUser + 8);
    };
    Platform::PostToQueue(window.Handle(), Platform::Number::kUser + 7);
    process.PumpUntil([&] { return window.received.size() == 2; });
    EXPECT_THAT(window.received, ElementsAre(Platform::Number::kUser + 7, Platform::Number::kUser + 8));
}

TEST_F(Pump, QueuedEventsLetGoOfMessengersThatDie)
{
    struct Hearer : Kesto::CMessenger {
        explicit Hearer(int& count) : heard(count) {}
        bool HandleCommand(Kesto::CCommandMessage& message) override
        {
            heard += message.fSource == nullptr ? 1 : 100;
            return true;
        }
        int& heard;
    };
    using Routing = Kesto::CMessageEvent::Routing;
    int heard = 0;
    Hearer stays(heard);
    auto goes = std::make_unique<Hearer>(heard);
    const Kesto::CCommandMessage message(goes.get(), Kesto::kWindow_CloseBox);
    for (Kesto::CMessenger* const to :
         {static_cast<Kesto::CMessenger*>(goes.get()), static_cast<Kesto::CMessenger*>(&stays),
          static_cast<Kesto::CMessenger*>(goes.get())})
        Kesto::CMessageEvent::Post(message, to);
    Kesto::CMessageEvent::Post(message, nullptr, Routing::kBullseye);
    process.PostEvent(std::make_unique<Kesto::CTabEvent>(*goes, true));
    goes.reset();
    stays.SetCanTarget(true);
    stays.SetCanBullseye(true);
    ASSERT_TRUE(stays.BecomeBullseye(false));
    process.PostMark(-1, 1);
    PumpTo(1);
    EXPECT_EQ(heard, 2) << "the one to it, and the one to the bullseye, both without a source";
}

TEST_F(Pump, ARequestToQuitEndsTheRunAndGoesOnToTheHost)
{
    struct Dialog : Kesto::CExecutable {
        using CExecutable::CExecutable;
        bool CanFinish() override { return ++asked > 1; }
        int asked = 0;
    } dialog(&process);
    process.PostNumber(1);
    Platform::RequestQuit(7);
    process.PostCall(-128, [] { Kesto::CExecutable::Current()->SetDone(true); });
    dialog.Run();
    EXPECT_EQ(dialog.asked, 2) << "the quit was refused once";
    EXPECT_THAT(process.log, ElementsAre(1));
    EXPECT_EQ(Kesto::CExecutable::Current(), nullptr);
    EXPECT_EQ(Platform::TakeQuitRequest(), 7);
    EXPECT_EQ(Platform::TakeQuitRequest(), std::nullopt);
}

TEST_F(Pump, ABlockedPumpTakesNoProcessorTime)
{
    const double before = ProcessorSeconds();
    for (int turn = 0; turn < 10; ++turn)
        process.GetNextEvent(0);
    EXPECT_LT(ProcessorSeconds() - before, 0.25) << "ten turns wait for a tenth of a second each";
}

TEST_F(Pump, FourThreadsPostWhileThePumpRunsAndPosts)
{
    constexpr int kThreads = 4;
    constexpr int kEach = 2000;
    std::vector<std::vector<int>> seen(kThreads * 2);
    int left = kThreads * kEach;
    std::atomic<int> reports = 0;
    const auto post = [&](int thread) {
        for (int i = 0; i < kEach; ++i) {
            const int list = thread * 2 + i % 2;
            Kesto::CProcessLink::Post(std::make_unique<CallEvent>(i % 2, [&, list, i] {
                seen[static_cast<std::size_t>(list)].push_back(i);
                --left;
                if (i % 16 == 0)
                    process.PostCall(0, [&reports] { ++reports; });
            }));
        }
    };
    std::vector<std::thread> threads;
    for (int thread = 0; thread < kThreads; ++thread)
        threads.emplace_back(post, thread);
    process.PumpUntil([&] { return left == 0 && reports == kThreads * kEach / 16; });
    for (std::thread& thread : threads)
        thread.join();
    for (const std::vector<int>& list : seen) {
        EXPECT_EQ(list.size(), kEach / 2U);
        EXPECT_TRUE(std::is_sorted(list.begin(), list.end())) << "one thread's events of one priority keep their order";
    }
}

TEST_F(Pump, ADebugReportOfAnotherThreadIsMadeInItsTurn)
{
    CProcess::NoteMainThread();
    std::thread([] { Kesto::DebugReport("the wheels", "wheels.cpp", 4, true); }).join();
    EXPECT_THROW(process.GetNextEvent(CProcess::kEvent_Poll), Kesto::CDebugError);
    EXPECT_EQ(process.TopEvent(), nullptr);
}

TEST(Process, PostsNowhereWithoutOne)
{
    EXPECT_FALSE(Kesto::CProcessLink::Post(std::make_unique<CallEvent>(0, [] {})));
    {
        PumpedProcess process;
        process.PostMark(0, 1);
        EXPECT_EQ(Kesto::CMessenger::GetBullseye(), &process);
        EXPECT_TRUE(process.IsBullseye());
        EXPECT_FALSE(process.GetModulePath().Path().IsEmpty());
    }
    EXPECT_EQ(Kesto::CMessenger::GetBullseye(), nullptr);
}

} // namespace
