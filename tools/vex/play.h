// A script played on a layout's window, shown on the display if there is one.
#pragma once

#include "plugin/view_info/host_turns.h"
#include "robot/player.h"
#include "vex/built_layout.h"
#include "view/messages/message.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>

namespace Vex {

struct PlayOptions {
    BuildOptions build;
    std::int32_t theme = 0;
    std::string messages;           // the file for them, or empty
    std::filesystem::path outlined; // the picture of the window at the end, outlined; or empty
    Kesto::CHostHands hands;
    // Gets the commands that no window has eaten; true if it has. May be empty.
    std::function<bool(Kesto::CCommandMessage& command)> commands = {};
};

// Plays to the script's end or its first failure. Throws std::runtime_error when the layout is
// refused or a file can't be written.
Host::PlayOutcome Play(const CSourceText& source, Host::Script script, const PlayOptions& options);

} // namespace Vex
