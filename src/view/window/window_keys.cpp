// Keys and the focus in the window.
#include "foundation/base/service.h"
#include "platform/input/message_numbers.h"
#include "platform/windows/focus.h"
#include "view/messages/message_ids.h"
#include "view/process/tracker.h"
#include "view/tree/pane.h"
#include "view/tree/view_hold.h"
#include "view/window/window.h"
#include "view/window/window_button.h"

#include <algorithm>
#include <utility>

namespace Kesto {
namespace {

namespace Number = Platform::Number;

constexpr std::uint32_t kReturn = 0x0D;
constexpr std::uint32_t kEscape = 0x1B;
constexpr std::uint32_t kF4 = 0x73;

// The window whose own path is about to get the focus, while those above it are told: the paths of
// other windows stay as they are. Its own views are asked before or after that, since they may open
// windows of their own then.
CWindow* gEntering = nullptr;

class CEntering {
public:
    explicit CEntering(CWindow& window) : fBefore(std::exchange(gEntering, &window)) {}
    ~CEntering() { gEntering = fBefore; }
    CEntering(const CEntering&) = delete;
    CEntering& operator=(const CEntering&) = delete;

private:
    CWindow* fBefore;
};

CObjID KeyID(std::uint32_t number)
{
    const CObjID ids[] = {kMessage_KeyDown,     kMessage_KeyUp,         kMessage_KeyChar,
                          kMessage_KeyDeadChar, kMessage_SysKeyDown,    kMessage_SysKeyUp,
                          kMessage_SysKeyChar,  kMessage_SysKeyDeadChar};
    return ids[number - Number::kKeyFirst];
}

bool IsCharacter(std::uint32_t number)
{
    return ((number - Number::kKeyFirst) & 2) != 0;
}

bool IsRelease(std::uint32_t number)
{
    return number == Number::kKeyUp || number == Number::kSysKeyUp;
}

bool CanBePressed(const CWindowButton& button)
{
    const CPane& pane = button.ButtonPane();
    return pane.IsVisible() && pane.IsUsable() && pane.IsActive();
}

} // namespace

void CWindow::AddToClients(CPane& pane, std::uint32_t bit, bool on)
{
    pane.SetClient(on ? pane.GetClient() | bit : pane.GetClient() & ~bit);
}

void CWindow::AddKeyPane(CPane& pane)
{
    AddToClients(pane, CPane::kClient_Keys, true);
}

void CWindow::RemoveKeyPane(CPane& pane)
{
    AddToClients(pane, CPane::kClient_Keys, false);
}

void CWindow::AddIdlePane(CPane& pane)
{
    AddToClients(pane, CPane::kClient_Idle, true);
}

void CWindow::RemoveIdlePane(CPane& pane)
{
    AddToClients(pane, CPane::kClient_Idle, false);
}

void CWindow::AddClient(CPane& pane, std::uint32_t client)
{
    CContext::AddClient(pane, client);
    if ((client & CPane::kClient_Idle) != 0)
        fPaneTurns.StartIdling();
}

void CWindow::RemoveClient(CPane& pane)
{
    CContext::RemoveClient(pane);
    if (GetClients(CPane::kClient_Idle).empty())
        fPaneTurns.StopIdling();
}

void CWindow::AddButton(CWindowButton& button)
{
    fButtons.push_back(&button);
}

void CWindow::RemoveButton(CWindowButton& button)
{
    std::erase(fButtons, &button);
}

CWindowButton* CWindow::FindDefaultButton() const
{
    for (CWindowButton* const button : fButtons)
        if (button->IsDefault() && CanBePressed(*button))
            return button;
    return nullptr;
}

CWindowButton* CWindow::FindCancelButton() const
{
    for (CWindowButton* const button : fButtons)
        if (button->IsCancel() && CanBePressed(*button))
            return button;
    return nullptr;
}

bool CWindow::KeyToPanes(CKeyboardMessage& message)
{
    const CViewHold hold(*this);
    for (CPane* const pane : GetClients(CPane::kClient_Keys)) {
        const auto now = GetClients(CPane::kClient_Keys);
        if (std::find(now.begin(), now.end(), pane) == now.end() || !pane->IsVisible() ||
            !pane->IsUsable() || !pane->IsActive())
            continue;
        const CViewHold paneHold(*pane);
        if (pane->HandleKey(message))
            return true;
        if (hold.IsOver())
            break;
    }
    return false;
}

// While something is dragged keys reach nobody, and Escape breaks it off: the rest of that press
// would find the drag over and cancel the window.
bool CWindow::KeyInTracking(std::uint32_t number)
{
    CTracker* const tracker = CTracker::Active();
    if (tracker == nullptr && GetTracker() == nullptr)
        return false;
    if (fLastKey != kEscape || number != Number::kKeyDown)
        return true;
    fDroppedKey = kEscape;
    if (!BreakOffTracker() && tracker != nullptr)
        tracker->Finish();
    return true;
}

// A key whose press has been used up says nothing more until it is pressed anew.
bool CWindow::SendPlatformKey(const Platform::WindowMessage& message)
{
    const auto word = static_cast<std::uint32_t>(message.second);
    const auto value = static_cast<std::uint32_t>(message.first);
    const bool isCharacter = IsCharacter(message.number);
    const bool wasDown = (word & 1U << 30) != 0 && !IsRelease(message.number);
    if (!isCharacter)
        fLastKey = value;
    if (fDroppedKey != 0 && fLastKey == fDroppedKey) {
        if (IsRelease(message.number) || (!isCharacter && !wasDown))
            fDroppedKey = 0;
        if (IsRelease(message.number) || isCharacter || wasDown)
            return true;
    }
    if (KeyInTracking(message.number))
        return true;
    const std::uint32_t repeat = IsRelease(message.number) ? 1 : word & 0xFFFF;
    CKeyboardMessage key(this, KeyID(message.number), fLastKey,
                         isCharacter ? value : (value >= '0' && value <= 'Z' ? value : 0), repeat,
                         wasDown);
    CDesktop& desktop = *CServiceT<CDesktop>::Get(true);
    if (fLastKey == kEscape && !IsRelease(message.number) && desktop.HasPopups()) {
        desktop.ClosePopups();
        fDroppedKey = kEscape;
        return true;
    }
    CMessenger* const focus = HasFocusWithin() ? GetBullseye() : this;
    return focus->Send(key);
}

bool CWindow::PressButton(CWindowButton* button, std::uint32_t key)
{
    if (button == nullptr)
        return false;
    const CViewHold hold(*this);
    const bool pressed = button->Flash();
    if (pressed && !hold.IsOver())
        fDroppedKey = key;
    return pressed;
}

// Alt is for windows without an owner, Control for those with one, where Alt closes as well: that
// is the system's own key, which is kept from it because it would close what can't close.
bool CWindow::IsCloseKey(const CKeyboardMessage& message) const
{
    if (!HasWindowState(kWindow_CloseKey) || message.fKeyCode != kF4 || message.fRepeated != 0)
        return false;
    const bool control = (message.fModifiers & CMessage::kModifier_Control) != 0;
    const bool alt = (message.fModifiers & CMessage::kModifier_Alt) != 0;
    const bool hasOwner = fOwnerWindow != nullptr;
    return (alt && !control && message.fID == kMessage_SysKeyDown) ||
           (hasOwner && control && !alt && message.fID == kMessage_KeyDown);
}

// Return acts when it goes down and Escape by its character.
bool CWindow::HandleKey(CKeyboardMessage& message)
{
    if (!IsVisible() || !IsUsable() || !IsActive())
        return CContext::HandleKey(message);
    const CViewHold hold(*this);
    const bool isFresh = message.fRepeated == 0;
    if (isFresh && message.fKeyCode == kReturn && message.fID == kMessage_KeyDown &&
        PressButton(FindDefaultButton(), kReturn))
        return true;
    if (!hold.IsOver() && isFresh && message.fID == kMessage_KeyChar && message.fChar == kEscape &&
        PressButton(FindCancelButton(), kEscape))
        return true;
    if (hold.IsOver() || (!HasWindowState(kWindow_Popup) && KeyToPanes(message)) || hold.IsOver())
        return true;
    if (IsCloseKey(message)) {
        DoClose();
        return true;
    }
    return CContext::HandleKey(message);
}

bool CWindow::HasFocusWithin() const
{
    const CMessenger* at = GetBullseye();
    while (at != nullptr && at != this)
        at = at->ParentMessenger();
    return at != nullptr;
}

// What had the focus in this window has it again, and nobody is asked.
void CWindow::TakeFocusBack()
{
    if (!CanTarget())
        return;
    {
        const CEntering entering(*this);
        if (CMessenger* const up = ParentMessenger())
            up->TargetChild(this, true);
    }
    if (IsTarget())
        ReclaimBullseye();
    if (!HasFocusWithin() && fWasOpened)
        FocusFirstStop();
}

bool CWindow::BecomeBullseye(bool force)
{
    const CViewHold hold(*this);
    CMessenger* const below = TargetMessenger();
    if (CanBullseye() && !IsBullseye() && below != nullptr && !below->ResignTarget(force))
        return false;
    if (hold.IsOver())
        return false;
    const CEntering entering(*this);
    return CContext::BecomeBullseye(force);
}

bool CWindow::TargetChild(CMessenger* child, bool force)
{
    const CViewHold hold(*this);
    if (CMessenger* const up = CanTarget() ? ParentMessenger() : nullptr) {
        const CEntering entering(*this);
        if (!up->TargetChild(this, force))
            return false;
    }
    return !hold.IsOver() && CContext::TargetChild(child, force);
}

bool CWindow::ResignTarget(bool force)
{
    return (gEntering != nullptr && gEntering != this) || CContext::ResignTarget(force);
}

// The platform's focus follows in the active window alone.
void CWindow::DidBecomeBullseye()
{
    if (Platform::FrontmostWindow() == fWindow)
        CContext::DidBecomeBullseye();
    else
        UpdateChain();
}

void CWindow::MirrorFocus()
{
    CMessenger* const bullseye = GetBullseye();
    if (!HasFocusWithin() || bullseye == this)
        return;
    const Platform::NativeWindow wanted = bullseye->GetFocusWindow();
    if (wanted != nullptr && wanted != Platform::FocusedWindow())
        Platform::FocusWindow(wanted);
}

} // namespace Kesto
