#include "images/icons/icon_index.h"

#include <stdexcept>
#include <utility>

namespace Kesto {
namespace {

void Require(bool condition, const char* warning)
{
    if (!condition)
        throw std::logic_error(warning);
}

// Takes the next `count` bytes off the front.
std::string_view Take(std::string_view& text, std::size_t count)
{
    Require(text.size() >= count, "Warning! (index.size() >= count)");
    const std::string_view front = text.substr(0, count);
    text.remove_prefix(count);
    return front;
}

} // namespace

void ParseIconIndex(std::span<const std::byte> bytes, IconDataNames& dataNames,
                    IconEntries& entries)
{
    std::string_view rest(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    Require(Take(rest, kIconIndexHeader.size()) == kIconIndexHeader,
            "Warning! (header == kIconIndexHeader)");
    IconDataNames names;
    for (std::string& name : names) {
        const std::string_view field = Take(rest, kIconDataNameBytes);
        name = field.substr(0, field.find_first_of(std::string_view("\0\n", 2)));
    }
    Require(rest.size() % kIconEntryBytes == 0, "Warning! (index.size() % kIconEntryBytes == 0)");
    IconEntries found;
    while (!rest.empty()) {
        const std::string_view entry = Take(rest, kIconEntryBytes);
        const std::size_t length = entry.substr(0, kIconNameBytes).find('\0');
        Require(length != std::string_view::npos, "Warning! (name.size() < kIconNameBytes)");
        found[std::string(entry.substr(0, length))] =
            reinterpret_cast<const IconPlaces*>(entry.data() + kIconNameBytes);
    }
    // Not before all is found sound.
    dataNames = std::move(names);
    entries = std::move(found);
}

} // namespace Kesto
