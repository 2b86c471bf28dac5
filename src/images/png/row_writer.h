// Puts rows of unfiltered samples where their pixels belong in the planes of a pixmap.
#pragma once

#include "images/png/png_format.h"
#include "images/png/sample_rows.h"
#include "pixels/pixmaps/pixview.h"

#include <cstdint>

namespace Kesto {

class CBasicPixmap;

class PNGRowWriter {
public:
    // REQUIRES: the pixmap has 8 bits a pixel, the size of the image and the planes of the format,
    // and outlives this.
    PNGRowWriter(CBasicPixmap& pixmap, const SampleFormat& format, PNGColor color,
                 bool hasFilterBytes);

    // Takes over `rows` rows of a pass from row `first` of it on. `data` begins with the filter
    // byte of the first, if the file has such bytes.
    void Put(const PNGPass& pass, std::int32_t first, std::int32_t rows,
             const std::uint8_t* data) const;

private:
    CPixView fView;
    SampleFormat fFormat;
    PNGColor fColor;
    int fSkip; // bytes before a row's samples
};

} // namespace Kesto
