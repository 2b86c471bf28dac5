// Who uses a module's dialogs in a person's place: a robot that plays a script in the host's turns.
#pragma once

#include "robot/message_file.h"
#include "robot/player.h"
#include "suites/ui_hooks.h"

#include <deque>
#include <optional>
#include <string>

namespace Host {

// The windows of the module that is at work, by way of its view-info callback.
class ModuleWindows final : public Stage {
public:
    // Null when no plug-in has registered, and when it doesn't know the window.
    nlohmann::ordered_json Describe(void* window) override;
};

class DialogUser {
public:
    // Takes the host's turns from now on until it ends. `messages` is the file for the messages
    // that climb to windows, or empty. Throws what can't be written.
    DialogUser(Script script, const std::string& messages);

    // Whether any window has come up.
    bool WasAsked() const { return fWasAsked; }

    // From now on an alert ends the script, and is dismissed with all that is open.
    void EndAtAlerts() { fEndsAtAlerts = true; }
    // What that alert said, on one line; "" if there was none.
    const std::string& AlertText() const { return fAlertText; }

    // Plays what is left of the script, without windows, and tells how it all went.
    const PlayOutcome& Finish();

private:
    bool TakeTurn(HostInputEvent& event);
    void LookForAlert();

    ModuleWindows fStage;
    Player fPlayer;
    std::optional<MessageFile> fMessages;
    std::deque<HostInputEvent> fOpening; // events before the script's own
    bool fWasAsked = false;
    bool fEndsAtAlerts = false;
    std::string fAlertText;
    HostTurn fTurn;
};

} // namespace Host
