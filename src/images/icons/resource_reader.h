// CResourceReader, which copies resources out: pictures of the icon store first, and whatever else
// the module holds.
#pragma once

#include "foundation/base/block.h"
#include "foundation/streams/stream.h"
#include "images/icons/resource_name.h"

#include <functional>
#include <optional>
#include <span>
#include <string_view>

namespace Kesto {

// Where a module's resources are found: the bytes for a type and a name, or nothing. A number reads
// "#number". The bytes stay valid as long as the module is loaded.
using ResourceModule = std::function<std::optional<std::span<const std::byte>>(
    std::string_view type, std::string_view name)>;

// The module that this code is part of.
const ResourceModule& ThisModule();

class CResourceReader {
public:
    // With `asksStore` false it reads the module alone, as the store itself does.
    explicit CResourceReader(ResourceModule module = ThisModule(), bool asksStore = true);

    // Makes `block` a copy of the resource's bytes; it is empty for a resource without any. A type
    // that is a tag of pictures is looked for in the icon store before the module. Returns false,
    // with the block as it was, when neither has it. `release` lets go of the resource's own memory
    // where the system keeps such. Throws std::bad_alloc, and std::logic_error for an icon store
    // whose index is broken.
    bool Read(CBlock& block, Tag type, const CResourceName& name, bool release = true) const;

private:
    ResourceModule fModule;
    bool fAsksStore;
};

// Makes `block` a copy of the bytes.
void CopyToBlock(CBlock& block, std::span<const std::byte> bytes);

} // namespace Kesto
