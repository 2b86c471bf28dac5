// Which object serves a project. Implemented in formats/, above this layer, where the projects' classes are known.
#pragma once

#include "plugin/lumograph_export.h"
#include "plugin/lumograph_filter.h"
#include "plugin/lumograph_format.h"
#include "plugin/project_index.h"

#include <memory>

namespace Kesto {

// Each makes the object of a project, or null when the module has no class for it.
std::unique_ptr<CLumographFormat> CreateFormatPlugin(ProjectIndex index);
std::unique_ptr<CLumographFilter> CreateFilterPlugin(ProjectIndex index);
std::unique_ptr<CLumographExport> CreateExportPlugin(ProjectIndex index);

} // namespace Kesto
