// Made of the language's standard constants.
#include "layout/vocabulary/enumerations.h"

#include "layout/vocabulary/keywords.h"

#include <algorithm>
#include <array>
#include <stdexcept>

namespace Kesto {

namespace {

struct Enumeration {
    std::string_view name;
    std::array<std::string_view, 5> values; // as many as aren't empty
};

constexpr std::array<Enumeration, 5> kEnumerations{{
    {"bool", {"true", "false"}},
    {"frame", {"frame_none", "frame_bevel", "frame_rectangle"}},
    {"horizontal",
     {"align_fill", "align_left", "align_right", "align_center", "align_proportional"}},
    {"placement", {"place_column", "place_row", "place_offscreen"}},
    {"vertical", {"align_fill", "align_top", "align_bottom", "align_center", "align_proportional"}},
}};

CVexVariablePropertyList MakeList(const Enumeration& enumeration)
{
    CVexVariablePropertyList list;
    for (std::string_view value : enumeration.values) {
        const auto constant = std::ranges::find(StandardConstants(), value,
                                                [](const VexConstant& c) { return c.name.text; });
        if (constant != StandardConstants().end())
            list.AddEnumerated(value, constant->value);
    }
    return list;
}

} // namespace

const CVexVariablePropertyList& VexEnumeration(std::string_view name)
{
    static const auto lists = [] {
        std::array<CVexVariablePropertyList, kEnumerations.size()> made;
        std::ranges::transform(kEnumerations, made.begin(), MakeList);
        return made;
    }();
    const auto found = std::ranges::find(kEnumerations, name, &Enumeration::name);
    if (found == kEnumerations.end())
        throw std::range_error("Enum name not found.");
    return lists[static_cast<std::size_t>(found - kEnumerations.begin())];
}

} // namespace Kesto
