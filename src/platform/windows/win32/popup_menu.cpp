#include "platform/windows/popup_menu.h"

#include "platform/input/stopped_exception.h"
#include "platform/system/win32/handles.h"
#include "platform/system/win32/wide.h"
#include "platform/windows/foreign_loop.h"

namespace Platform {
namespace {

// An ampersand of the text is one, and underlines nothing.
std::wstring LabelOf(const MenuRow& row)
{
    std::wstring label = ToWide(row.text);
    for (std::size_t at = 0; (at = label.find(L'&', at)) != label.npos; at += 2)
        label.insert(at, 1, L'&');
    return label;
}

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
        AppendMenuW(menu, flags, item, LabelOf(row).c_str());
    }
    return menu;
}

// Of the key that opens a menu, whose character is in the queue already: a blank or a return would
// choose from the menu, which then closes at once.
void DropPendingCharacter()
{
    MSG character;
    PeekMessageW(&character, nullptr, WM_CHAR, WM_CHAR, PM_REMOVE);
}

} // namespace

int RunPopupMenu(NativeWindow window, const PixelRect& beside, std::span<const MenuRow> rows,
                 const MenuLook&)
{
    const ForeignLoop loop;
    const HMENU menu = MakeMenu(rows);
    DropPendingCharacter();
    TPMPARAMS free{sizeof(TPMPARAMS), {beside.left, beside.top, beside.right, beside.bottom}};
    const int chosen =
        TrackPopupMenuEx(menu, TPM_RETURNCMD | TPM_LEFTALIGN | TPM_TOPALIGN | TPM_VERTICAL,
                         beside.left, beside.bottom, Handle(window), &free);
    DestroyMenu(menu);
    ThrowStopped();
    return chosen;
}

void LeavePopupMenu()
{
    EndMenu();
}

} // namespace Platform
