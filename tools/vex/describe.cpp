#include "vex/describe.h"

#include <map>

namespace Vex {

Host::ClassNamer ClassNamesOf(const CBuiltLayout& layout)
{
    std::map<const Kesto::CView*, std::string> names;
    for (const BuiltView& built : layout.Views())
        names[built.view] = built.className;
    return [names](const Kesto::CView& view) {
        const auto name = names.find(&view);
        return name != names.end() ? std::string_view(name->second) : std::string_view();
    };
}

nlohmann::ordered_json DescriptionOf(const CBuiltLayout& layout)
{
    return Host::DescribeWindow(layout.Root(), ClassNamesOf(layout), kProductName);
}

} // namespace Vex
