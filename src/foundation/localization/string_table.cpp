#include "foundation/localization/string_table.h"

#include "foundation/localization/string_file.h"
#include "platform/system/resources.h"

namespace Kesto {

CStringTable::CStringTable()
{
    constexpr std::string_view kStringFileType = "TStr";
    for (const std::string& name : Platform::ListModuleResources(kStringFileType))
        if (const auto file = Platform::FindModuleResource(kStringFileType, name))
            ParseStringFile(*this, *file, true);
}

} // namespace Kesto
