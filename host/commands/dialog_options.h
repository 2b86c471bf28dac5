// The options of commands in which a module may show a dialog: who uses it, and what is kept of it.
#pragma once

#include "driver/dialog_user.h"
#include "driver/operation.h"

#include <optional>
#include <string>

namespace CLI {
class App;
}

namespace Host {

struct DialogOptions {
    std::string script;     // to be played; "-" for the standard input
    bool describe = false;  // print the dialog's description
    std::string photograph; // a picture to write of it
    std::string messages;   // a file for what climbs to its window
    std::optional<int> theme;
    std::optional<double> scale;
    bool keepSettings = false; // a robot finds the user's settings, and stores its own

    // Whether a robot uses the dialog.
    bool WantsRobot() const { return !script.empty() || describe || !photograph.empty(); }
    // Whether nothing is asked of the dialog but a look at it.
    bool OnlyLooks() const { return script.empty() && WantsRobot(); }
};

// --play, --describe, --photograph, --messages, --theme, --scale, --keep-settings.
void AddDialogOptions(CLI::App& subcommand, DialogOptions& options);

// Has the module's windows look as the options say. For a robot the module's stored settings are
// shut off, unless the options keep them.
void UseOptions(const DialogOptions& options, bool isForRobot);

// What a robot is to do by the options. Throws ScriptError.
Script ScriptOf(const DialogOptions& options);

// The script that types a number where the keyboard is, which a dialog for one number has selected,
// and presses the default button.
Script TypingScript(int64_t number);

// Whether a person is there to use a dialog: at a terminal, with a display.
bool IsPersonThere();

} // namespace Host
