#include "platform/windows/popup_menu.h"

#include "platform/input/stopped_exception.h"
#include "platform/system/win32/handles.h"
#include "platform/system/win32/wide.h"
#include "platform/windows/foreign_loop.h"

namespace Platform {
namespace {

// A submenu belongs to the menu that it hangs in.
HMENU MakeMenu(std::span<const MenuRow> rows)
{
    const HMENU menu = CreatePopupMenu();
    for (const MenuRow& row : rows) {
        UINT flags = row.separator ? MF_SEPARATOR : MF_STRING;
        flags |= row.enabled ? MF_ENABLED : MF_GRAYED;
        flags |= row.checked ? MF_CHECKED : MF_UNCHECKED;
        auto item = static_cast<UINT_PTR>(row.id);
        if (!row.rows.empty()) {
            flags |= MF_POPUP;
            item = reinterpret_cast<UINT_PTR>(MakeMenu(row.rows));
        }
        AppendMenuW(menu, flags, item, ToWide(row.text).c_str());
    }
    return menu;
}

} // namespace

int RunPopupMenu(NativeWindow window, PixelPoint corner, std::span<const MenuRow> rows,
                 const MenuLook&)
{
    const ForeignLoop loop;
    const HMENU menu = MakeMenu(rows);
    const int chosen = TrackPopupMenu(menu, TPM_RETURNCMD | TPM_LEFTALIGN | TPM_TOPALIGN, corner.x,
                                      corner.y, 0, Handle(window), nullptr);
    DestroyMenu(menu);
    ThrowStopped();
    return chosen;
}

} // namespace Platform
