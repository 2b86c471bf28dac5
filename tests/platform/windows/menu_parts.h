// Rows and the look of menus that tests open.
#pragma once

#include "platform/windows/popup_menu.h"

#include <utility>

namespace WindowTest {

inline Platform::MenuRow Row(int id, const char* text, std::vector<Platform::MenuRow> rows = {})
{
    Platform::MenuRow row;
    row.id = id;
    row.text = text;
    row.rows = std::move(rows);
    return row;
}

inline Platform::MenuLook SomeLook()
{
    Platform::MenuLook look{};
    look.padding = 4;
    look.markWidth = 20;
    look.separatorHeight = 7;
    look.leastWidth = 98;
    return look;
}

} // namespace WindowTest
