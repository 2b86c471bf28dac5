// An engine for the texts that dialogs are full of: printable ASCII in a font that has it. It gives
// what Pango's gives, to the pixel and the caret, without loading Pango and Cairo, which takes
// longer than all else that a first dialog waits for.
#pragma once

#include "platform/graphics/font_engine.h"

#include <memory>
#include <optional>

namespace Platform {

class LatinEngine {
public:
    virtual ~LatinEngine() = default;

    virtual FontMetrics Metrics() const = 0;

    // None for a text that has more than printable ASCII, or needs more than a glyph for each
    // character.
    virtual std::optional<TextLine::Shape> LayOut(const PlainText& text) const = 0;
};

// Null if this font is none that can be drawn so.
std::unique_ptr<LatinEngine> MakeLatinEngine(const FontSpec& spec);

} // namespace Platform
