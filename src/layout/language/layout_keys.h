// The keys that the placement of a view depends on.
//
// A scope keeps a bit for each of them that it defines, so that describing a view costs a look at
// the keys that are there and not a search for all that might be.
#pragma once

#include "layout/language/vex_text.h"

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>

namespace Kesto {

// In the order in which they are copied to the layout scope of a view; the last four are not
// copied.
enum class LayoutKey : std::uint8_t {
    kAlwaysL2R,
    kReverse,
    kWidth,
    kHeight,
    kMaxHeight,
    kInset,
    kTopInset,
    kOutset,
    kTopOutset,
    kLeftOutset,
    kBottomOutset,
    kRightOutset,
    kHorizontal,
    kVertical,
    kSpacing,
    kPlacement,
    kChildHorizontal,
    kChildVertical,
    kMargin,
    kMarginWidth,
    kMarginHeight,
    kMarginTop,
    kMarginLeft,
    kMarginRight,
    kMarginBottom,
    kLeftOffset,
    kTopOffset,
    kLabelWidth,
    kDefaultSpacing,
    kLeft,
    kTop,
};

inline constexpr std::array kLayoutKeyNames{
    VexName("alwaysL2R"),     VexName("reverse"),          VexName("width"),
    VexName("height"),        VexName("max_height"),       VexName("inset"),
    VexName("top_inset"),     VexName("outset"),           VexName("top_outset"),
    VexName("left_outset"),   VexName("bottom_outset"),    VexName("right_outset"),
    VexName("horizontal"),    VexName("vertical"),         VexName("spacing"),
    VexName("placement"),     VexName("child_horizontal"), VexName("child_vertical"),
    VexName("margin"),        VexName("margin_width"),     VexName("margin_height"),
    VexName("margin_top"),    VexName("margin_left"),      VexName("margin_right"),
    VexName("margin_bottom"), VexName("left_offset"),      VexName("top_offset"),
    VexName("label_width"),   VexName("gSpace"),           VexName("left"),
    VexName("top"),
};

constexpr const VexName& NameOf(LayoutKey key)
{
    return kLayoutKeyNames[static_cast<std::size_t>(key)];
}

// A set of layout keys.
class LayoutKeySet {
public:
    constexpr bool IsEmpty() const { return fBits == 0; }
    constexpr bool Has(LayoutKey key) const { return (fBits & Bit(key)) != 0; }
    constexpr void Add(LayoutKey key) { fBits |= Bit(key); }
    constexpr LayoutKeySet operator|(LayoutKeySet other) const
    {
        return LayoutKeySet(fBits | other.fBits);
    }
    constexpr LayoutKeySet operator&(LayoutKeySet other) const
    {
        return LayoutKeySet(fBits & other.fBits);
    }

    // Those that are copied to a layout scope.
    static constexpr LayoutKeySet Copied() { return LayoutKeySet(Bit(LayoutKey::kLabelWidth) - 1); }

    // Calls `visit(key)` in the order of the enumeration.
    template <class Visit>
    constexpr void ForEach(Visit visit) const
    {
        for (std::uint32_t rest = fBits; rest != 0; rest &= rest - 1)
            visit(static_cast<LayoutKey>(std::countr_zero(rest)));
    }

    constexpr LayoutKeySet() = default;

private:
    constexpr explicit LayoutKeySet(std::uint32_t bits) : fBits(bits) {}
    static constexpr std::uint32_t Bit(LayoutKey key)
    {
        return std::uint32_t{1} << static_cast<unsigned>(key);
    }

    std::uint32_t fBits = 0;
};

// A table of 128 places in which each key has one of its own: the place is the top of the product
// of the key's hash and a factor, the first odd one under which no two keys meet.
struct LayoutKeyTable {
    static constexpr std::uint8_t kNone = 0xFF;

    consteval LayoutKeyTable()
    {
        while (!Fill())
            factor += 2;
    }
    constexpr std::size_t Place(std::uint32_t hash) const { return (hash * factor) >> 25; }

    std::array<std::uint8_t, 128> keys{};
    std::uint32_t factor = 0x9E3779B1;

private:
    consteval bool Fill()
    {
        keys.fill(kNone);
        for (std::size_t i = 0; i < kLayoutKeyNames.size(); ++i) {
            std::uint8_t& key = keys[Place(kLayoutKeyNames[i].hash)];
            if (key != kNone)
                return false;
            key = static_cast<std::uint8_t>(i);
        }
        return true;
    }
};
inline constexpr LayoutKeyTable kLayoutKeyTable;

// Adds `name` to `keys` if it is one.
inline void AddLayoutKey(const VexName& name, LayoutKeySet& keys)
{
    const std::uint8_t index = kLayoutKeyTable.keys[kLayoutKeyTable.Place(name.hash)];
    if (index != LayoutKeyTable::kNone && kLayoutKeyNames[index].text == name.text)
        keys.Add(static_cast<LayoutKey>(index));
}

} // namespace Kesto
