// Fonts: what they measure, and the lines that they lay out.
//
// Text is grey-antialiased with hinted metrics, digits are equally wide and no ligatures are made.
// A font that isn't installed falls back to one that is, and so does a character that the font
// hasn't. Fonts and their lines are kept between uses; they belong to the thread of the user
// interface.
#pragma once

#include "platform/graphics/text_line.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace Platform {

struct FontSpec {
    std::string face = "Tahoma";
    std::int32_t pixels = 11;  // of the em square; taken as 1 to 1000
    std::int32_t weight = 400; // 400 regular, 700 bold
    bool italic = false;
    bool underline = false;

    friend auto operator<=>(const FontSpec&, const FontSpec&) = default;
};

// In pixels. Height is ascent and descent together.
struct FontMetrics {
    std::int32_t ascent = 0;  // above the base line
    std::int32_t descent = 0; // below it
    std::int32_t height = 0;
    std::int32_t averageWidth = 0; // of a character
    std::int32_t maxWidth = 0;
    std::int32_t underlineTop = 0; // below the base line
    std::int32_t underlineThickness = 1;
};

// A handle that is cheap to copy.
class Font {
public:
    // Finds the font among those that are kept, or makes it. Never fails.
    explicit Font(const FontSpec& spec = {});

    const FontSpec& Spec() const;
    const FontMetrics& Metrics() const;

    // The text in this font. A line that is known still is found without allocating; the least
    // recently used ones are dropped. Of a text of more than 32,000 characters, or 500,000
    // pixels if each were as wide as high, the rest is left out.
    std::shared_ptr<const TextLine> Line(std::string_view utf8) const;

    // Its Width.
    std::int32_t WidthOf(std::string_view utf8) const { return Line(utf8)->Width(); }

private:
    class Record;
    friend class FontStore;
    std::shared_ptr<Record> fRecord;
};

// Drops all kept fonts and lines, so that nothing of the graphics system is held but by those who
// hold a font or a line themselves.
void DropKeptFonts();

} // namespace Platform
