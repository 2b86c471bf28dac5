// The queue's own rules, with input at times and places of our choice.
#include "platform/input/keyboard.h"
#include "platform/input/linux/input.h"
#include "platform/input/message_numbers.h"
#include "platform/input/message_queue.h"
#include "platform/input/pointer.h"
#include "platform/input/system_timer.h"
#include "platform/system/machine.h"
#include "support/testing.h"

#include <fcntl.h>
#include <unistd.h>

namespace {

using namespace Platform::Number;
using namespace Platform;
using testing::ElementsAre;

struct Silent : MessageReceiver {
    std::intptr_t Receive(std::uint32_t, std::uintptr_t, std::intptr_t) override { return 42; }
};

class MessageQueue : public testing::Test {
protected:
    Silent window;

    ~MessageQueue() override // no button or key stays down
    {
        Inject(kLeftUp, 0);
        Inject(kKeyUp, 0, 0, std::uintptr_t(Key::kCapsLock));
        Drain();
    }

    static std::vector<std::uint32_t> Drain()
    {
        std::vector<std::uint32_t> numbers;
        while (const auto message = PeekQueue(Peek::kRemove))
            numbers.push_back(message->number);
        return numbers;
    }

    void Inject(std::uint32_t number, std::uint32_t time, std::int32_t x = 0,
                std::uintptr_t first = 0, std::u16string text = {})
    {
        InjectInput({window.Handle(), number, first, 0, time, x, 0}, std::move(text));
    }
};

TEST_F(MessageQueue, DeliversPostedThenInputThenPaintsThenTimers)
{
    const std::uintptr_t timer = ArmTimer(nullptr, 0, 1);
    WaitForMessage(1000);
    WaitForMessage(1000); // what was injected before has woken the first
    window.SetWantsPaint(true);
    Inject(kKeyDown, 1);
    Inject(kLeftDown, 2);
    PostToQueue(window.Handle(), kUser + 1);
    PostToQueue(nullptr, kUser);
    std::vector<std::uint32_t> numbers;
    for (int i = 0; i < 5; ++i)
        numbers.push_back(PeekQueue(Peek::kRemove)->number);
    EXPECT_THAT(numbers, ElementsAre(kUser + 1, kUser, kKeyDown, kLeftDown, kPaint));
    EXPECT_EQ(PeekQueue(Peek::kRemove)->number, kPaint) << "until it is painted";
    EXPECT_EQ(PeekQueue(Peek::kLeave, {kTimer, kTimer})->first, timer);
    window.SetWantsPaint(false);
    EXPECT_EQ(PeekQueue(Peek::kRemove)->number, kTimer);
    EXPECT_EQ(PeekQueue(Peek::kRemove), std::nullopt) << "it isn't due again at once";
    DisarmTimer(nullptr, timer);
}

TEST_F(MessageQueue, PeeksByRangeAndLeavesOrRemoves)
{
    PostToQueue(nullptr, kUser);
    Inject(kKeyDown, 1);
    Inject(kLeftDown, 7);
    for (const Peek peek : {Peek::kLeave, Peek::kRemove})
        EXPECT_EQ(PeekQueue(peek, {kMouseFirst, kMouseLast})->time, 7U)
            << (peek == Peek::kLeave ? "left" : "removed");
    EXPECT_EQ(PeekQueue(Peek::kRemove, {kMouseFirst, kMouseLast}), std::nullopt);
    EXPECT_THAT(Drain(), ElementsAre(kUser, kKeyDown));
}

TEST_F(MessageQueue, MovesBecomeOneAndKeysFollowTheirMessages)
{
    Inject(kMouseMove, 1, 10);
    Inject(kMouseMove, 2, 20);
    Inject(kLeftDown, 3, 20);
    Inject(kMouseMove, 4, 30);
    EXPECT_EQ(CursorPosition().x, 30);
    EXPECT_TRUE(IsKeyDown(Key::kLeftButton, KeyMoment::kNow));
    EXPECT_FALSE(IsKeyDown(Key::kLeftButton, KeyMoment::kLastMessage));
    EXPECT_EQ(PeekQueue(Peek::kRemove)->x, 20);
    EXPECT_EQ(PeekQueue(Peek::kRemove)->number, kLeftDown);
    EXPECT_TRUE(IsKeyDown(Key::kLeftButton, KeyMoment::kLastMessage));
    Inject(kLeftUp, 5);
    for (const std::uint32_t number : {kKeyDown, kKeyUp, kKeyDown})
        Inject(number, 6, 0, std::uintptr_t(Key::kCapsLock));
    EXPECT_THAT(Drain(), ElementsAre(kMouseMove, kLeftUp, kKeyDown, kKeyUp, kKeyDown));
    EXPECT_FALSE(IsKeyDown(Key::kLeftButton, KeyMoment::kLastMessage));
    EXPECT_FALSE(IsKeyOn(Key::kCapsLock));
}

TEST_F(MessageQueue, AKeyTypesItsTextOnce)
{
    Inject(kKeyDown, 5, 0, 'A', u"\xE4");
    const QueuedMessage key = *PeekQueue(Peek::kRemove);
    TranslateKeyMessage(key);
    TranslateKeyMessage(key);
    EXPECT_EQ(PeekQueue(Peek::kLeave)->number, kKeyChar);
    EXPECT_EQ(PeekQueue(Peek::kRemove)->first, 0xE4U);
    EXPECT_THAT(Drain(), ElementsAre());
}

TEST_F(MessageQueue, AWindowTakesAllThatWaitsForItAlong)
{
    auto goes = std::make_unique<Silent>();
    const NativeWindow handle = goes->Handle();
    PostToQueue(handle, kUser);
    const QueuedMessage message = *PeekQueue(Peek::kLeave);
    EXPECT_EQ(DispatchToWindow(message), 42);
    InjectInput({handle, kLeftDown, 0, 0, 1, 0, 0});
    goes->SetWantsPaint(true);
    EXPECT_EQ(ArmTimer(handle, 5, 10), 5U);
    goes.reset();
    EXPECT_THAT(Drain(), ElementsAre());
    EXPECT_EQ(DispatchToWindow(message), 0);
    EXPECT_FALSE(PostToQueue(handle, kUser));
    EXPECT_EQ(ArmTimer(handle, 5, 10), 0U);
}

TEST_F(MessageQueue, ListensToItsSourceWhetherItBlocksOrNot)
{
    int ends[2] = {};
    ASSERT_EQ(pipe2(ends, O_NONBLOCK), 0);
    SetInputSource(ends[0], [&] {
        char c = 0;
        if (read(ends[0], &c, 1) != 1)
            return;
        Inject(kKeyDown, 1);
        Inject(kKeyUp, 2);
    });
    for (const bool blocks : {true, false}) {
        SCOPED_TRACE(blocks ? "a call that waits" : "a look into the queue");
        ASSERT_EQ(write(ends[1], "x", 1), 1);
        const auto message = blocks ? AwaitMessage() : PeekQueue(Peek::kRemove);
        ASSERT_TRUE(message);
        EXPECT_EQ(message->number, kKeyDown);
        EXPECT_THAT(Drain(), ElementsAre(kKeyUp));
    }
    SetInputSource(-1, nullptr);
    close(ends[0]);
    close(ends[1]);
}

} // namespace
