// A process for tests, events that call back, and a pump that goes on until something holds.
#pragma once

#include "platform/input/message_numbers.h"
#include "platform/system/machine.h"
#include "view/process/process.h"

#include <functional>
#include <memory>
#include <utility>
#include <vector>

struct CallEvent : Kesto::CProcessEvent {
    CallEvent(std::int8_t priority, std::function<void()> run)
        : CProcessEvent(priority), call(std::move(run))
    {
    }
    void Dispatch() override { call(); }

    std::function<void()> call;
};

// Writes down the messages of a window's own numbers, counted from kUser.
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
    void PumpQuiet()
    {
        while (GetNextEvent(kEvent_Poll)) {
        }
    }

    void PostCall(std::int8_t priority, std::function<void()> call)
    {
        PostEvent(std::make_unique<CallEvent>(priority, std::move(call)));
    }
    void PostMark(std::int8_t priority, int mark)
    {
        PostCall(priority, [this, mark] { log.push_back(mark); });
    }

    std::vector<int> log;
};

// Returns when the clock that events and messages are stamped with has gone on.
inline void PassATick()
{
    const std::uint32_t before = Platform::TickCount();
    while (Platform::TickCount() == before) {
    }
}
