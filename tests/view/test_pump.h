// A process for tests, events that call back, and a pump that goes on until something holds.
#pragma once

#include "platform/input/message_numbers.h"
#include "platform/system/machine.h"
#include "view/process/process.h"
#include "view/process/timer.h"

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
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

    // Throws, with the caller's line, when the condition doesn't come to hold. The timer wakes a
    // pump that nothing else would wake. The flags are those of GetNextEvent.
    template <class Condition>
    void PumpUntil(Condition holds, std::uint32_t flags = 0, const char* file = __builtin_FILE(),
                   int line = __builtin_LINE())
    {
        constexpr std::uint32_t kLongest = 20000; // milliseconds
        Kesto::CTimer wakes(1.0);
        wakes.Start();
        const std::uint32_t start = Platform::TickCount();
        while (!holds()) {
            if (Platform::TickCount() - start > kLongest)
                throw std::runtime_error(std::string(file) + ':' + std::to_string(line) +
                                         ": what is waited for hasn't come in 20 seconds");
            GetNextEvent(flags);
        }
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
