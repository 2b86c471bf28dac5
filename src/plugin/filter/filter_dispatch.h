// Where a call to a filter's entry crosses into the world of objects.
#pragma once

#include "plugin/filter/lumograph_filter.h"
#include "plugin/frame/single_plugin.h"

namespace Kesto {

using CFilterObject = CSinglePlugin<CLumographFilter, HostFilterRecord>;

// As DispatchFormat. One filter is at work at a time, whichever project it is of.
void DispatchFilter(int16_t selector, void* record, intptr_t* data, int16_t* result,
                    ProjectIndex index, CFilterObject::Factory factory);

} // namespace Kesto
