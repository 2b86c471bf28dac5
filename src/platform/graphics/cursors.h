// Mouse cursors: the system's shapes, and those made of pixels.
#pragma once

#include "platform/system/pixel_rect.h"

#include <cstdint>
#include <memory>
#include <span>

namespace Platform {

enum class CursorShape {
    kArrow,
    kText,
    kCross,
    kHand,
    kWait,
    kArrowWait,
    kNotAllowed,
    kHelp,
    kSizeLeftRight,
    kSizeUpDown,
    kSizeFalling, // from the top left to the bottom right
    kSizeRising,
    kSizeAll,
    kHidden,
};
inline constexpr int kCursorShapes = 14;

// A handle that is cheap to copy; the cursor is destroyed with the last one. A window shows it.
class Cursor {
public:
    explicit Cursor(CursorShape shape = CursorShape::kArrow);

    // Of premultiplied pixels (alpha at the top, then red, green, blue), row by row from the top.
    // The hot spot is cut to the picture. Where there can be no such cursor (no pixels, more than
    // 512 a side, the system refuses) it is the arrow.
    Cursor(std::span<const std::uint32_t> pixels, std::int32_t width, std::int32_t height,
           PixelPoint hotSpot);

    // What each system makes of it, for the sources of the platform that show it.
    class Record;
    const Record& GetRecord() const { return *fRecord; }

    friend bool operator==(const Cursor&, const Cursor&) = default; // the same handle

private:
    // Each system's own; null where it refuses the picture.
    static std::shared_ptr<const Record> MakeRecord(CursorShape shape);
    static std::shared_ptr<const Record> MakeRecord(std::span<const std::uint32_t> pixels,
                                                    std::int32_t width, std::int32_t height,
                                                    PixelPoint hotSpot);

    std::shared_ptr<const Record> fRecord;
};

} // namespace Platform
