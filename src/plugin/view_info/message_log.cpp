#include "plugin/view_info/message_log.h"

#include "layout/vocabulary/button_options.h"
#include "view/messages/message_recorder.h"
#include "view/window/window.h"

#include <string>

namespace Kesto {
namespace {

// A message as the host reads it; the texts that its record points to live as long.
class CHostMessage {
public:
    explicit CHostMessage(const CMessage& message)
        : fID(NameOf(message.fID)),
          fSource(message.fSource != nullptr ? NameOf(message.fSource->GetID()) : std::string())
    {
        fRecord.kind = KindOf(message);
        fRecord.id = fID.c_str();
        fRecord.source = fSource.c_str();
        fRecord.valueName = fRecord.oldName = "";
        if (const auto* const value = dynamic_cast<const CValueMessage*>(&message))
            ReadValue(*value);
    }

    const HostMessage& Record() const { return fRecord; }

private:
    static std::string NameOf(CObjID id) { return id.IsNone() ? std::string() : id.Name(); }

    static const char* KindOf(const CMessage& message)
    {
        if (dynamic_cast<const CCommandMessage*>(&message) != nullptr)
            return "command";
        if (dynamic_cast<const CValueMessage*>(&message) != nullptr)
            return "value";
        if (dynamic_cast<const CKeyboardMessage*>(&message) != nullptr)
            return "key";
        return dynamic_cast<const CMenuMessage*>(&message) != nullptr ? "menu" : "other";
    }

    void ReadValue(const CValueMessage& message)
    {
        fRecord.fields = kHostMessageHasPhase;
        fRecord.phase = static_cast<std::int32_t>(message.fPhase);
        // Numbers alone know the value that a drag began with.
        if (const auto* const number = dynamic_cast<const CValMsg<CNumber>*>(&message)) {
            PutNumbers(number->fValue, number->fOldValue);
            fRecord.fields |= kHostMessageHasStart;
            fRecord.start = number->fStartValue;
        } else if (const auto* const plain = dynamic_cast<const CValMsg<unsigned>*>(&message)) {
            PutNumbers(plain->fValue, plain->fOldValue);
        } else if (const auto* const state = dynamic_cast<const CValMsg<EButtonValue>*>(&message)) {
            PutNumbers(state->fValue, state->fOldValue);
        } else if (const auto* const id = dynamic_cast<const CValMsg<CObjID>*>(&message)) {
            fValue = NameOf(id->fValue);
            fOld = NameOf(id->fOldValue);
            fRecord.fields |= kHostMessageHasValue | kHostMessageHasNames;
            fRecord.valueName = fValue.c_str();
            fRecord.oldName = fOld.c_str();
        }
    }

    void PutNumbers(double value, double old)
    {
        fRecord.fields |= kHostMessageHasValue;
        fRecord.value = value;
        fRecord.old = old;
    }

    std::string fID;
    std::string fSource;
    std::string fValue;
    std::string fOld;
    HostMessage fRecord{};
};

} // namespace

void StartMessageLog(const HostMessageLog* log)
{
    if (log == nullptr) {
        CMessageRecorder::SetWatch(nullptr);
        return;
    }
    CMessageRecorder::SetWatch([log](const CMessenger& asked, const CMessage& message) {
        if (dynamic_cast<const CWindow*>(&asked) != nullptr)
            log->Add(log->context, &CHostMessage(message).Record());
    });
}

} // namespace Kesto
