// The table of colours: a row for each role.
#pragma once

#include "drawing/tools/colour_roles.h"

#include <array>
#include <cstdint>
#include <span>

namespace Kesto {

inline constexpr std::size_t kThemeCount = 4;

struct SColourRow {
    EColourRole role;
    std::array<std::uint32_t, kThemeCount> colours; // by theme, written 0xBBGGRR
    int systemColour; // by the index of GetSysColor, for any other theme
};

// A role's number is its row.
std::span<const SColourRow> ColourTable();

} // namespace Kesto
