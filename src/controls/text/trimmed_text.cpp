#include "controls/text/trimmed_text.h"

#include "drawing/ports/system_port.h"
#include "layout/vocabulary/text_options.h"

#include <string_view>
#include <vector>

namespace Kesto {

namespace {

constexpr std::string_view kPoints = "...";

// Where each character begins, and the end.
std::vector<std::size_t> CharacterStarts(std::string_view text)
{
    std::vector<std::size_t> starts;
    for (std::size_t i = 0; i < text.size(); ++i)
        if ((static_cast<unsigned char>(text[i]) & 0xC0) != 0x80)
            starts.push_back(i);
    starts.push_back(text.size());
    return starts;
}

// With so many characters kept; of the two sides of a middle, the first has the odd one.
CText Keeping(std::string_view text, const std::vector<std::size_t>& starts, std::size_t kept,
              std::int32_t trim)
{
    const std::size_t count = starts.size() - 1;
    const std::size_t first = trim == kTrim_Start    ? 0
                              : trim == kTrim_Middle ? (kept + 1) / 2
                                                     : kept;
    return CText::Join(
        {text.substr(0, starts[first]), kPoints, text.substr(starts[count - (kept - first)])});
}

} // namespace

CText TrimmedText(const CSystemPort& port, const CText& text, double width, std::int32_t trim)
{
    if (trim == kTrim_None || port.MeasureText(text.View()) <= width)
        return text;
    const std::vector<std::size_t> starts = CharacterStarts(text.View());
    std::size_t fits = 0; // so many characters fit, or none do
    for (std::size_t tooMany = starts.size(); fits + 1 < tooMany;) {
        const std::size_t kept = (fits + tooMany) / 2;
        if (port.MeasureText(Keeping(text.View(), starts, kept, trim).View()) <= width)
            fits = kept;
        else
            tooMany = kept;
    }
    return Keeping(text.View(), starts, fits, trim);
}

} // namespace Kesto
