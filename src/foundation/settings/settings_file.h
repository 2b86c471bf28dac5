// The settings file, a sequence of chunks in either byte order.
//
// Each chunk is a header of 20 bytes (owner tag, chunk tag, id 0, version 0, payload size; 32 bits
// each) and its payload. The file begins with a header of the same form, owner "Kest", tag "Proj",
// whose size is that of all that follows, and ends with a 32-bit zero where a further chunk would
// begin:
//
//   Kest Proj   file header; its first tag reads "tseK" in the other byte order
//   Kest WnSt   version 2, the size of the rest (108), the fields of WindowState
//   Proj Sett   what PSettings writes
//   0
#pragma once

#include <cstddef>

namespace Kesto {

class CContainer;
struct PluginSettings;

// What a container that holds settings grows by, bytes.
inline constexpr std::size_t kSettingsGrowth = 4096;

// Reads a file from its start. What is no settings file, and chunks of an unknown kind or version,
// leave the settings as they are. A container in the other byte order than the file is turned to
// the file's. Throws the end-of-data CError where the file ends before its chunks do; chunks before
// that one are read then, and that one is not.
void SettingsFileLoad(PluginSettings& settings, CContainer& file);

// Writes the file into an empty container, in its byte order.
void SettingsFileSave(const PluginSettings& settings, CContainer& file);

} // namespace Kesto
