#include "controls/buttons/custom_button.h"

#include "controls/base/mnemonic.h"
#include "controls/buttons/button_tracker.h"
#include "controls/buttons/radio_group.h"
#include "drawing/frames/widget_skin.h"
#include "drawing/ports/system_port.h"
#include "drawing/tools/draw_tools.h"
#include "platform/system/machine.h"
#include "view/messages/key_codes.h"
#include "view/messages/message_ids.h"
#include "view/tree/view_hold.h"
#include "view/window/window.h"

namespace Kesto {
namespace {

constexpr std::uint32_t kFlashMilliseconds = 200;

// What the skin's button takes from each side of its content.
constexpr double kSkinMargin = 2.0;

double Now()
{
    return Platform::TickCount() / 1000.0;
}

} // namespace

CCustomButton::CCustomButton(const Rect& frame, CObjID id, std::uint32_t options,
                             std::uint32_t binding, EButtonKind kind, CText label, bool isDefault)
    : CControlPane(frame, id, options, binding), fKind(kind), fLabel(std::move(label)),
      fIsDefault(isDefault)
{
    ListenForMnemonic();
}

CCustomButton::~CCustomButton()
{
    if (auto* const window = dynamic_cast<CWindow*>(GetContext()))
        window->RemoveButton(*this);
}

void CCustomButton::UpdateContext(CContext* context)
{
    if (auto* const window = dynamic_cast<CWindow*>(GetContext()))
        window->RemoveButton(*this);
    CPane::UpdateContext(context);
    if (auto* const window = dynamic_cast<CWindow*>(GetContext()))
        window->AddButton(*this);
}

void CCustomButton::SetValue(EButtonValue value)
{
    SetButtonState(value, fTrack, true);
}

void CCustomButton::SetLabel(CText label)
{
    if (label == fLabel)
        return;
    fLabel = std::move(label);
    ListenForMnemonic();
    InvalidateAll();
}

void CCustomButton::ListenForMnemonic()
{
    const std::uint32_t client = GetClient() & ~kClient_Keys;
    SetClient(HasMnemonic(fLabel.View()) ? client | kClient_Keys : client);
}

void CCustomButton::SetFont(EFontKind font)
{
    fFont = font;
    InvalidateAll();
}

// Painting may run hooks, which may destroy the button.
bool CCustomButton::Flash()
{
    if (!IsVisible() || !IsUsable() || !IsActive() || !MayTakeClick())
        return false;
    const CViewHold hold(*this);
    SetPressed(true);
    Platform::Pause(kFlashMilliseconds);
    if (hold.IsOver())
        return false;
    SetPressed(false);
    if (hold.IsOver())
        return false;
    Clicked(Now(), ReadModifiers(KeyMoment::kNow));
    return true;
}

// As a click does: whoever has the focus may refuse, unless the button doesn't ask.
bool CCustomButton::MayTakeClick()
{
    return SupressSurrenders() || IsBullseye() || Surrender(false);
}

void CCustomButton::Clicked(double time, std::uint32_t modifiers)
{
    const CViewHold hold(*this);
    switch (fKind) {
    case kPushButton:
        InvalidateAll(true); // before the command, which may take long
        SendCommandNow(time, modifiers);
        break;
    case kRadioButton:
        TurnRadioOn(*this);
        SendCommandNow(time, modifiers);
        break;
    case kCheckButton: {
        const EButtonValue old = fValue;
        const EButtonValue value = old == kOn ? kOff : kOn;
        SetButtonState(value, fTrack, true);
        CValMsg<EButtonValue> message(this, GetID(), value, old, 2);
        message.fTime = time;
        message.fModifiers = modifiers;
        Send(message);
        break;
    }
    default:
        break;
    }
}

void CCustomButton::SendCommandNow(double time, std::uint32_t modifiers)
{
    CCommandMessage message(this, GetID());
    message.fTime = time;
    message.fModifiers = modifiers;
    Send(message);
}

EButtonState CCustomButton::GetDrawState() const
{
    return ButtonStateOf(IsActive(), IsUsable(), IsPressed(), (fTrack & kTrack_Hot) != 0);
}

void CCustomButton::SetButtonState(EButtonValue value, std::uint32_t track, bool redraw)
{
    if (value == fValue && track == fTrack)
        return;
    fValue = value;
    fTrack = track;
    if (redraw && IsVisible())
        InvalidateAll(true);
}

void CCustomButton::SetPressed(bool pressed)
{
    SetButtonState(fValue, pressed ? fTrack | kTrack_Pressed : fTrack & ~kTrack_Pressed, true);
}

void CCustomButton::GetHotRect(Rect& rect) const
{
    rect = GetBounds();
}

bool CCustomButton::HitRegion(const Point& local) const
{
    Rect hot;
    GetHotRect(hot);
    return local.x >= hot.left && local.x < hot.right && local.y >= hot.top && local.y < hot.bottom;
}

bool CCustomButton::ShowsCues() const
{
    return MnemonicFlag(*this) == kText_Mnemonic;
}

void CCustomButton::DrawInContext(const CPaintEvent&)
{
    CSystemPort* const port = GetPort();
    if (port == nullptr)
        return;
    CWidgetSkin::DrawPushButton(*port, GetBounds(), GetDrawState(), fIsDefault, IsBullseye());
    const Rect& bounds = GetBounds();
    DrawLabel(*port, {bounds.left + kSkinMargin, bounds.top + kSkinMargin,
                      bounds.right - kSkinMargin, bounds.bottom - kSkinMargin});
}

void CCustomButton::DrawLabel(CSystemPort& port, const Rect& rect)
{
    const EButtonState state = GetDrawState();
    port.SetFont(CDrawTools::Get().GetFont(fFont));
    port.SetTextColour(ToolColour(CWidgetSkin::ButtonTextRole(state)));
    const double shift = CWidgetSkin::PressedShift(state);
    std::uint32_t flags = kText_Ellipsis;
    flags |= ShowsCues() ? kText_Mnemonic : kText_HideMnemonic;
    flags |= IsBullseye() ? kText_Focused : 0U;
    port.DrawTextBox(fLabel.View(), {rect.left, rect.top + shift, rect.right, rect.bottom + shift},
                     flags);
}

void CCustomButton::MouseEnter(const CMouseEvent&)
{
    SetButtonState(fValue, fTrack | kTrack_Hot, true);
}

void CCustomButton::MouseExit()
{
    SetButtonState(fValue, fTrack & ~kTrack_Hot, true);
}

void CCustomButton::PrimaryClick(const CMouseEvent& event)
{
    if (IsUsable() && IsActive())
        RunTracker(std::make_unique<CButtonTracker>(*this, event));
}

// Every press counts, however fast they come.
bool CCustomButton::PrimaryMultiClick(const CMouseEvent& event, int)
{
    PrimaryClick(event);
    return true;
}

bool CCustomButton::HandleKey(CKeyboardMessage& message)
{
    if (IsMnemonicOf(fLabel.View(), message))
        return Flash();
    if (!IsTarget())
        return false;
    const bool isPlain =
        (message.fModifiers & (CMessage::kModifier_Control | CMessage::kModifier_Alt)) == 0;
    if (IsBullseye() && isPlain && message.fID == kMessage_KeyDown && message.fRepeated == 0) {
        if (message.fKeyCode == kKeyCode_Space && Flash())
            return true;
        const bool forward =
            message.fKeyCode == kKeyCode_Right || message.fKeyCode == kKeyCode_Down;
        const bool backward = message.fKeyCode == kKeyCode_Left || message.fKeyCode == kKeyCode_Up;
        // The radios of a group are one stop of Tab; arrows go from one to the other.
        if (IsRadio() && (forward || backward)) {
            if (CView* const next = NextRadio(*this, forward)) {
                next->BecomeBullseye(false);
                if (auto* const button = dynamic_cast<CCustomButton*>(next))
                    button->Clicked(message.fTime, message.fModifiers);
            }
            return true;
        }
    }
    return CPane::HandleKey(message);
}

void CCustomButton::OnBullseyeEnable()
{
    InvalidateAll();
}

void CCustomButton::OnBullseyeDisable()
{
    InvalidateAll();
}

} // namespace Kesto
