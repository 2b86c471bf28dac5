// What a port draws with: pen, brush, font, colours, transfer mode, and the shapes and flags that
// its operations take. Lengths are in units.
#pragma once

#include "foundation/base/geometry.h"
#include "foundation/base/text.h"
#include "platform/graphics/colour.h"

#include <cstdint>

namespace Kesto {

using Platform::Colour;

inline constexpr Colour kBlack{0, 0, 0};
inline constexpr Colour kWhite{255, 255, 255};

// A line's colour and width; on the device it is at least a pixel wide. A width of 0 or below, or
// one that is no number, is the thinnest line.
struct CPen {
    Colour colour = kBlack;
    double width = 1.0;

    friend bool operator==(const CPen&, const CPen&) = default;
};

// A fill in one colour, or in two by a pattern of 8 by 8 device pixels that begins at the brush
// origin: bit 63 is the top left pixel, and 1 means `colour`.
struct CBrush {
    static constexpr std::uint64_t kSolid = ~std::uint64_t{0};
    static constexpr std::uint64_t kChecks = 0xAA55AA55AA55AA55; // every other pixel

    Colour colour = kWhite;
    Colour second = kBlack;
    std::uint64_t pattern = kSolid;

    friend bool operator==(const CBrush&, const CBrush&) = default;
};

// A face by its name, or several with commas between them of which the first that is installed
// counts. The size is that of the em square; at a scale it is mapped by the one rule, and is at
// least a pixel.
struct CFont {
    CText face = "Tahoma";
    double size = 11.0;
    bool bold = false;
    bool italic = false;

    friend bool operator==(const CFont&, const CFont&) = default;
};

// Of the port's font. Lines are 16 units apart and have their base line 12 below their top,
// whatever the font, so that texts of all sizes in a row read as one line; only for fonts that do
// not fit into that they are higher.
struct SFontMetrics {
    double ascent = 0.0;  // above the base line
    double descent = 0.0; // below it
    double lineHeight = 16.0;
    double baseLine = 12.0; // below the top of a line
    double averageWidth = 0.0;
};

// How a shape that is painted meets what is there: replaces it, or flips the bits of its colours
// that the tool has, so that painting twice leaves nothing. Lines, text and pictures replace.
enum ETransferMode : std::int32_t { kTransfer_Copy, kTransfer_Xor };

// Without a flag for a direction the text is centred in it.
enum ETextFlags : std::uint32_t {
    kText_Centred = 0,
    kText_Left = 1,
    kText_Wrap = 2,       // breaks lines between words
    kText_Ellipsis = 4,   // cuts a line that is too wide and ends it with three points
    kText_Mnemonic = 8,   // "&" underlines the next character, "&&" is "&"
    kText_Focused = 0x10, // the caller's: its view has the focus
    kText_Top = 0x20,
    kText_Right = 0x40,
    kText_Bottom = 0x80,
    kText_HideMnemonic = 0x100 // reads "&" as kText_Mnemonic does and underlines nothing
};

// The ellipse in a frame.
struct Oval {
    Rect frame;
};

// A frame with quarter circles for corners. The radius is at most half of the shorter side.
struct RoundRect {
    Rect frame;
    double radius = 0.0;
};

} // namespace Kesto
