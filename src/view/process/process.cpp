#include "view/process/process.h"

#include "foundation/base/service.h"
#include "platform/files/folders.h"
#include "platform/system/process.h"
#include "platform/windows/focus.h"
#include "platform/windows/foreign_loop.h"
#include "platform/windows/system_window.h"
#include "view/process/desktop.h"
#include "view/process/posted_events.h"

#include <thread>
#include <utility>

namespace Kesto {
namespace {

std::thread::id gMainThread;

void ForgetActive(void* known, double, double)
{
    static_cast<std::optional<bool>*>(known)->reset();
}

} // namespace

CProcess::CProcess()
    : CExecutable(nullptr, kAutoStart | kDone), fOlder(std::exchange(gNewest, this)),
      fBefore(Current()), fIdleTimer(kIdlePeriod, ForgetActive, &fIsHostActive)
{
    if (gMainThread == std::thread::id())
        NoteMainThread();
    MakeCurrent();
    Platform::SetForeignTurn(RunForeignTurn);
    fIdleTimer.Start();
    SetCanTarget(true);
    SetCanBullseye(true);
    SetBullseye(true);
}

// Children may still ask for the process; others can't post any more once it is no longer the
// current one. Its parts may use services, so they end before those do.
CProcess::~CProcess()
{
    DisposeChildren();
    CProcess** link = &gNewest;
    while (*link != this)
        link = &(*link)->fOlder;
    *link = fOlder;
    if (Current() == this)
        MakeCurrentIfAlive(fBefore);
    fEvents.Clear();
    fMenuBar.part.reset();
    fDocumentBar.part.reset();
    fClipboard.part.reset();
    if (gNewest == nullptr)
        ShutdownServices();
}

void CProcess::MakeCurrent()
{
    if (SetCurrent(this) != this)
        ReclaimBullseye();
}

void CProcess::MakeCurrentIfAlive(CProcess* process)
{
    for (const CProcess* alive = gNewest; alive != nullptr; alive = alive->fOlder)
        if (alive == process) {
            process->MakeCurrent();
            return;
        }
    SetCurrent(nullptr);
}

void CProcess::NoteMainThread()
{
    gMainThread = std::this_thread::get_id();
}

bool CProcess::IsMainThread()
{
    return std::this_thread::get_id() == gMainThread;
}

void CProcess::Start()
{
    if ((fProcessFlags & kHasSession) == 0) {
        fProcessFlags |= kHasSession;
        OnSessionStart();
        MakeFirstWindows();
    }
    CExecutable::Start();
}

void CProcess::Stop()
{
    CExecutable::Stop();
    if ((fProcessFlags & kHasSession) == 0)
        return;
    fProcessFlags &= ~kHasSession;
    OnSessionStop();
}

void CProcess::OnSessionStart() {}

void CProcess::MakeFirstWindows() {}

void CProcess::OnSessionStop() {}

void CProcess::PostEvent(std::unique_ptr<CProcessEvent> event)
{
    if (event == nullptr)
        return;
    {
        const std::lock_guard lock(fEventMutex);
        fEvents.Add(std::move(event));
    }
    WantTurn();
}

// No bell is rung on this thread: what it does is seen before it waits, and in a loop of the
// system's own an event that posts another would leave no turn for input.
void CProcess::WantTurn()
{
    if (IsMainThread())
        fWantsTurn = true;
    else
        fBell.Ring();
}

const CProcessEvent* CProcess::TopEvent()
{
    const std::lock_guard lock(fEventMutex);
    return fEvents.Top();
}

void CProcess::DispatchTopEvent()
{
    std::unique_ptr<CProcessEvent> event;
    {
        const std::lock_guard lock(fEventMutex);
        event = fEvents.TakeTop();
    }
    if (event != nullptr)
        event->Dispatch();
}

// It may have been posted to any of those that live.
void CProcess::ForgetMessenger(CMessenger* messenger)
{
    for (CProcess* process = gNewest; process != nullptr; process = process->fOlder)
        process->DropEventsOf(messenger);
}

// Dead events are destroyed after the lock is released, since their destructors are foreign code.
void CProcess::DropEventsOf(CMessenger* messenger)
{
    std::optional<CEventList> dead;
    const std::lock_guard lock(fEventMutex);
    if (fEvents.Top() != nullptr)
        fEvents.ForgetMessenger(messenger, dead.emplace());
}

bool CProcess::PostDebugReport(const char* message, const char* file, std::uint32_t line,
                               bool throwIt)
{
    return CProcessLink::Post(std::make_unique<CDebugEvent>(message, file, line, throwIt));
}

Platform::NativeWindow CProcess::AlertParent()
{
    const CDesktop* const desktop = CServiceT<CDesktop>::Get(false);
    const CDesktopWindow* const front = desktop != nullptr ? desktop->FrontOwner() : nullptr;
    return front != nullptr ? front->NativeHandle() : nullptr;
}

Platform::ShowCommand CProcess::StartShowCommand()
{
    return Platform::StartShowCommand();
}

CText CProcess::GetProductName()
{
    return {};
}

CText CProcess::GetAlertTitle()
{
    return {};
}

CText CProcess::GetUIFont()
{
    return {};
}

CFileSpec CProcess::GetResourceFolder()
{
    return CFileSpec(CText(Platform::FolderOf(Platform::ModulePath())));
}

CFileSpec CProcess::GetPreferencesFolder()
{
    CFileSpec folder;
    GetSettingsFolder(folder);
    return folder;
}

CText CProcess::WindowClassName(std::uint32_t /*kind*/)
{
    return DefaultClassName();
}

CFileSpec CProcess::GetTemporaryFolder()
{
    return CFileSpec(CText(Platform::TemporaryFolder()));
}

CFileSpec CProcess::GetModulePath()
{
    return CFileSpec(CText(Platform::ModulePath()));
}

CText CProcess::ModalClassName()
{
    return "Kesto_ModalClass";
}

CText CProcess::DefaultClassName()
{
    return "Kesto_DefaultClass";
}

std::unique_ptr<CMenuBar> CProcess::MakeMenuBar()
{
    return nullptr;
}

std::unique_ptr<CDocumentBar> CProcess::MakeDocumentBar()
{
    return nullptr;
}

std::unique_ptr<CClipboard> CProcess::MakeClipboard()
{
    return nullptr;
}

CMenuBar* CProcess::GetMenuBar()
{
    return fMenuBar.Get([this] { return MakeMenuBar(); });
}

CDocumentBar* CProcess::GetDocumentBar()
{
    return fDocumentBar.Get([this] { return MakeDocumentBar(); });
}

CClipboard* CProcess::GetClipboard()
{
    return fClipboard.Get([this] { return MakeClipboard(); });
}

bool CProcess::IsHostActive()
{
    if (!fIsHostActive)
        fIsHostActive = FindOutIfActive();
    return *fIsHostActive;
}

bool CProcess::FindOutIfActive()
{
    return Platform::IsProcessForeground();
}

bool CProcess::IsForeground()
{
    return IsHostActive();
}

// No part is made for it: the first change of the chain comes while the process is made itself.
void CProcess::OnUpdateChain()
{
    if (fMenuBar.part != nullptr)
        fMenuBar.part->Update();
}

CProcessScope::CProcessScope(CProcess& process) : fBefore(CProcess::Current())
{
    process.MakeCurrent();
}

CProcessScope::~CProcessScope()
{
    CProcess::MakeCurrentIfAlive(fBefore);
}

} // namespace Kesto
