#include "view/messages/object_id.h"

#include "foundation/base/chained_table.h"

#include <algorithm>
#include <array>
#include <stdexcept>

namespace Kesto {
namespace {

struct IDRange {
    std::uint32_t first;
    std::uint32_t count;
};

// One of the two supplies of numbers, up to and with `last`.
struct IDCounter {
    std::uint32_t next;
    std::uint32_t last;
};

struct IDTable {
    CChainedTable<IDRange> ranges;
    std::array<IDCounter, 2> counters{IDCounter{1, 0x7FFFFFFF}, IDCounter{0x80000000, 0xFFFFFFFF}};
};

// Ids are made by static initialisers of all folders, so the table is made by the first of them.
IDTable& Table()
{
    static IDTable table;
    return table;
}

std::uint32_t Reserve(std::string_view name, std::uint32_t count, IDCounter& counter)
{
    const std::uint32_t first = counter.next;
    if (first == 0 || count - 1 > counter.last - first)
        throw std::length_error("no ids left for \"" + std::string(name) + '"');
    Table().ranges.Add(name, {first, count}, false);
    // After the last id of all comes 0, or the other counter's first: neither is ever given out
    // from here.
    counter.next = count - 1 == counter.last - first ? 0 : first + count;
    return first;
}

} // namespace

CObjID::CObjID(const char* name, std::uint32_t count, std::uint32_t offset, Family family)
{
    const std::string_view text = name != nullptr ? name : "";
    if (text.empty())
        return;
    const IDRange* const known = Table().ranges.Find(text);
    const std::uint32_t first = known != nullptr
                                    ? known->first
                                    : Reserve(text, std::max(count, 1U),
                                              Table().counters[static_cast<std::size_t>(family)]);
    fValue = first + offset;
}

std::string CObjID::Name() const
{
    std::string name;
    if (!IsNone())
        Table().ranges.ForEach([&](std::string_view key, const IDRange& range) {
            const std::uint32_t offset = fValue - range.first;
            if (offset < range.count)
                name = std::string(key) + (offset != 0 ? '+' + std::to_string(offset) : "");
        });
    return name.empty() ? std::to_string(fValue) : name;
}

} // namespace Kesto
