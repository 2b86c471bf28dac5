// Timers and idlers that come and go while they have their turns.
#include "view/test_pump.h"
#include "view/test_timers.h"
#include "view/test_window.h"

#include "support/testing.h"
#include "view/messages/messenger.h"

namespace {

using Kesto::CIdler;
using Kesto::CTimer;
using testing::ElementsAre;

// The system gives no timer for a window that isn't there: such a timer is the pump's own.
struct Context : Kesto::CMessenger {
    Platform::NativeWindow GetSystemWindow() override { return native; }
    Platform::NativeWindow native = reinterpret_cast<Platform::NativeWindow>(this);
};

double Later(double seconds)
{
    return Platform::TickCount() / 1000.0 + seconds;
}

TEST(Timers, FireFromTheSystemsMessages)
{
    PumpedProcess process;
    TestWindow window;
    Context context;
    context.native = window.Handle();
    CallTimer ofThread(0.01);
    CallTimer ofWindow(0.02);
    ofWindow.SetContext(&context);
    ofThread.Start();
    ofWindow.Start();
    process.PumpUntil([&] { return ofThread.fired >= 3 && ofWindow.fired >= 3; });
    EXPECT_GT(ofThread.elapsed, 0.0);
    EXPECT_THAT(window.received, ElementsAre()) << "the messages are the timer's";
    ofThread.Stop();
    const int fired = ofThread.fired;
    const int before = ofWindow.fired;
    process.PumpUntil([&] { return ofWindow.fired > before + 2; });
    EXPECT_EQ(ofThread.fired, fired);
}

// In each case, which of three timers fire in two runs, and how often, when the first of them fires
// and acts.
TEST(Timers, MayBeStoppedStartedAndDeletedByEachOther)
{
    Context nowhere;
    using Timers = std::array<std::unique_ptr<CallTimer>, 3>;
    const struct {
        const char* what;
        std::function<void(Timers&)> act;
        std::array<int, 3> fired;
    } cases[] = {
        {"nothing", [](Timers&) {}, {2, 2, 2}},
        {"stops itself", [](Timers& t) { t[0]->Stop(); }, {1, 2, 2}},
        {"stops the next", [](Timers& t) { t[1]->Stop(); }, {2, 0, 2}},
        {"stops all after it", [](Timers& t) { t[2]->Stop(), t[1]->Stop(); }, {2, 0, 0}},
        {"starts itself again", [](Timers& t) { t[0]->Stop(), t[0]->Start(); }, {2, 2, 2}},
        {"starts the next again", [](Timers& t) { t[1]->Stop(), t[1]->Start(); }, {2, 0, 2}},
        {"deletes itself", [](Timers& t) { t[0].reset(); }, {1, 2, 2}},
        {"deletes the last", [](Timers& t) { t[2].reset(); }, {2, 2, 0}},
        {"runs them all", [](Timers&) { CTimer::RunTimers(Later(100.0)); }, {2, 2, 2}},
    };
    for (const auto& one : cases) {
        std::array<int, 3> fired{};
        Timers timers;
        for (std::size_t i = 0; i < timers.size(); ++i) {
            timers[i] = std::make_unique<CallTimer>(0.0, [&, i] {
                ++fired[i];
                if (i == 0)
                    one.act(timers);
            });
            timers[i]->SetContext(&nowhere);
            timers[i]->Start();
        }
        CTimer::RunTimers(Later(1.0));
        CTimer::RunTimers(Later(2.0));
        EXPECT_EQ(fired, one.fired) << one.what;
    }
}

TEST(Timers, WaitForTheirPeriodAndSurviveAClockThatStartsOver)
{
    Context nowhere;
    CallTimer timer(5.0);
    timer.SetContext(&nowhere);
    timer.SetPeriod(6.0);
    EXPECT_EQ(timer.starts, 0);
    timer.Start();
    timer.Start();
    timer.SetPeriod(10.0);
    EXPECT_EQ(timer.starts, 2);
    EXPECT_EQ(timer.stops, 1);
    CTimer::RunTimers(Later(9.0));
    EXPECT_EQ(timer.fired, 0);
    CTimer::RunTimers(Later(11.0));
    CTimer::RunTimers(Later(12.0));
    EXPECT_EQ(timer.fired, 1);
    CTimer::RunTimers(0.0);
    EXPECT_EQ(timer.fired, 2);
}

TEST(Idlers, MayGoAndComeWhileIdling)
{
    PumpedProcess process;
    auto second = std::make_unique<CallIdler>([&] { process.log.push_back(2); });
    CallIdler third([&] { process.log.push_back(3); });
    CallIdler first([&] {
        process.log.push_back(1);
        second.reset();
        third.StartIdling();
        first.StopIdling();
    });
    first.StartIdling();
    second->StartIdling();
    process.GetNextEvent(Kesto::CProcess::kEvent_Poll | Kesto::CProcess::kEvent_NoIdle);
    EXPECT_THAT(process.log, ElementsAre());
    process.PumpUntil([&] { return process.log.size() >= 2; });
    EXPECT_THAT(process.log, ElementsAre(1, 3));
    EXPECT_FALSE(first.IsIdling());
}

TEST(Idlers, WithAPeriodLetThePumpRest)
{
    PumpedProcess process;
    int turns = 0;
    CallIdler idler([&] { ++turns; }, 0.05);
    idler.StartIdling();
    EXPECT_EQ(CIdler::TimeToNext(0.0), 0.0);
    const double before = ProcessorSeconds();
    process.PumpUntil([&] { return turns == 11; });
    EXPECT_LT(ProcessorSeconds() - before, 0.2) << "half a second of waiting";
    idler.StopIdling();
    EXPECT_LT(CIdler::TimeToNext(0.0), 0.0);
}

} // namespace
