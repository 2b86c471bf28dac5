// The exported entries of the module, one for each row of entries.inc.
#include "plugin/frame/dispatch.h"

#include <cstdint>

#define SIDECAR_ENTRY(index, entry, group)                                                         \
    extern "C" [[gnu::visibility("default")]] void entry(int16_t selector, void* record,           \
                                                         intptr_t* data, int16_t* result)          \
    {                                                                                              \
        if (result == nullptr)                                                                     \
            return; /* nowhere to answer to */                                                     \
        *result = 0;                                                                               \
        Kesto::Dispatch##group(selector, record, data, result, Kesto::kProject_##entry);           \
    }
#include "plugin/frame/entries.inc"
#undef SIDECAR_ENTRY
