// What the module's entries lead to. A new format joins with one case here.
#include "module/factories.h"

#include "dialogs/plugin_dialog/dialog_builder.h"
#include "formats/electricimage/format_electricimage.h"
#include "module/projects.h"

namespace Kesto {

std::unique_ptr<CLumographFormat> CreateFormatPlugin(ProjectIndex index)
{
    if (index != kProject_EntryElectricImage)
        return nullptr;
    Project::RegisterDialogClasses();
    return std::make_unique<Project::PFormatElectricImage>();
}

std::unique_ptr<CLumographFilter> CreateFilterPlugin(ProjectIndex)
{
    return nullptr;
}

std::unique_ptr<CLumographExport> CreateExportPlugin(ProjectIndex)
{
    return nullptr;
}

} // namespace Kesto
