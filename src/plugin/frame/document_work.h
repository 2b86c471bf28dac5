// What filters and exports share in their work on a document: fetches, progress, and what a failure
// of the work becomes.
#pragma once

#include <cstdint>
#include <functional>

namespace Kesto {

// Calls the host's fetch. Throws CLumographError with its code when it fails, and with -50 when
// there is none.
void FetchFromHost(int16_t (*fetch)());

// Tells the host how far the work is. Throws CLumographError with -128 when the user wants it to
// stop. Either callback may be null.
void ReportToHost(void (*report)(int32_t, int32_t), uint8_t (*abortCheck)(), int32_t done,
                  int32_t total);

// Does the work. Returns 0, the code of the CLumographError that it ended with, or -108 when memory
// ran out; other failures pass through, for the handler to report.
int16_t CodeOfWork(const std::function<void()>& work);

} // namespace Kesto
