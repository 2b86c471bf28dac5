#include "drawing/ports/text_rows.h"

namespace Kesto {
namespace {

constexpr std::string_view kEllipsis = "\xE2\x80\xA6";

// Cuts the first line off a text, without its end: LF, CR or both.
std::string_view TakeLine(std::string_view& text)
{
    const std::size_t end = text.find_first_of("\r\n");
    const std::string_view line = text.substr(0, end);
    if (end == std::string_view::npos)
        text = {};
    else
        text.remove_prefix(end + (text.substr(end, 2) == "\r\n" ? 2 : 1));
    return line;
}

} // namespace

CMnemonicText::CMnemonicText(std::string_view marked)
{
    text.reserve(marked.size());
    for (std::size_t i = 0; i < marked.size(); ++i) {
        if (marked[i] == '&') {
            if (++i == marked.size())
                break;
            if (marked[i] != '&' && mnemonic == kNone)
                mnemonic = text.size();
        }
        text += marked[i];
    }
}

std::vector<CTextRow> BreakRows(const Platform::Font& font, std::string_view text, double width,
                                bool wrap)
{
    std::vector<CTextRow> rows;
    std::string_view rest = text;
    do {
        const std::string_view whole = TakeLine(rest);
        const auto first = static_cast<std::size_t>(whole.data() - text.data());
        auto line = font.Line(whole);
        if (!wrap || line->Width() <= width) {
            rows.push_back({std::move(line), first});
            continue;
        }
        for (std::size_t from = 0; from < whole.size();) {
            const std::size_t count = line->FitRow(from, width);
            if (count == 0) // a line is laid out up to a limit
                break;
            std::string_view row = whole.substr(from, count);
            row = row.substr(0, row.find_last_not_of(' ') + 1);
            rows.push_back({font.Line(row), first + from});
            from += count;
        }
    } while (!rest.empty());
    if (rows.empty())
        rows.push_back({font.Line(""), 0});
    return rows;
}

std::shared_ptr<const Platform::TextLine> Shortened(const Platform::Font& font,
                                                    std::string_view text, std::int32_t width)
{
    auto line = font.Line(text);
    if (line->Width() <= width)
        return line;
    const std::int32_t room = width - font.WidthOf(kEllipsis);
    std::size_t end = room > 0 ? line->PositionAt(room) : 0;
    for (;;) {
        std::string cut(text.substr(0, end));
        cut.erase(cut.find_last_not_of(' ') + 1);
        auto shortened = font.Line(cut.append(kEllipsis));
        if (end == 0 || shortened->Width() <= width)
            return shortened;
        end = line->PreviousPosition(end);
    }
}

} // namespace Kesto
