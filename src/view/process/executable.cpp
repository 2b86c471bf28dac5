#include "view/process/executable.h"

#include "view/process/process.h"

#include <algorithm>
#include <utility>

namespace Kesto {
namespace {

CExecutable* gCurrent = nullptr;

} // namespace

// The scope of a run loop. When the outermost one ends, a request to quit that came meanwhile goes
// back to where the host will find it.
class CExecutable::CRunning {
public:
    explicit CRunning(CExecutable* executable) : fBefore(std::exchange(gCurrent, executable)) {}
    ~CRunning()
    {
        gCurrent = fBefore;
        CProcess* const process = CProcess::Current();
        if (fBefore == nullptr && process != nullptr)
            process->ReturnQuitRequest();
    }
    CRunning(const CRunning&) = delete;
    CRunning& operator=(const CRunning&) = delete;

private:
    CExecutable* fBefore;
};

CExecutable::CExecutable(CExecutable* super, std::uint32_t flags) : fSuper(super), fFlags(flags)
{
    if (super == nullptr)
        return;
    super->fChildren.push_back(this);
    SetParentMessenger(super);
}

CExecutable::~CExecutable()
{
    DisposeChildren();
    if (fSuper != nullptr)
        std::erase(fSuper->fChildren, this);
}

void CExecutable::DisposeChildren()
{
    while (!fChildren.empty()) {
        CExecutable* const child = fChildren.back();
        if (!child->LeavePath() || !HasChild(child))
            continue; // a hook has taken it out
        std::erase(fChildren, child);
        child->fSuper = nullptr;
        child->SetParentMessenger(nullptr);
        if (child->IsAutoDelete())
            delete child;
    }
}

CMessenger* CExecutable::FindSubMessenger(CObjID id)
{
    for (CExecutable* const child : fChildren)
        if (CMessenger* const found = child->FindMessenger(id))
            return found;
    return nullptr;
}

bool CExecutable::IsStarted() const
{
    return HasRunFlag(kStarted);
}

bool CExecutable::IsStopped() const
{
    return !HasRunFlag(kStarted);
}

bool CExecutable::IsDone() const
{
    return HasRunFlag(kStarted) && HasRunFlag(kDone);
}

bool CExecutable::IsAutoStart() const
{
    return HasRunFlag(kAutoStart);
}

bool CExecutable::IsAutoDelete() const
{
    return HasRunFlag(kAutoDelete);
}

void CExecutable::SetDoneFlag(bool done)
{
    SetRunFlag(kDone, done);
}

void CExecutable::SetDone(bool done)
{
    SetDoneFlag(done);
    if (fSuper != nullptr)
        fSuper->SetDone(done);
}

void CExecutable::SetAutoStart(bool on)
{
    SetRunFlag(kAutoStart, on);
}

void CExecutable::SetAutoDelete(bool on)
{
    SetRunFlag(kAutoDelete, on);
}

void CExecutable::Start()
{
    const bool wasStarted = HasRunFlag(kStarted);
    SetRunFlag(kStarted, true);
    SetRunFlag(kDone, false);
    if (wasStarted)
        return;
    OnStart();
    for (std::size_t i = 0; i < fChildren.size() && IsStarted() && !IsDone(); ++i)
        if (fChildren[i]->IsAutoStart())
            fChildren[i]->Start();
}

bool CExecutable::HasChild(const CExecutable* child) const
{
    return std::find(fChildren.begin(), fChildren.end(), child) != fChildren.end();
}

// Any child may go, and others may come, during a visit.
template <class Visit>
void CExecutable::VisitChildrenBackward(Visit visit)
{
    for (std::size_t i = fChildren.size(); i-- > 0;)
        if (i < fChildren.size())
            visit(fChildren[i]);
}

void CExecutable::Stop()
{
    if (HasRunFlag(kStarted))
        VisitChildrenBackward([this](CExecutable* child) {
            const bool deletes = child->IsAutoDelete();
            if (child->IsStarted()) {
                child->Stop();
                if (HasChild(child))
                    ChildStopped(child);
            }
            if (deletes && HasChild(child))
                delete child;
        });
    OnStop();
    SetRunFlag(kStarted | kDone, false);
}

void CExecutable::SetStarted(bool on)
{
    if (on)
        Start();
    else
        Stop();
}

void CExecutable::Toggle()
{
    SetStarted(!IsStarted());
}

bool CExecutable::CanFinish()
{
    return true;
}

void CExecutable::PollChildren(bool& force)
{
    VisitChildrenBackward([this, &force](CExecutable* child) {
        const bool wasStarted = child->IsStarted();
        const bool deletes = child->IsAutoDelete();
        if (child->Poll(force) || !wasStarted || !HasChild(child))
            return;
        ChildStopped(child);
        if (deletes && HasChild(child))
            delete child;
    });
}

void CExecutable::ChildStopped(CExecutable* /*child*/) {}

bool CExecutable::Poll(bool& force)
{
    if (!IsStarted())
        return false;
    OnBeforePoll();
    bool finish = (force || IsDone()) && CanFinish();
    PollChildren(finish);
    OnAfterPoll();
    if (!IsStarted())
        return false;
    if (finish) {
        Stop();
        return false;
    }
    if (force || IsDone())
        SetDone(false);
    force = false;
    return true;
}

void CExecutable::ReportChildren(std::string& lines, int depth) const
{
    const std::string name = GetID().IsNone() ? "-" : GetID().Name();
    lines += std::string(static_cast<std::size_t>(depth) * 2, ' ') + name;
    lines += IsDone() ? " done" : IsStarted() ? " runs" : " stopped";
    lines += '\n';
    for (const CExecutable* const child : fChildren)
        child->ReportChildren(lines, depth + 1);
}

void CExecutable::PropagateActive(bool active)
{
    for (std::size_t i = 0; i < fChildren.size(); ++i)
        fChildren[i]->PropagateActive(active);
}

bool CExecutable::CanRun() const
{
    return IsStarted();
}

void CExecutable::RunLoop()
{
    const CRunning running(this);
    bool goesOn = true;
    while (goesOn) {
        CProcess* const process = CProcess::Current();
        if (process == nullptr)
            return;
        process->GetNextEvent(0);
        bool force = IsDone();
        goesOn = Poll(force);
    }
}

void CExecutable::AfterRun() {}

void CExecutable::Run()
{
    Start();
    if (CanRun()) {
        RunLoop();
        AfterRun();
    }
    Stop();
}

void CExecutable::OnStart() {}

void CExecutable::OnStop() {}

void CExecutable::OnBeforePoll() {}

void CExecutable::OnAfterPoll() {}

CExecutable* CExecutable::Current()
{
    return gCurrent;
}

} // namespace Kesto
