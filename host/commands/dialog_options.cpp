#include "commands/dialog_options.h"

#include "console.h"
#include "driver/basic_suite.h"

#include <cmath>
#include <cstdlib>

#include <CLI/CLI.hpp>

namespace Host {
namespace {

constexpr int kThemes = 4;

} // namespace

void AddDialogOptions(CLI::App& subcommand, DialogOptions& options)
{
    constexpr const char* kGroup = "Dialogs";
    subcommand
        .add_option("--play", options.script,
                    "A script that a robot plays on the module's dialog, - for the standard "
                    "input; a dialog that is open at its end is cancelled")
        ->type_name("SCRIPT")
        ->group(kGroup);
    subcommand
        .add_flag("--describe", options.describe,
                  "Print what is in the dialog as JSON; without a script it is cancelled then")
        ->group(kGroup);
    subcommand
        .add_option("--photograph", options.photograph, "Write a picture of the dialog, likewise")
        ->type_name("PICTURE")
        ->group(kGroup);
    subcommand
        .add_option("--messages", options.messages,
                    "A file for the messages that climb to the dialog, a JSON object a line")
        ->type_name("FILE")
        ->group(kGroup);
    subcommand.add_option("--theme", options.theme, "How dark dialogs are: 0 light to 3 dark [1]")
        ->type_name("0..3")
        ->check(CLI::Range(0, kThemes - 1))
        ->group(kGroup);
    subcommand.add_option("--scale", options.scale, "How large dialogs are [1]")
        ->type_name("N")
        ->check([](const std::string& text) { // a range lets pass what is no number
            return std::isnan(std::strtod(text.c_str(), nullptr)) ? text + " is no number" : "";
        })
        ->check(CLI::Range(0.5, 8.0))
        ->group(kGroup);
    subcommand
        .add_flag("--keep-settings", options.keepSettings,
                  "The robot begins with what the user has the module keep, and changes it; else "
                  "it begins with the defaults and leaves no trace")
        ->group(kGroup);
}

void UseOptions(const DialogOptions& options, bool isForRobot)
{
    SetHostProperty(kPropertySettingsOff, isForRobot && !options.keepSettings ? 1 : 0);
    if (options.theme)
        SetHostProperty(kPropertyUiBrightness, *options.theme);
    if (options.scale)
        SetHostProperty(kPropertyUiScale, std::lround(*options.scale * 100.0));
}

Script ScriptOf(const DialogOptions& options)
{
    Script script;
    if (!options.script.empty())
        script = LoadScript(options.script);
    const auto add = [&script](Verb verb, const std::string& file) {
        Action action;
        action.verb = verb;
        action.text = file;
        script.actions.insert(script.actions.begin(), action);
    };
    if (!options.photograph.empty())
        add(Verb::kShot, options.photograph);
    if (options.describe)
        add(Verb::kDescribe, "-");
    return script;
}

Script TypingScript(int64_t number)
{
    return ReadScript("type " + std::to_string(number) + "\nkey Return", "--frame");
}

bool IsPersonThere()
{
    return MessagesGoToTerminal() && HasDisplay();
}

} // namespace Host
