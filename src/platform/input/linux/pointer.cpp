#include "platform/input/pointer.h"

#include "platform/input/linux/input.h"
#include "platform/input/linux/queue.h"

namespace Platform {

PixelPoint CursorPosition()
{
    return Queue::Get().Cursor();
}

bool TellsWhenMouseLeaves()
{
    return true;
}

// The display exchanges the buttons before anyone hears of them.
bool AreButtonsSwapped()
{
    return false;
}

NativeWindow WindowAt(PixelPoint point)
{
    for (const NativeWindow window : Queue::Get().Windows())
        if (static_cast<const MessageReceiver*>(window)->Covers(point))
            return window;
    return nullptr;
}

} // namespace Platform
