// Which object serves a project. The dispatchers below are handed these.
#pragma once

#include "plugin/export/lumograph_export.h"
#include "plugin/filter/lumograph_filter.h"
#include "plugin/format/lumograph_format.h"

#include <memory>

namespace Kesto {

// Each makes the object of a project, or null when the module has no class for it.
std::unique_ptr<CLumographFormat> CreateFormatPlugin(ProjectIndex index);
std::unique_ptr<CLumographFilter> CreateFilterPlugin(ProjectIndex index);
std::unique_ptr<CLumographExport> CreateExportPlugin(ProjectIndex index);

} // namespace Kesto
