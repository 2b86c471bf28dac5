// ContactSheet, a picture on which a tool lays out samples with their names, to be looked at.
#pragma once

#include "drawing/ports/image.h"
#include "foundation/base/geometry.h"
#include "pixels/pixmaps/pixview.h"

#include <cstdint>
#include <string>

class ContactSheet {
public:
    // Pixels; all of it in one colour. Colours are 0xRRGGBB. Throws Kesto::CSystemError when there
    // can be no such bitmap.
    ContactSheet(std::int32_t width, std::int32_t height, std::uint32_t colour);

    void Fill(const Kesto::PixelRect& rect, std::uint32_t colour);

    // Lays 1 to 4 planes of 8 bits over the sheet, their first pixel at (x, y), which lies on it:
    // grey or red, green, blue, with alpha after them in 2 and 4. Other pictures are left out.
    void Draw(const Kesto::CPixView& picture, std::int32_t x, std::int32_t y);

    // The text begins at x; y is its base line.
    void Label(const std::string& text, std::int32_t x, std::int32_t y, std::uint32_t colour = 0);
    static constexpr std::int32_t kLabelHeight = 13;

    // The width that Label takes.
    std::int32_t LabelWidth(const std::string& text) const;

    // Writes a picture of the kind that the path says. False if that fails.
    bool Write(const std::string& path) const;

private:
    Kesto::CImage fImage;
};
