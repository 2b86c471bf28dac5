// The program's door, the same on every system.
#pragma once

#include <string>
#include <vector>

namespace Host {

// Runs lumohost with the arguments after the program's name, in UTF-8. Returns the exit status: 0
// for success, 1 for a failure, 2 for a mistake on the command line, 130 when the user stopped it.
int RunLumohost(std::vector<std::string> arguments);

} // namespace Host
