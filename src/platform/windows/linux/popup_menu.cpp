// Menus of Linux: popups that draw themselves and pump until something is chosen.
#include "platform/windows/popup_menu.h"

#include "platform/input/linux/queue.h"
#include "platform/input/message_numbers.h"
#include "platform/input/message_queue.h"
#include "platform/windows/focus.h"
#include "platform/windows/foreign_loop.h"
#include "platform/windows/linux/foreign_turn.h"
#include "platform/windows/linux/menu_level.h"
#include "platform/windows/mouse_state.h"
#include "platform/windows/system_window.h"
#include "platform/windows/window_place.h"

namespace Platform {
namespace {

using namespace Number;

bool gIsLeft = false; // the menu that is open is to be left

// What goes on beside a menu isn't for the windows there: neither hover nor the wheel.
bool IsKeptFromOthers(const QueuedMessage& message, MenuLevel& level)
{
    const bool isMove = message.number == kMouseMove;
    if (!isMove && message.number != kWheel && message.number != kSidewaysWheel)
        return false;
    if (level.Covers({message.x, message.y}))
        return false;
    if (isMove)
        level.MouseLeft();
    return true;
}

} // namespace

// A press outside leaves the menu and does nothing else; keys are the menu's alone. So does another
// window that becomes the active one, and the owner's own move.
int RunPopupMenu(NativeWindow window, const PixelRect& beside, std::span<const MenuRow> rows,
                 const MenuLook& look)
{
    const ForeignLoop turns;
    ReleaseMouse(); // whoever opened it may have it still, and the menu is chosen from by a drag
                    // too
    const NativeWindow owner = TopWindowOf(window);
    const NativeWindow active = FrontmostWindow();
    const PixelRect place = ContentOf(owner);
    MenuLevel level(owner, beside, rows, look);
    gIsLeft = false;
    while (!gIsLeft && level.IsAlive() && !level.Chosen() && FrontmostWindow() == active &&
           ContentOf(owner) == place) {
        const std::optional<QueuedMessage> message = AwaitMessage();
        if (!message && Queue::Get().IsQuitAsked())
            return 0;
        if (!message) {
            TakeForeignTurn();
            continue;
        }
        const bool isKey = message->number >= kKeyFirst && message->number <= kKeyLast;
        if (IsPress(message->number) && !level.Covers({message->x, message->y}))
            return 0;
        if (isKey && message->number == kKeyDown && !level.TakeKey(message->first))
            return 0;
        if (!isKey && !IsKeptFromOthers(*message, level))
            DispatchToWindow(*message);
        if (message->number == kTimer)
            TakeForeignTurn();
    }
    return level.Chosen().value_or(0);
}

void LeavePopupMenu()
{
    gIsLeft = true;
}

} // namespace Platform
