#include "images/icons/resource_reader.h"

#include "images/icons/resource_data_provider.h"
#include "platform/system/resources.h"

#include <algorithm>
#include <string>
#include <utility>

namespace Kesto {
namespace {

std::string TypeText(Tag type)
{
    std::string text;
    for (int shift = 24; shift >= 0; shift -= 8)
        text += static_cast<char>(type >> shift & 0xFF);
    return text;
}

} // namespace

const ResourceModule& ThisModule()
{
    static const ResourceModule module = [](std::string_view type, std::string_view name) {
        return Platform::FindModuleResource(type, name);
    };
    return module;
}

void CopyToBlock(CBlock& block, std::span<const std::byte> bytes)
{
    block.SetSize(bytes.size());
    std::ranges::copy(bytes, block.Data());
}

CResourceReader::CResourceReader(ResourceModule module, bool asksStore)
    : fModule(std::move(module)), fAsksStore(asksStore)
{
}

// No system of today keeps memory for a resource, so there is nothing to release.
bool CResourceReader::Read(CBlock& block, Tag type, const CResourceName& name, bool) const
{
    if (fAsksStore && CResourceDataProvider::Get().GetPicture(type, name, block))
        return true;
    const auto bytes = fModule(TypeText(type), name.IsNumber() ? "#" + name.Text() : name.Text());
    if (bytes)
        CopyToBlock(block, *bytes);
    return bytes.has_value();
}

} // namespace Kesto
