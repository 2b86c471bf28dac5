// The window's life: made, prepared, opened, closed.
#include "foundation/base/service.h"
#include "foundation/errors/first_failure.h"
#include "foundation/errors/system_checks.h"
#include "platform/system/errors.h"
#include "platform/windows/window_place.h"
#include "view/messages/message_ids.h"
#include "view/process/process.h"
#include "view/process/ui_scale.h"
#include "view/tree/view_hold.h"
#include "view/window/alert_shower.h"
#include "view/window/size_box.h"
#include "view/window/window.h"

#include <utility>

namespace Kesto {
namespace {

// Each ability to have the focus needs the one before it.
std::uint32_t WithImplied(std::uint32_t features)
{
    if ((features & kWin_CanTabStop) != 0)
        features |= kWin_CanBullseye;
    if ((features & kWin_CanBullseye) != 0)
        features |= kWin_CanTarget;
    return features;
}

std::uint32_t OptionsOf(std::uint32_t features)
{
    std::uint32_t options = kView_Invisible;
    if ((features & kWin_CanTarget) != 0)
        options |= kView_Target;
    if ((features & kWin_CanBullseye) != 0)
        options |= kView_Bullseye;
    if ((features & kWin_CanTabStop) != 0)
        options |= kView_TabStop;
    return options;
}

std::uint32_t StateOf(EWindowKind kind, std::uint32_t features)
{
    std::uint32_t state = 0;
    const auto put = [&state](std::uint32_t bit, bool on) { state |= on ? bit : 0; };
    put(CWindow::kWindow_Popup, kind == kWin_Popup);
    put(CWindow::kWindow_MDIFrame, kind == kWin_MDIFrame);
    put(CWindow::kWindow_MDIDocument | CWindow::kWindow_MDIChild, kind == kWin_MDIDocument);
    put(CWindow::kWindow_CloseKey, (features & kWin_CanClose) != 0);
    put(CWindow::kWindow_HasSizeBox, (features & kWin_HasSizeBox) != 0);
    put(CWindow::kWindow_LiveSizeBox, (features & kWin_LiveResize) != 0);
    put(CWindow::kWindow_DisableOwner, (features & kWin_DisableOwner) != 0);
    return state;
}

std::uint32_t FlagsOf(const CWindowPlan& plan)
{
    return (plan.autoOpen ? CExecutable::kAutoStart : 0) |
           ((plan.features & kWin_AutoDelete) != 0 ? CExecutable::kAutoDelete : 0);
}

CExecutable* SuperOf(const CWindowPlan& plan)
{
    return plan.super != nullptr ? plan.super : CProcess::Current();
}

} // namespace

CWindow::CWindow(const CWindowPlan& plan)
    : CMessenger(nullptr, plan.id),
      CContext(plan.size, plan.id, OptionsOf(WithImplied(plan.features)), kBind_Fixed),
      CExecutable(SuperOf(plan), FlagsOf(plan)), fKind(plan.kind),
      fFeatures(WithImplied(plan.features)), fWindowState(StateOf(plan.kind, plan.features)),
      fOwner(plan.owner), fGivenOwner(plan.ownerWindow), fPlacement(plan.placement),
      fTitle(plan.title)
{
    CServiceT<CDesktop>::Get(true);
    CServiceT<CAlertShower>::Get(true);
}

CWindow::~CWindow()
{
    ForgetSystemWindow();
}

void CWindow::SetFeatures(std::uint32_t features)
{
    constexpr std::uint32_t kFromFeatures =
        kWindow_CloseKey | kWindow_HasSizeBox | kWindow_LiveSizeBox | kWindow_DisableOwner;
    fFeatures = WithImplied(features);
    fWindowState = (fWindowState & ~kFromFeatures) | (StateOf(fKind, fFeatures) & kFromFeatures);
    SetAutoDelete(HasFeature(kWin_AutoDelete));
    SetTargetOptions(HasFeature(kWin_CanTarget), HasFeature(kWin_CanBullseye),
                     HasFeature(kWin_CanTabStop));
    Platform::SetWindowFeatures(fWindow, fFeatures);
}

CMessenger* CWindow::FindSubMessenger(CObjID id)
{
    CMessenger* const view = CContext::FindSubMessenger(id);
    return view != nullptr ? view : CExecutable::FindSubMessenger(id);
}

void CWindow::PutWindowState(std::uint32_t bits, bool on)
{
    fWindowState = on ? fWindowState | bits : fWindowState & ~bits;
}

void CWindow::SetModal(bool on)
{
    PutWindowState(kWindow_Modal | kWindow_DisableOwner, on);
}

// A start that fails gives back what it took.
void CWindow::OnStart()
{
    const CViewHold hold(*this);
    try {
        Prepare();
        if (!hold.IsOver() && IsStarted() && !HasFeature(kWin_OpenHidden))
            Open();
    } catch (...) {
        CFirstFailure others; // which are not told
        if (!hold.IsOver())
            others.Try([this] { DisposeSystemWindow(); });
        throw;
    }
}

void CWindow::OnStop()
{
    DisposeSystemWindow();
}

void CWindow::Prepare()
{
    if (fWindow != nullptr)
        return;
    CreateSystemWindow();
    PrepareViews();
}

void CWindow::PrepareViews()
{
    const CViewHold hold(*this);
    CreateViews();
    if (hold.IsOver())
        return;
    if (HasWindowState(kWindow_HasSizeBox) && fSizeBox == nullptr) {
        const Point size{GetBounds().Width(), GetBounds().Height()};
        fSizeBox =
            PrependChild(std::make_unique<CSizeBox>(size, HasWindowState(kWindow_LiveSizeBox)));
    }
    DidPrepare();
}

// A host's window above ours takes the place of one of ours.
void CWindow::CreateSystemWindow()
{
    CProcess* const process = CProcess::Current();
    fOwnerWindow = fOwner != nullptr ? fOwner->GetOwnerWindow() : fGivenOwner;
    if (fOwnerWindow == nullptr)
        fOwnerWindow = Platform::FrontmostWindow();
    Platform::WindowPlan plan;
    plan.kind = static_cast<Platform::WindowKind>(fKind);
    plan.features = fFeatures;
    if (GetUiScaleMode() == UiScaleMode{2})
        plan.features |= kWin_ResolutionIndependent;
    plan.owner = fOwnerWindow;
    if (process != nullptr)
        plan.className = (IsModal() ? process->ModalClassName()
                                    : process->WindowClassName(static_cast<std::uint32_t>(fKind)))
                             .CStr();
    plan.title = fTitle.CStr();
    const auto monitors = Platform::ListMonitors();
    const Platform::PixelRect& area = monitors.front().workArea;
    plan.content = {area.left, area.top, area.left + 1, area.top + 1};
    Platform::SetLastError(0);
    fWindow = Platform::MakeSystemWindow(plan, *this);
    OSThrowLastNull(fWindow, __FILE__, __LINE__);
    CServiceT<CDesktop>::Get(true)->Add(*this);
    if (process != nullptr)
        process->WindowOpened();
    SetScaleFactor(WantedScale(fOwnerWindow != nullptr ? fOwnerWindow : fWindow));
    Platform::PlaceContent(fWindow, StartPlace());
    PutWindowState(kWindow_WasMaximized,
                   IsFloat() && fPlacement.state == double(kWinState_Maximized));
    SetScreenPosition({GetWindowBounds().left, GetWindowBounds().top});
    ChangeScale(GetScaleFactor());
}

double CWindow::WantedScale(Platform::NativeWindow near) const
{
    const bool perMonitor =
        HasFeature(kWin_ResolutionIndependent) || GetUiScaleMode() == UiScaleMode{2};
    const bool byMonitor =
        GetUiScaleMode() != UiScaleMode{1} && (perMonitor || GetUiScaleMode() == UiScaleMode{0});
    return (byMonitor ? Platform::ScaleOf(near) : 1.0) * GetUiScale();
}

// The first window of the process opens as whoever started the program wants it.
bool CWindow::OpensBehind() const
{
    static bool wasAnyOpened = false;
    if (std::exchange(wasAnyOpened, true) || IsModal() ||
        HasWindowState(kWindow_Popup | kWindow_MDIChild))
        return false;
    CProcess* const process = CProcess::Current();
    const Platform::ShowCommand command =
        process != nullptr ? process->StartShowCommand() : Platform::ShowCommand::kNormal;
    return command == Platform::ShowCommand::kNormalInactive ||
           command == Platform::ShowCommand::kMinimizedInactive ||
           command == Platform::ShowCommand::kShowInactive;
}

void CWindow::Open()
{
    const CViewHold hold(*this);
    const bool isFirst = !std::exchange(fWasOpened, true);
    const bool staysBehind = isFirst && OpensBehind();
    if (staysBehind)
        SetShowCommand(Platform::ShowCommand::kNormalInactive);
    else if (isFirst && !HasWindowState(kWindow_Popup) && !IsFloat())
        Activate();
    Show();
    // Each of these steps calls hooks, which may end the window.
    if (hold.IsOver() || !isFirst)
        return;
    AfterShow();
    if (hold.IsOver())
        return;
    DoScaleChanged(true);
    if (!hold.IsOver() && IsUsable() && !staysBehind && !HasWindowState(kWindow_Popup))
        FocusFirstStop();
}

// The focus goes there without the selection that Tab would make.
void CWindow::FocusFirstStop()
{
    if (HasFocusWithin() && GetBullseye() != this)
        return;
    if (CView* const first = FirstTabStopOrSelf(); first != nullptr && first != this)
        first->BecomeBullseye(false);
    else
        BecomeBullseyeIfPossible(false);
}

// Whatever the views' hooks throw, the native window goes, and what it has taken is given back.
void CWindow::DisposeSystemWindow()
{
    if (fWindow == nullptr)
        return;
    const CViewHold hold(*this);
    CFirstFailure failure;
    failure.Try([this] { Hide(); });
    if (!hold.IsOver()) {
        failure.Try([this] { LeavePath(); });
        fSizeBox = nullptr;
        failure.Try([this] { DisposeContents(); });
        ForgetSystemWindow();
        fWasOpened = false;
    }
    failure.Throw();
}

// What is left to do when the native window is closed, by whoever closes it.
void CWindow::ForgetSystemWindow()
{
    fTips.Dismiss();
    CDesktop* const desktop = CServiceT<CDesktop>::Get(false);
    if (HasWindowState(kWindow_HoldsModal) && desktop != nullptr)
        desktop->EndModal();
    PutWindowState(kWindow_HoldsModal, false);
    EnableOwner();
    if (desktop != nullptr)
        desktop->Remove(*this);
    CTimer::StopTimersOf(fWindow);
    const bool hadWindow = fWindow != nullptr;
    Platform::EndSystemWindow(std::exchange(fWindow, nullptr));
    if (CProcess* const process = CProcess::Current(); hadWindow && process != nullptr)
        process->WindowClosed();
}

void CWindow::DoClose()
{
    CCommandMessage close(this, kWindow_CloseBox);
    Send(close);
}

// Whatever the window's own abilities, a field in it that has the focus is asked.
bool CWindow::CanFinish()
{
    return !HasFocusWithin() || ResignBullseyeToParent(false);
}

bool CWindow::HandleCommand(CCommandMessage& message)
{
    if (message.fID != kWindow_CloseBox)
        return CContext::HandleCommand(message);
    SetDone(true);
    return true;
}

} // namespace Kesto
