// Showing and hiding, and what a modal window does to others.
#include "foundation/base/service.h"
#include "platform/windows/focus.h"
#include "view/tree/view_hold.h"
#include "view/window/window.h"

#include <utility>

namespace Kesto {

using Platform::ShowCommand;

// A command that was set counts once; then the restored state; a disabled window isn't activated.
ShowCommand CWindow::NextShowCommand()
{
    if (fShowCommand)
        return *std::exchange(fShowCommand, std::nullopt);
    const auto state = static_cast<EWindowState>(fPlacement.state);
    if (state == kWinState_Minimized)
        return ShowCommand::kMinimized;
    if (state == kWinState_Maximized)
        return ShowCommand::kMaximized;
    return Platform::IsSystemWindowEnabled(fWindow) ? ShowCommand::kShow
                                                    : ShowCommand::kNormalInactive;
}

void CWindow::Show()
{
    if (fWindow == nullptr) {
        CContext::Show();
        return;
    }
    const CViewHold hold(*this);
    // It counts once, however often it is shown.
    if (IsModal() && !HasWindowState(kWindow_HoldsModal)) {
        PutWindowState(kWindow_HoldsModal, true);
        CServiceT<CDesktop>::Get(true)->BeginModal();
    }
    if (HasWindowState(kWindow_DisableOwner))
        DisableOwner();
    if (IsFloat() && HasWindowState(kWindow_WasMaximized))
        MaximizeWindow();
    CContext::Show();
    if (!hold.IsOver() && !Platform::IsShown(fWindow))
        Platform::ShowSystemWindow(fWindow, NextShowCommand());
    if (!hold.IsOver() && IsFloat())
        SetActive(CServiceT<CDesktop>::Get(true)->ModalCount() == 0);
}

// The owner is enabled first, so that the system can make it the active one.
void CWindow::Hide()
{
    const CViewHold hold(*this);
    EnableOwner();
    SetCanTarget(false);
    SetCanBullseye(false);
    if (hold.IsOver())
        return;
    SavePlacement();
    if (Platform::IsShown(fWindow)) {
        const bool wasActive = Platform::FrontmostWindow() == fWindow && IsUsable();
        if (wasActive && !HasWindowState(kWindow_MDIDocument))
            Platform::ActivateWindow(fOwnerWindow);
        Platform::ShowSystemWindow(fWindow, ShowCommand::kHide);
    }
    if (hold.IsOver())
        return;
    CContext::Hide();
    Deactivate();
    ClearHover();
    UpdateMessengerState();
    CDesktop* const desktop = CServiceT<CDesktop>::Get(false);
    if (HasWindowState(kWindow_HoldsModal) && desktop != nullptr) {
        PutWindowState(kWindow_HoldsModal, false);
        desktop->EndModal();
    }
}

// It is noted first, or an owner whose handlers throw would stay disabled.
void CWindow::DisableOwner()
{
    if (HasWindowState(kWindow_OwnerProcessed))
        return;
    PutWindowState(kWindow_OwnerProcessed, true);
    if (fOwnerWindow != nullptr && Platform::IsSystemWindowEnabled(fOwnerWindow)) {
        PutWindowState(kWindow_OwnerDisabled, true);
        Platform::EnableSystemWindow(fOwnerWindow, false);
    }
}

void CWindow::EnableOwner()
{
    if (!HasWindowState(kWindow_OwnerProcessed))
        return;
    const bool wasDisabled = HasWindowState(kWindow_OwnerDisabled);
    PutWindowState(kWindow_OwnerProcessed | kWindow_OwnerDisabled, false);
    if (wasDisabled && !Platform::IsSystemWindowEnabled(fOwnerWindow))
        Platform::EnableSystemWindow(fOwnerWindow, true);
}

bool CWindow::IsPopup() const
{
    return HasWindowState(kWindow_Popup) && IsVisible();
}

// It is out of sight at once, and ends when it is polled next.
void CWindow::ClosePopup()
{
    const CViewHold hold(*this);
    Hide();
    if (!hold.IsOver())
        SetDoneFlag(true);
}

bool CWindow::IsForeground()
{
    return Platform::IsProcessForeground();
}

} // namespace Kesto
