// What a Cursor names: a shape or pixels, until a display is there to make a cursor of them.
#pragma once

#include "platform/graphics/cursors.h"

#include <vector>
#include <xcb/xcb.h>

namespace Platform {

class Cursor::Record {
public:
    CursorShape shape = CursorShape::kArrow; // where there are no pixels
    std::vector<std::uint32_t> pixels;
    std::int32_t width = 0;
    std::int32_t height = 0;
    PixelPoint hotSpot;
};

// The display's cursor, which the caller frees; XCB_NONE if the display has no such cursor.
xcb_cursor_t MakeDisplayCursor(xcb_connection_t* display, xcb_screen_t* screen,
                               const Cursor& cursor);

} // namespace Platform
