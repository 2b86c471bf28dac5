#include "controls/base/drawn_control.h"

#include "view/messages/message_ids.h"

namespace Kesto {

EButtonState CDrawnControl::GetDrawState() const
{
    return ButtonStateOf(IsActive(), IsUsable(), fPressed, fHovered);
}

void CDrawnControl::SetPressed(bool pressed)
{
    if (pressed == fPressed)
        return;
    fPressed = pressed;
    InvalidateAll();
}

void CDrawnControl::MouseEnter(const CMouseEvent&)
{
    fHovered = true;
    InvalidateAll();
}

void CDrawnControl::MouseExit()
{
    fHovered = false;
    InvalidateAll();
}

bool CDrawnControl::PrimaryMultiClick(const CMouseEvent& event, int)
{
    PrimaryClick(event);
    return true;
}

bool IsPlainKeyDown(const CKeyboardMessage& message)
{
    constexpr std::uint32_t kOthers = CMessage::kModifier_Control | CMessage::kModifier_Alt;
    return message.fID == kMessage_KeyDown && (message.fModifiers & kOthers) == 0;
}

} // namespace Kesto
