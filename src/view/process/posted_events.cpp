#include "view/process/posted_events.h"

#include "foundation/errors/debug_report.h"
#include "view/messages/message_ids.h"
#include "view/messages/messenger.h"

namespace Kesto {

void CDebugEvent::Dispatch()
{
    DebugReport(fMessage, fFile, fLine, fThrowIt);
}

void CTabEvent::MessengerGone(CMessenger* messenger)
{
    if (fFrom == messenger)
        fFrom = nullptr;
}

// The keyboard's own modifiers are those of another moment.
void CTabEvent::Dispatch()
{
    constexpr std::uint32_t kTab = 9;
    if (fFrom == nullptr)
        return;
    CKeyboardMessage key(nullptr, kMessage_KeyDown, kTab, kTab);
    key.fModifiers = fForward ? 0 : CMessage::kModifier_Shift;
    fFrom->Send(key);
}

} // namespace Kesto
