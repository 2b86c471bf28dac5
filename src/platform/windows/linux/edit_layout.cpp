#include "platform/windows/linux/edit_layout.h"

#include "platform/system/unicode.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace Platform {
namespace {

constexpr std::string_view kDot = "\xE2\x97\x8F";

std::string Dots(std::string_view text)
{
    std::string dots;
    for (std::size_t count = CountCharacters(text); count != 0; --count)
        dots += kDot;
    return dots;
}

} // namespace

// `text` must live until the next call.
void EditLayout::Arrange(std::string_view text, const EditStyle& style, const Font& font,
                         std::int32_t width)
{
    fText = text;
    fStyle = style;
    fRows.clear();
    fRowHeight = font.Metrics().height;
    fAscent = font.Metrics().ascent;
    std::size_t start = 0;
    while (true) {
        const std::size_t feed = style.multiLine ? text.find('\n', start) : text.npos;
        AddRows(start, std::min(feed, text.size()), font, width);
        if (feed == text.npos)
            break;
        start = feed + 1;
    }
    fWidth = 0;
    for (Row& row : fRows) {
        const std::int32_t free = std::max(width - 1 - row.line->Width(), 0);
        row.left = style.side == TextSide::kMiddle  ? free / 2
                   : style.side == TextSide::kRight ? free
                                                    : 0;
        fWidth = std::max(fWidth, row.left + row.line->Width());
    }
}

void EditLayout::AddRows(std::size_t start, std::size_t end, const Font& font, std::int32_t width)
{
    const std::string_view paragraph = fText.substr(start, end - start);
    if (fStyle.password) {
        fRows.push_back({start, end, font.Line(Dots(paragraph)), 0});
        return;
    }
    const auto whole = font.Line(paragraph);
    std::size_t from = 0;
    while (fStyle.wraps && whole->Width() > width && from < paragraph.size()) {
        // At least something, or a field narrower than a character would go round for ever.
        const std::size_t bytes = std::max<std::size_t>(whole->FitRow(from, width), 1);
        if (from + bytes >= paragraph.size())
            break;
        fRows.push_back(
            {start + from, start + from + bytes, font.Line(paragraph.substr(from, bytes)), 0});
        from += bytes;
    }
    fRows.push_back({start + from, end, from == 0 ? whole : font.Line(paragraph.substr(from)), 0});
}

// Positions of the row's line; a password's are those of its dots.
std::size_t EditLayout::Shown(const Row& row, std::size_t position) const
{
    const std::size_t within = std::clamp(position, row.start, row.end) - row.start;
    return fStyle.password ? CountCharacters(fText.substr(row.start, within)) * kDot.size()
                           : within;
}

std::size_t EditLayout::Meant(const Row& row, std::size_t shown) const
{
    if (!fStyle.password)
        return row.start + shown;
    std::size_t position = row.start;
    for (std::size_t count = shown / kDot.size(); count != 0 && position < row.end; --count)
        do
            ++position;
        while (position < row.end && IsContinuation(fText[position]));
    return position;
}

// A position where a row was broken belongs to the row that begins there.
std::size_t EditLayout::RowOf(std::size_t position) const
{
    std::size_t row = fRows.size() - 1;
    while (row > 0 && fRows[row].start > position)
        --row;
    return row;
}

std::int32_t EditLayout::XOf(std::size_t position) const
{
    const Row& row = fRows[RowOf(position)];
    return row.left + static_cast<std::int32_t>(std::lround(row.line->XOf(Shown(row, position))));
}

std::size_t EditLayout::PositionIn(std::size_t number, std::int32_t x) const
{
    const Row& row = fRows[number];
    const std::size_t position = Meant(row, row.line->PositionAt(x - row.left));
    const bool isBroken = number + 1 < fRows.size() && fRows[number + 1].start == row.end;
    return isBroken && position == row.end ? Previous(position) : position;
}

std::size_t EditLayout::PositionAt(std::int32_t x, std::int32_t y) const
{
    const auto row = static_cast<std::size_t>(std::max(y, 0) / std::max(fRowHeight, 1));
    return PositionIn(std::min(row, fRows.size() - 1), x);
}

std::vector<TextExtent> EditLayout::ExtentsIn(std::size_t number, std::size_t from,
                                              std::size_t to) const
{
    const Row& row = fRows[number];
    return row.line->ExtentsOf(Shown(row, from), Shown(row, to));
}

std::size_t EditLayout::Next(std::size_t position) const
{
    if (position >= fText.size())
        return fText.size();
    const Row& row = fRows[RowOf(position)];
    if (position >= row.end)
        return position + 1; // the line feed
    return Meant(row, row.line->NextPosition(Shown(row, position)));
}

std::size_t EditLayout::Previous(std::size_t position) const
{
    if (position == 0)
        return 0;
    std::size_t number = RowOf(position);
    if (position == fRows[number].start) {
        --number;
        if (fRows[number].end != position)
            return position - 1;
    }
    const Row& row = fRows[number];
    return Meant(row, row.line->PreviousPosition(Shown(row, position)));
}

// A letter after something that is none. Line feeds part words, and a password has none inside.
bool EditLayout::IsWordStart(std::size_t position) const
{
    const Row& row = fRows[RowOf(position)];
    if (position == row.start)
        return true;
    if (fStyle.password || position >= row.end)
        return false;
    const char here = fText[position];
    if (here == ' ' || here == '\t')
        return false;
    for (const TextCluster& cluster : row.line->Clusters())
        if (cluster.start == position - row.start)
            return cluster.wordBefore;
    return false;
}

std::size_t EditLayout::NextWord(std::size_t position) const
{
    do
        position = Next(position);
    while (position < fText.size() && !IsWordStart(position));
    return position;
}

std::size_t EditLayout::PreviousWord(std::size_t position) const
{
    do
        position = Previous(position);
    while (position > 0 && !IsWordStart(position));
    return position;
}

TextRange EditLayout::WordAt(std::size_t position) const
{
    const std::size_t from = IsWordStart(position) ? position : PreviousWord(position);
    const Row& row = fRows[RowOf(from)];
    return {from, std::min(NextWord(from), std::max(row.end, from))};
}

} // namespace Platform
