// A line of text as one font lays it out: how wide it is, where a caret can be, and what it
// covers.
//
// Positions in the text are bytes of the UTF-8 that it was made of. Distances are pixels from the
// line's left end to the right, in whichever direction the text is read; the line itself is laid
// out from left to right unless its first letter is of a script that runs the other way. Bytes that
// are no UTF-8 show as U+FFFD, control characters as spaces; nothing is a line end.
#pragma once

#include "platform/system/pixel_rect.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

namespace Platform {

// What a reader takes for one character: letters with their marks, joined emoji. A caret is
// before or after it, never within.
struct TextCluster {
    std::uint32_t start = 0;  // its first byte; it ends where the next one starts
    float leading = 0.0F;     // where a caret before it is
    float trailing = 0.0F;    // where a caret after it is; to the left in right-to-left text
    bool breakBefore = false; // the text may be broken into lines here
    bool wordBefore = false;  // a word begins or ends here
    bool blank = false;       // white space
};

struct TextExtent {
    float left = 0.0F;
    float right = 0.0F;
};

// The part of a line that the system's text engine supplies: its ink.
class TextInk {
public:
    virtual ~TextInk() = default;

    // Fills `coverage` (0 none, 255 full), row by row, with what the line covers of `area`, whose
    // numbers are pixels from the left end of the base line.
    virtual void Render(const PixelRect& area, std::span<std::uint8_t> coverage) const = 0;
};

class TextLine {
public:
    struct Shape {
        std::uint32_t length = 0; // bytes
        float advance = 0.0F;     // where the line ends
        std::int32_t width = 0;
        bool rightToLeft = false;          // as a whole
        std::vector<TextCluster> clusters; // in the text's order
        // Says where rows and words begin, the first time that it matters; empty where it was said.
        std::function<void(std::span<TextCluster>)> mark;
        PixelRect inkBounds; // covers all that is drawn
        // Says it better, the first time that it matters: most lines are only measured.
        std::function<PixelRect()> findInkBounds;
        PixelRect underline;                // drawn besides the ink, within its bounds
        std::unique_ptr<const TextInk> ink; // null where nothing is drawn
    };

    explicit TextLine(Shape shape);

    // Pixels that hold the line however its glyphs are rounded: the larger of its widths with and
    // without hinting, to the next whole number.
    std::int32_t Width() const { return fShape.width; }
    bool IsRightToLeft() const { return fShape.rightToLeft; }
    std::size_t Length() const { return fShape.length; }
    std::span<const TextCluster> Clusters() const;

    // Where a caret before this byte is; within a cluster it is the cluster's start, from the
    // text's end on the end of the line.
    float XOf(std::size_t position) const;

    // The position whose caret is nearest to x.
    std::size_t PositionAt(double x) const;

    // The next position for a caret after this one, or before it, at most the end and at least 0.
    std::size_t NextPosition(std::size_t position) const;
    std::size_t PreviousPosition(std::size_t position) const;

    // What lies between two positions, from left to right; more than one piece where the directions
    // of scripts mix.
    std::vector<TextExtent> ExtentsOf(std::size_t from, std::size_t to) const;

    // Bytes of the first row that fits into `width` pixels when the text is broken where it may be,
    // from `from` on; where nothing fits, one cluster at least. Blanks at the end take no room.
    std::size_t FitRow(std::size_t from, double width) const;

    // All that is drawn lies within, in pixels from the left end of the base line.
    const PixelRect& InkBounds() const;

    // The ink's coverage of `area`, which lies within InkBounds, row by row; valid until the next
    // call on any line. Lines of a usual length are rendered once.
    struct Coverage {
        const std::uint8_t* first;
        std::ptrdiff_t rowBytes;
    };
    Coverage CoverageOf(const PixelRect& area) const;

    // Bytes that the line keeps, or will keep when it is drawn.
    std::size_t MemorySize() const { return fMemorySize; }

private:
    std::size_t ClusterAt(std::size_t position) const;
    std::size_t RowEnd(std::size_t first, std::size_t most) const;
    void Render(const PixelRect& area, std::vector<std::uint8_t>& coverage) const;

    mutable Shape fShape;
    std::size_t fMemorySize;
    mutable std::unique_ptr<const TextInk> fInk;
    mutable std::vector<std::uint8_t> fCoverage; // of all the bounds, in place of the ink
};

} // namespace Platform
