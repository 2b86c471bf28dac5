#include "driver/dialog_user.h"

#include "suites/descriptors.h"
#include "suites/string_ids.h"

#include <sstream>
#include <utility>

namespace Host {
namespace {

constexpr int kMostTurns = 1'000'000; // without windows

HostInputEvent EventOf(uint32_t message, uint64_t first = 0, int64_t second = 0)
{
    HostInputEvent event{};
    event.message = message;
    event.first = first;
    event.second = second;
    return event;
}

std::string OnOneLine(const std::string& text)
{
    std::istringstream words(text);
    std::string line;
    for (std::string word; words >> word;)
        line += (line.empty() ? "" : " ") + word;
    return line;
}

// Descriptors are the host's to free, whatever the answer.
class OwnedDescriptor {
public:
    OwnedDescriptor() = default;
    ~OwnedDescriptor() { DescriptorSuite()->Free(fDescriptor); }
    OwnedDescriptor(const OwnedDescriptor&) = delete;
    OwnedDescriptor& operator=(const OwnedDescriptor&) = delete;

    HostDescriptor* Place() { return &fDescriptor; }
    HostDescriptor Get() const { return fDescriptor; }

private:
    HostDescriptor fDescriptor = nullptr;
};

} // namespace

nlohmann::ordered_json ModuleWindows::Describe(void* window)
{
    if (ViewInfoHooks().empty())
        return nullptr;
    const ViewInfoHook& hook = ViewInfoHooks().back();
    OwnedDescriptor description;
    const uint8_t good =
        hook.callback(window, hook.projectIndex, description.Place(), KeyOfName("getViewInfo"));
    return good != 0 ? JsonOf(description.Get()) : nlohmann::ordered_json();
}

DialogUser::DialogUser(Script script, const std::string& messages)
    : fPlayer(std::move(script), fStage),
      fTurn([this](HostInputEvent& event) { return TakeTurn(event); })
{
    fOpening = {EventOf(kHostRequestOwnTime)}; // without a display scripts take none
    if (!messages.empty()) {
        fMessages.emplace(messages);
        fOpening.push_back(
            EventOf(kHostRequestMessages, 0, reinterpret_cast<intptr_t>(&fMessages->Log())));
    }
}

bool DialogUser::TakeTurn(HostInputEvent& event)
{
    fWasAsked = true;
    if (!fOpening.empty()) {
        event = fOpening.front();
        fOpening.pop_front();
        return true;
    }
    if (fEndsAtAlerts && fAlertText.empty())
        LookForAlert();
    if (fAlertText.empty())
        return fPlayer.TakeTurn(event);
    event = EventOf(kHostRequestDismiss);
    return true;
}

void DialogUser::LookForAlert()
try {
    const nlohmann::ordered_json front = fStage.Describe(nullptr);
    if (front.is_object() && front.value("Type", "") == "alert")
        fAlertText = OnOneLine(front.value("string", "an alert"));
} catch (const std::exception&) {
    fAlertText.clear(); // nothing is thrown through the module
}

const PlayOutcome& DialogUser::Finish()
{
    HostInputEvent event;
    for (int i = 0; i < kMostTurns && !fPlayer.IsOver(); ++i)
        fPlayer.TakeTurn(event);
    return fPlayer.Outcome();
}

} // namespace Host
