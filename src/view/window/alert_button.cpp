#include "view/window/alert_button.h"

#include "drawing/frames/widget_skin.h"
#include "drawing/tools/draw_tools.h"
#include "platform/system/machine.h"
#include "view/messages/message_ids.h"
#include "view/tree/view_hold.h"
#include "view/window/window.h"

#include <utility>

namespace Kesto {
namespace {

constexpr std::uint32_t kFlashMilliseconds = 200;
constexpr std::uint32_t kSpace = 32;

} // namespace

CAlertButton::CAlertButton(const Rect& frame, CObjID id, CText label, bool isDefault, bool isCancel)
    : CPane(frame, id, kView_TabStop | kView_InvalidOnActivate), fLabel(std::move(label)),
      fIsDefault(isDefault), fIsCancel(isCancel)
{
}

CAlertButton::~CAlertButton()
{
    EndLife();
}

void CAlertButton::UpdateContext(CContext* context)
{
    if (auto* const window = dynamic_cast<CWindow*>(GetContext()))
        window->RemoveButton(*this);
    CPane::UpdateContext(context);
    if (auto* const window = dynamic_cast<CWindow*>(GetContext()))
        window->AddButton(*this);
}

EButtonState CAlertButton::StateNow() const
{
    return ButtonStateOf(IsActive(), IsUsable(), fIsPressed, MouseView() == this);
}

// At once, for everybody to see.
void CAlertButton::SetPressed(bool on)
{
    if (std::exchange(fIsPressed, on) != on)
        InvalidateAll(true);
}

bool CAlertButton::Flash()
{
    if (!IsVisible() || !IsUsable() || !IsActive())
        return false;
    const CViewHold hold(*this);
    SetPressed(true);
    Platform::Pause(kFlashMilliseconds);
    SetPressed(false);
    CCommandMessage message(this, GetID());
    SendCommandToParent(message);
    return true;
}

void CAlertButton::PrimaryClick(const CMouseEvent&)
{
    SetPressed(true);
}

void CAlertButton::PrimaryUp(const CMouseEvent& event)
{
    const CViewHold hold(*this);
    const bool wasPressed = fIsPressed;
    SetPressed(false);
    const Point at = PortToLocal(event.fPortPoint);
    const Rect& bounds = GetBounds();
    const bool isInside =
        at.x >= bounds.left && at.x < bounds.right && at.y >= bounds.top && at.y < bounds.bottom;
    if (!wasPressed || !isInside || hold.IsOver())
        return;
    CCommandMessage message(this, GetID());
    SendCommandToParent(message);
}

bool CAlertButton::HandleKey(CKeyboardMessage& message)
{
    if (message.fID == kMessage_KeyDown && message.fKeyCode == kSpace && message.fRepeated == 0)
        return Flash();
    return CPane::HandleKey(message);
}

void CAlertButton::DidBecomeBullseye()
{
    InvalidateAll();
    CPane::DidBecomeBullseye();
}

void CAlertButton::DidLoseBullseye()
{
    InvalidateAll();
    CPane::DidLoseBullseye();
}

void CAlertButton::DrawInContext(const CPaintEvent&)
{
    CSystemPort& port = *GetPort();
    const EButtonState state = StateNow();
    const Rect& cell = GetBounds();
    CWidgetSkin::DrawPushButton(port, cell, state, fIsDefault, IsBullseye() && !fIsDefault);
    port.SetFont(CDrawTools::Get().GetFont(kFont_UI));
    port.SetTextColour(ToolColour(CWidgetSkin::ButtonTextRole(state)));
    const double width = port.MeasureText(fLabel.View());
    port.DrawTextLine(fLabel.View(), {cell.left + (cell.Width() - width) / 2.0,
                                      cell.top + CWidgetSkin::BaseLine(cell.Height()) +
                                          CWidgetSkin::PressedShift(state)});
}

} // namespace Kesto
