// Events of the toolkit's own, besides posted messages.
#pragma once

#include "view/messages/process_event.h"

#include <cstdint>

namespace Kesto {

// A DebugReport that was made on another thread than the process's main one, made again in its
// turn.
class CDebugEvent : public CProcessEvent {
public:
    // Before anything else that waits: the log is to be in the order of what happened.
    static constexpr std::int8_t kPriority = 50;

    // Texts are constants, or null.
    CDebugEvent(const char* message, const char* file, std::uint32_t line, bool throwIt)
        : CProcessEvent(kPriority), fMessage(message), fFile(file), fLine(line), fThrowIt(throwIt)
    {
    }

    // May throw a CDebugError.
    void Dispatch() override;

private:
    const char* fMessage;
    const char* fFile;
    std::uint32_t fLine;
    bool fThrowIt;
};

// A press of the Tab key that was put off: moves the focus on, or back, from where it is sent.
class CTabEvent : public CProcessEvent {
public:
    CTabEvent(CMessenger& from, bool forward) : CProcessEvent(0), fFrom(&from), fForward(forward) {}

    bool IsAlive() const override { return fFrom != nullptr; }
    void MessengerGone(CMessenger* messenger) override;
    void Dispatch() override;

private:
    CMessenger* fFrom;
    bool fForward;
};

} // namespace Kesto
