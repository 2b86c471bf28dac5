// CObjID, the identity of a messenger or a message: a number that names a text as long as the
// module is loaded.
//
// Equal texts have equal numbers; case counts. Numbers differ from run to run, so they are compared
// and never stored. They come from two counters, which share one table of texts: the common one
// from 1 up, and one from 0x80000000 up for a family of ranges that must stay clear of the first.
// Used by the user interface's thread alone; an id that exists may be copied and compared anywhere.
#pragma once

#include <compare>
#include <cstdint>
#include <functional>
#include <string>

namespace Kesto {

class CObjID {
public:
    // Which of the two counters a new text draws from.
    enum class Family : std::uint8_t { kCommon, kSeparate };

    // No id, the same as that of an empty text.
    constexpr CObjID() = default;

    // The id of a text; null and "" give no id.
    explicit CObjID(const char* name) : CObjID(name, 1, 0) {}

    // The id at `offset` in a range of `count` ids in a row. A new text reserves the range, of at
    // least one id; for one that is known the offset counts from its first id, whatever `count` is.
    // Throws std::length_error and reserves nothing when the counter has no such range left.
    CObjID(const char* name, std::uint32_t count, std::uint32_t offset,
           Family family = Family::kCommon);

    // The id that is this number, for numbers in a layout text.
    static constexpr CObjID OfNumber(std::uint32_t number)
    {
        CObjID id;
        id.fValue = number;
        return id;
    }

    constexpr bool IsNone() const { return fValue == 0; }
    constexpr std::uint32_t Value() const { return fValue; }

    // The text that the id was made of, followed by "+3" for the fourth of a range, or "0" for no
    // id. For people: it looks through the whole table.
    std::string Name() const;

    friend constexpr bool operator==(CObjID, CObjID) = default;
    friend constexpr auto operator<=>(CObjID, CObjID) = default;

private:
    std::uint32_t fValue = 0;
};

} // namespace Kesto

template <>
struct std::hash<Kesto::CObjID> {
    std::size_t operator()(Kesto::CObjID id) const noexcept { return id.Value(); }
};
