// The entry of the plug-in.
#include "filter.h"

#include "plugin/filter/filter_dispatch.h"

extern "C" [[gnu::visibility("default")]] void EntrySoftGlow(int16_t selector, void* record,
                                                             intptr_t* data, int16_t* result)
{
    constexpr Kesto::ProjectIndex kProject{1};
    Kesto::DispatchFilter(selector, record, data, result, kProject,
                          [](Kesto::ProjectIndex) -> std::unique_ptr<Kesto::CLumographFilter> {
                              return std::make_unique<SoftGlow::Filter>();
                          });
}
