// The three dispatchers: where a call of the host crosses into the world of objects.
//
// Each takes what its entry was called with and the project that the entry stands for. It decodes
// the selector, finds or builds the project's object, has it serve the selector, decides whether
// the object dies, and stores the code in
// `*result`. Nothing is thrown: whatever reaches a dispatcher ends the object and makes the
// result 1.
#pragma once

#include "plugin/frame/project_index.h"

#include <cstdint>

namespace Kesto {

void DispatchFormat(int16_t selector, void* record, intptr_t* data, int16_t* result,
                    ProjectIndex index);
void DispatchFilter(int16_t selector, void* record, intptr_t* data, int16_t* result,
                    ProjectIndex index);
void DispatchExport(int16_t selector, void* record, intptr_t* data, int16_t* result,
                    ProjectIndex index);

} // namespace Kesto
