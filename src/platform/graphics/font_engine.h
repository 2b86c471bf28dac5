// What a system's text engine does for one font: it measures the font and lays out lines.
#pragma once

#include "platform/graphics/fonts.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace Platform {

// A text as the engines take it: characters that Unicode has, without control characters.
struct PlainText {
    std::u32string characters;
    std::vector<std::uint32_t> starts; // byte of each in the original, and the end; one more
};

// Of the first `most` characters. What is no character becomes U+FFFD, a control character a space.
PlainText MakePlainText(std::string_view utf8, std::size_t most);

class FontEngine {
public:
    virtual ~FontEngine() = default;

    virtual FontMetrics Metrics() const = 0;

    // All of the line but its underline; the clusters' starts are bytes of the original text.
    virtual TextLine::Shape LayOut(const PlainText& text) const = 0;
};

// Each system's own. The size asked for is within the limits.
std::unique_ptr<FontEngine> MakeFontEngine(const FontSpec& spec);

} // namespace Platform
