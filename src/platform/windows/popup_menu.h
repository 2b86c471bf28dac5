// A menu that pops up beside a rectangle and stays until something is chosen.
#pragma once

#include "platform/graphics/colour.h"
#include "platform/graphics/fonts.h"
#include "platform/system/native_window.h"
#include "platform/system/pixel_rect.h"

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace Platform {

struct MenuRow {
    int id = 0;       // above 0; others can't be chosen
    std::string text; // UTF-8; of a separator it doesn't matter
    bool enabled = true;
    bool checked = false;
    bool separator = false;
    std::vector<MenuRow> rows; // of a submenu
};

// How a menu looks where we draw it ourselves; Windows draws its own.
struct MenuLook {
    Colour ground;
    Colour edge;
    Colour text;
    Colour dimText; // of rows that can't be chosen
    Colour lit;     // the ground of the row under the mouse
    Colour litText;
    FontSpec font;
    // Pixels.
    std::int32_t padding;         // above, below and beside texts
    std::int32_t markWidth;       // before each text, for the check mark
    std::int32_t separatorHeight; // with what is free around the line
    std::int32_t leastWidth;      // of the menu itself; submenus are as wide as their texts ask
};

// Shows the menu below a rectangle of the screen, left edge below left edge, or above it where
// there is no room, and pumps the thread's messages meanwhile. Returns the id of the row that was
// chosen, 0 for none.
int RunPopupMenu(NativeWindow window, const PixelRect& beside, std::span<const MenuRow> rows,
                 const MenuLook& look);

// Leaves the menu that is open, if there is one, with nothing chosen.
void LeavePopupMenu();

} // namespace Platform
