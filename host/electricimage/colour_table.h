// Colour tables for pictures whose pixels have 1, 2, 4 or 8 bits.
#pragma once

#include "pictures/picture.h"

#include <cstdint>
#include <string>
#include <unordered_map>

namespace Host {

// A table of at most 1 << bits colours for a picture, and the index of each of its colours.
class ColourTable {
public:
    // Looks at all rows of the picture. A picture with an index for each of its colours in reach
    // keeps its table as it is; otherwise the colours in use get a table of their own. If they are
    // too many, `reduce` lets similar ones share an entry; without it that is a Failure. `name` is
    // the picture's, for messages.
    ColourTable(PictureSource& picture, int bits, bool reduce, const std::string& name);

    const Palette& Colours() const { return fPalette; }

    // Writes one index for each pixel of a row of the picture.
    void Convert(const PictureInfo& info, const uint8_t* row, uint8_t* indices);

private:
    bool KeepIndices(PictureSource& picture);
    uint8_t IndexOf(uint32_t colour) const { return fIndices.at(colour); }

    size_t fSize; // entries allowed
    Palette fPalette;
    bool fKeep = false;                             // the picture's own indices are kept
    std::unordered_map<uint32_t, uint8_t> fIndices; // by colour, 0xRRGGBB
};

} // namespace Host
