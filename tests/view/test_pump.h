// A process for tests, events that call back, and a pump that goes on until something holds.
#pragma once

#include "platform/message_numbers.h"
#include "platform/ticks.h"
#include "view/process.h"

#include <functional>
#include <memory>
#include <utility>
#include <vector>

// Writes down what it was asked, and the messages of a window's own numbers, counted from kUser.
class PumpedProcess : public Kesto::CProcess {
public:
    bool PreTranslateMessage(Platform::QueuedMessage& message) override
    {
        if (message.number >= Platform::Number::kUser && message.number < 0xC000)
            log.push_back(static_cast<int>(message.number - Platform::Number::kUser));
        return Kesto::CProcess::PreTranslateMessage(message);
    }

    template <class Condition>
    void PumpUntil(Condition holds)
    {
        while (!holds())
            GetNextEvent(0);
    }

    void PostCall(std::int8_t priority, std::function<void()> call);
    void PostMark(std::int8_t priority, int mark)
    {
        PostCall(priority, [this, mark] { log.push_back(mark); });
    }
    static void PostNumber(int number)
    {
        Platform::PostToQueue(nullptr, Platform::Number::kUser + static_cast<std::uint32_t>(number));
    }

    std::vector<int> log;
};

class CallEvent : public Kesto::CProcessEvent {
public:
    CallEvent(std::int8_t priority, std::function<void()> call) : CProcessEvent(priority), fCall(std::move(call)) {}

    void Dispatch() override { fCall(); }

private:
    std::function<void()> fCall;
};

inline void PumpedProcess::PostCall(std::int8_t priority, std::function<void()> call)
{
    PostEvent(std::make_unique<CallEvent>(priority, std::move(call)));
}

// Returns when the clock that events and messages are stamped with has gone on.
inline void PassATick()
{
    const std::uint32_t before = Platform::TickCount();
    while (Platform::TickCount() == before) {
    }
}
