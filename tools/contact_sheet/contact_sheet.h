// ContactSheet, a picture on which a tool lays out samples with their names, to be looked at.
#pragma once

#include "foundation/base/geometry.h"
#include "pixels/pixmaps/pixview.h"

#include <cairo.h>

#include <cstdint>
#include <memory>
#include <string>

class ContactSheet {
public:
    // Pixels; all of it in one colour. Colours are 0xRRGGBB.
    ContactSheet(std::int32_t width, std::int32_t height, std::uint32_t colour);

    void Fill(const Kesto::PixelRect& rect, std::uint32_t colour);

    // Lays 1 to 4 planes of 8 bits over the sheet, their first pixel at (x, y): grey or red, green,
    // blue, with alpha after them in 2 and 4. Other pictures are left out.
    void Draw(const Kesto::CPixView& picture, std::int32_t x, std::int32_t y);

    // The text begins at x; y is its base line.
    void Label(const std::string& text, std::int32_t x, std::int32_t y, std::uint32_t colour = 0);
    static constexpr std::int32_t kLabelHeight = 13;

    // The width that Label takes.
    std::int32_t LabelWidth(const std::string& text) const;

    // Writes a PNG. False if that fails.
    bool Write(const std::string& path) const;

private:
    std::unique_ptr<cairo_surface_t, void (*)(cairo_surface_t*)> fSurface;
    std::unique_ptr<cairo_t, void (*)(cairo_t*)> fContext;
};
