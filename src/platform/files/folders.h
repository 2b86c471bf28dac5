// Where the operating system wants a user's files.
#pragma once

#include <cstdint>
#include <string>

namespace Platform {

// The folder for application data that belongs to the user and outlives a session: the roaming one
// on Windows; $XDG_CONFIG_HOME or else ~/.config on Linux. It need not exist yet. Returns the
// operating system's code or 0.
std::uint32_t FindUserDataFolder(std::string& path);

// The folder for files that nobody misses: GetTempPath on Windows; $TMPDIR or else /tmp on Linux.
std::string TemporaryFolder();

} // namespace Platform
