// The rows of a field: where its text lies in one font, and where carets can be.
//
// Positions are bytes of the field's text. Coordinates are pixels from the top left of the text,
// before any scrolling.
#pragma once

#include "platform/graphics/fonts.h"
#include "platform/windows/edit_control.h"

#include <memory>
#include <string_view>
#include <vector>

namespace Platform {

class EditLayout {
public:
    struct Row {
        std::size_t start;
        std::size_t end; // without a line feed
        std::shared_ptr<const TextLine> line;
        std::int32_t left; // by the side that the text keeps to
    };

    // Lays the text out for a field of that width.
    void Arrange(std::string_view text, const EditStyle& style, const Font& font,
                 std::int32_t width);

    const std::vector<Row>& Rows() const { return fRows; }
    std::int32_t RowHeight() const { return fRowHeight; }
    std::int32_t Ascent() const { return fAscent; }
    std::int32_t Width() const { return fWidth; } // of the widest row
    std::int32_t Height() const { return fRowHeight * static_cast<std::int32_t>(fRows.size()); }

    // Where a caret is: its row and the distance from the text's left.
    std::size_t RowOf(std::size_t position) const;
    std::int32_t XOf(std::size_t position) const;
    std::size_t PositionAt(std::int32_t x, std::int32_t y) const;
    std::size_t PositionIn(std::size_t row, std::int32_t x) const;

    // What a row shows as selected between two positions, left to right.
    std::vector<TextExtent> ExtentsIn(std::size_t row, std::size_t from, std::size_t to) const;

    // The next stop of the caret in the order of the text, and of a word. At an end it stays.
    std::size_t Next(std::size_t position) const;
    std::size_t Previous(std::size_t position) const;
    std::size_t NextWord(std::size_t position) const;
    std::size_t PreviousWord(std::size_t position) const;

    // The word, with the blanks after it, that a position lies in.
    TextRange WordAt(std::size_t position) const;

private:
    void AddRows(std::size_t start, std::size_t end, const Font& font, std::int32_t width);
    std::size_t Shown(const Row& row, std::size_t position) const;
    std::size_t Meant(const Row& row, std::size_t shown) const;
    bool IsWordStart(std::size_t position) const;

    std::string_view fText; // of the last Arrange
    EditStyle fStyle;
    std::vector<Row> fRows;
    std::int32_t fRowHeight = 0;
    std::int32_t fAscent = 0;
    std::int32_t fWidth = 0;
};

} // namespace Platform
