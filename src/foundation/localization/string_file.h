// String files, which bring translations: UTF-16 text with a line "$$$/Key=value" for each, the
// quotes optional.
//
//     byte 0   byte-order mark: FE FF big-endian, FF FE little-endian
//     byte 2   16-bit units; CR and LF end a line
//
// Without the mark the file is big-endian, and its units begin at byte 0.
//
// Quotes and dollar signs before a key are not part of it; a key of less than two bytes makes the
// line a comment. In a value, a backslash keeps the next unit as it is, and one quote at the end is
// dropped; then its marks are expanded.
#pragma once

#include "foundation/localization/string_table.h"
#include "foundation/streams/container.h"

#include <cstddef>
#include <span>

namespace Kesto {

// Adds the lines of a file to the table. A key that is there already gets the new value if
// `replace` is set. A file of less than two units is ignored; a last odd byte is, too.
void ParseStringFile(CStringTable& table, std::span<const std::byte> file, bool replace);

// The same for all bytes of a container, whatever its position.
void ParseStringFile(CStringTable& table, CContainer& file, bool replace);

} // namespace Kesto
