#include "view/process/executable.h"

#include "foundation/errors/first_failure.h"
#include "view/messages/messenger_watch.h"
#include "view/process/process.h"

#include <algorithm>
#include <utility>

namespace Kesto {
namespace {

CExecutable* gCurrent = nullptr;

} // namespace

// The scope of a run loop. When the outermost one ends, a request to quit that came meanwhile is
// put back into the queue, where the host will find it.
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

// A visit of the children, which keeps its place when some leave. From the first to the last it
// calls those too that join meanwhile.
class CExecutable::CVisit {
public:
    enum class From { kFirst, kLast };

    CVisit(CExecutable& parent, From from)
        : fParent(parent), fWatch(&parent), fOuter(std::exchange(parent.fVisit, this)), fFrom(from),
          fPlace(from == From::kLast ? parent.fChildren.size() : 0)
    {
    }
    ~CVisit()
    {
        if (!fWatch.IsGone())
            fParent.fVisit = fOuter;
    }
    CVisit(const CVisit&) = delete;
    CVisit& operator=(const CVisit&) = delete;

    // The next child; null after the end, and when the parent is destroyed.
    CExecutable* Take()
    {
        const std::size_t end = fWatch.IsGone()        ? fPlace
                                : fFrom == From::kLast ? 0
                                                       : fParent.fChildren.size();
        if (fPlace == end)
            return nullptr;
        return fParent.fChildren[fFrom == From::kLast ? --fPlace : fPlace++];
    }

    // The child at this place leaves.
    static void Leave(CVisit* innermost, std::size_t place)
    {
        for (CVisit* visit = innermost; visit != nullptr; visit = visit->fOuter)
            if (place < visit->fPlace)
                --visit->fPlace;
    }

private:
    CExecutable& fParent;
    CMessengerWatch fWatch;
    CVisit* fOuter;
    From fFrom;
    std::size_t fPlace; // between the children before it and those from it on
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
        fSuper->RemoveChild(this);
}

void CExecutable::RemoveChild(CExecutable* child)
{
    const auto found = std::ranges::find(fChildren, child);
    if (found == fChildren.end())
        return;
    CVisit::Leave(fVisit, static_cast<std::size_t>(found - fChildren.begin()));
    fChildren.erase(found);
}

void CExecutable::DisposeChildren()
{
    while (!fChildren.empty()) {
        CExecutable* const child = fChildren.back();
        if (!child->LeavePath() || !HasChild(child))
            continue; // a hook has taken it out
        RemoveChild(child);
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
    if (CProcess* const process = done ? CProcess::Current() : nullptr)
        process->WantTurn();
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
    if (wasStarted) // then a start only takes back that it is done
        return;
    const CMessengerWatch watch(this);
    try {
        OnStart();
    } catch (...) {
        if (!watch.IsGone())
            SetRunFlag(kStarted | kDone, false);
        throw;
    }
    if (watch.IsGone() || IsDone())
        return;
    CVisit children(*this, CVisit::From::kFirst);
    while (CExecutable* const child = children.Take()) {
        if (!IsStarted())
            return;
        if (child->IsAutoStart())
            child->Start();
    }
}

bool CExecutable::HasChild(const CExecutable* child) const
{
    return std::find(fChildren.begin(), fChildren.end(), child) != fChildren.end();
}

template <class Visit>
void CExecutable::VisitChildrenBackward(Visit visit)
{
    CVisit children(*this, CVisit::From::kLast);
    while (CExecutable* const child = children.Take())
        visit(child);
}

// Whether a child is to be deleted is noted before it stops: it may be gone after that.
void CExecutable::Stop()
{
    const CMessengerWatch watch(this);
    CFirstFailure failure;
    const auto has = [&](const CExecutable* child) { return !watch.IsGone() && HasChild(child); };
    if (HasRunFlag(kStarted))
        VisitChildrenBackward([&](CExecutable* child) {
            const bool deletes = child->IsAutoDelete();
            if (child->IsStarted()) {
                failure.Try([child] { child->Stop(); });
                if (has(child))
                    failure.Try([&] { ChildStopped(child); });
            }
            if (deletes && has(child))
                delete child;
        });
    if (!watch.IsGone())
        failure.Try([this] { OnStop(); });
    if (!watch.IsGone())
        SetRunFlag(kStarted | kDone, false);
    failure.Throw();
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
    const CMessengerWatch watch(this);
    const auto has = [&](const CExecutable* child) { return !watch.IsGone() && HasChild(child); };
    VisitChildrenBackward([&](CExecutable* child) {
        const bool wasStarted = child->IsStarted();
        const bool deletes = child->IsAutoDelete();
        if (child->Poll(force) || !wasStarted || !has(child))
            return;
        ChildStopped(child);
        if (deletes && has(child))
            delete child;
    });
}

void CExecutable::ChildStopped(CExecutable* /*child*/) {}

// Only a request that CanFinish was asked about is taken back: one that comes from a child's poll
// stays for the next turn.
bool CExecutable::Poll(bool& force)
{
    if (!IsStarted())
        return false;
    const CMessengerWatch watch(this);
    OnBeforePoll();
    const bool asked = !watch.IsGone() && (force || IsDone());
    bool finish = asked && CanFinish();
    if (!watch.IsGone())
        PollChildren(finish);
    if (!watch.IsGone())
        OnAfterPoll();
    if (watch.IsGone() || !IsStarted())
        return false;
    if (finish) {
        Stop();
        return false;
    }
    if (asked) {
        SetDone(false);
        fResult = 0;
    }
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
    CVisit children(*this, CVisit::From::kFirst);
    while (CExecutable* const child = children.Take())
        child->PropagateActive(active);
}

bool CExecutable::CanRun() const
{
    return IsStarted();
}

// The process is asked for in each turn, since it may end below the loop. The first turn doesn't
// wait, so that all who run are polled once.
void CExecutable::RunLoop()
{
    const CRunning running(this);
    const CMessengerWatch watch(this);
    if (CProcess* const process = CProcess::Current())
        process->WantTurn();
    bool goesOn = true;
    while (goesOn) {
        CProcess* process = CProcess::Current();
        if (process == nullptr)
            return;
        if (!IsDone() && !process->IsQuitting())
            process->LetRest();
        process->GetNextEvent(0);
        process = CProcess::Current();
        if (watch.IsGone())
            return;
        const bool isQuitting = process != nullptr && process->IsQuitting();
        bool force = IsDone() || isQuitting;
        goesOn = Poll(force);
        if (goesOn && isQuitting && CProcess::Current() == process)
            process->RefuseQuit();
    }
}

void CExecutable::AfterRun() {}

// Stopping gives back what starting took (modal count, disabled owner), also when an exception
// leaves the loop.
std::int32_t CExecutable::Run()
{
    const CMessengerWatch watch(this);
    fResult = 0;
    try {
        Start();
        if (!watch.IsGone() && CanRun()) {
            RunLoop();
            if (!watch.IsGone())
                AfterRun();
        }
    } catch (...) {
        CFirstFailure others; // which are not told
        if (!watch.IsGone())
            others.Try([this] { Stop(); });
        throw;
    }
    if (!watch.IsGone())
        Stop();
    return watch.IsGone() ? 0 : fResult;
}

void CExecutable::EndRun(std::int32_t result)
{
    fResult = result;
    SetDone(true);
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
