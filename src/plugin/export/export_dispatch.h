// Where a call to an export's entry crosses into the world of objects.
#pragma once

#include "plugin/export/lumograph_export.h"
#include "plugin/frame/single_plugin.h"

namespace Kesto {

using CExportObject = CSinglePlugin<CLumographExport, HostExportRecord>;

// As DispatchFormat. One export is at work at a time.
void DispatchExport(int16_t selector, void* record, intptr_t* data, int16_t* result,
                    ProjectIndex index, CExportObject::Factory factory);

} // namespace Kesto
