// The exported entries of the module, one for each row of entries.inc.
#include "module/factories.h"
#include "module/projects.h"
#include "plugin/export/export_dispatch.h"
#include "plugin/filter/filter_dispatch.h"
#include "plugin/format/format_dispatch.h"

#include <cstdint>

#define SIDECAR_ENTRY(index, entry, group)                                                         \
    extern "C" [[gnu::visibility("default")]] void entry(int16_t selector, void* record,           \
                                                         intptr_t* data, int16_t* result)          \
    {                                                                                              \
        if (result == nullptr)                                                                     \
            return; /* nowhere to answer to */                                                     \
        *result = 0;                                                                               \
        Kesto::Dispatch##group(selector, record, data, result, Kesto::kProject_##entry,            \
                               Kesto::Create##group##Plugin);                                      \
    }
#include "module/entries.inc"
#undef SIDECAR_ENTRY
