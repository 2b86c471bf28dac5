// The developer's log of failures, "/tmp/DebugLog.txt": a line "message,file,line" for each.
#pragma once

#include <cstdint>

namespace Kesto {

inline constexpr const char* kDebugLogPath = "/tmp/DebugLog.txt";

// Appends a line to the log; the first call in the process starts the log anew. A log that cannot
// be opened is not written. With `throwIt`, a CDebugError of the same arguments is then thrown.
// Called on another thread than the process's main one, the whole call is posted to the process and
// made there later. Texts are constants; null is an unknown one.
void DebugReport(const char* message, const char* file, std::uint32_t line, bool throwIt);

} // namespace Kesto
