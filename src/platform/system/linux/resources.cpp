#include "platform/system/resources.h"

#include "platform/system/linux/resource_table.h"

#include <algorithm>

namespace Platform {
namespace {

std::span<const ResourceRow> AllRows()
{
    return {kResourceRows, kResourceRowCount};
}

char FoldCase(char c)
{
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

bool SameName(std::string_view a, std::string_view b)
{
    return std::ranges::equal(a, b, {}, FoldCase, FoldCase);
}

} // namespace

std::optional<std::span<const std::byte>> FindModuleResource(std::string_view type,
                                                             std::string_view name)
{
    const auto found = std::ranges::find_if(AllRows(), [&](const ResourceRow& row) {
        return SameName(row.type, type) && SameName(row.name, name);
    });
    if (found == AllRows().end())
        return std::nullopt;
    return std::as_bytes(std::span(found->begin, found->end));
}

std::vector<std::string> ListModuleResources(std::string_view type)
{
    std::vector<std::string> names;
    for (const ResourceRow& row : AllRows())
        if (SameName(row.type, type))
            names.emplace_back(row.name);
    return names;
}

} // namespace Platform
