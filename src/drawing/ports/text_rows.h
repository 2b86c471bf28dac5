// The rows of a text in a frame: mnemonics taken out, lines broken, what is too wide shortened.
#pragma once

#include "platform/graphics/fonts.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace Kesto {

// A label without its marks: "&" precedes the mnemonic, "&&" is "&".
struct CMnemonicText {
    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

    explicit CMnemonicText(std::string_view marked);

    std::string text;
    std::size_t mnemonic = kNone; // byte that it begins with
};

struct CTextRow {
    std::shared_ptr<const Platform::TextLine> line;
    std::size_t first = 0; // byte of the text that it begins with
};

// The rows of a text: one for each of its lines and, when `wrap` is set, as many as the width in
// pixels needs for each. At least one row.
std::vector<CTextRow> BreakRows(const Platform::Font& font, std::string_view text, double width,
                                bool wrap);

// As much of the text as fits in the width in front of three points; all of it when that fits.
std::shared_ptr<const Platform::TextLine> Shortened(const Platform::Font& font,
                                                    std::string_view text, std::int32_t width);

} // namespace Kesto
