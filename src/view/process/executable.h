// CExecutable, something that runs: it is started, polled once in each turn of a run loop, and
// stopped.
//
// Executables form a tree with the process at its root. A request to be done goes up the tree; at
// the next poll whatever was asked to finish is asked whether it can, and a refusal takes the
// request back, all the way up. Of its children an executable deletes those that are marked for it,
// once they have stopped or when it is destroyed itself; others are their maker's, and are left
// without a parent.
//
// An executable may be destroyed in any of its hooks, in its own poll and loop too, and children
// may come and go while they are visited: a visit calls each child that was there at its beginning,
// once.
#pragma once

#include "view/messages/messenger.h"

#include <cstdint>
#include <string>
#include <vector>

namespace Kesto {

class CExecutable : public virtual CMessenger {
public:
    // Bits of the flags.
    static constexpr std::uint32_t kStarted = 1U << 0;
    static constexpr std::uint32_t kDone = 1U << 1;
    static constexpr std::uint32_t kAutoStart = 1U << 2;
    static constexpr std::uint32_t kAutoDelete = 1U << 3;

    // Joins `super` as its last child, and its messenger as the one below; null for the root.
    explicit CExecutable(CExecutable* super, std::uint32_t flags = 0);
    ~CExecutable() override;

    // The first child with the id, in their order.
    CMessenger* FindSubMessenger(CObjID id) override;

    virtual bool IsStarted() const;
    virtual bool IsStopped() const;
    virtual bool IsDone() const; // runs, and was asked to be done

    // Started with its parent; deleted by its parent.
    virtual bool IsAutoStart() const;
    virtual bool IsAutoDelete() const;

    // Asks this one alone to be done, or takes that back; asks all above it as well.
    virtual void SetDoneFlag(bool done);
    virtual void SetDone(bool done);

    virtual void SetAutoStart(bool on);
    virtual void SetAutoDelete(bool on);

    // Starts this, unless it runs, and then the children that start with it, unless it is stopped
    // or done by then. What the children do to it ends their starts only if it is stopped: one that
    // is done at once leaves the others their turns. When OnStart throws, this doesn't run.
    virtual void Start();

    // Stops the children that run, the last one first, and deletes those that are marked for it;
    // then this. Whatever is thrown on the way, all are stopped; the first of it is thrown then.
    virtual void Stop();

    virtual void SetStarted(bool on);
    virtual void Toggle();

    // Whether it may end now. An answer of false keeps it running.
    virtual bool CanFinish();

    // Polls the children, the last one first, and calls ChildStopped for each that has stopped in
    // its poll. A child that refuses to end clears `force`.
    virtual void PollChildren(bool& force);

    // A child that ran has stopped. It still lives.
    virtual void ChildStopped(CExecutable* child);

    // One turn: decides whether this goes on. With `force` it has been asked to end; a refusal
    // clears it. False: it doesn't run, or not any more. A request that comes while the children
    // are polled is answered in the next turn.
    virtual bool Poll(bool& force);

    // Appends a line about this and each one below it, indented by their depth: a picture of what
    // runs, for people.
    virtual void ReportChildren(std::string& lines, int depth) const;

    // Tells the children that the application comes to the front, or leaves it.
    virtual void PropagateActive(bool active);

    // Whether a loop has anything to wait for after the start.
    virtual bool CanRun() const;

    // Pumps events and polls until this has stopped. Without a process it returns at once.
    virtual void RunLoop();
    virtual void AfterRun();

    // Starts, runs the loop and stops, also when something is thrown on the way, which is passed
    // on. Returns the result that EndRun gave, 0 when the run ended without one.
    virtual std::int32_t Run();

    // Asks this to be done, and so the run to end with a result. A refusal forgets the result.
    void EndRun(std::int32_t result);

    virtual void OnStart();
    virtual void OnStop();

    // Around the children's poll, in each turn of a run loop. There is one after whatever the pump
    // deals with; who wants them by time has a timer or an idler.
    virtual void OnBeforePoll();
    virtual void OnAfterPoll();

    // Deletes the children that are marked for it, the last one first, and leaves the others
    // without a parent.
    void DisposeChildren();

    CExecutable* Super() const { return fSuper; }
    const std::vector<CExecutable*>& Children() const { return fChildren; }

    // The one whose loop runs innermost, or null.
    static CExecutable* Current();

private:
    class CRunning;
    class CVisit;

    // Named apart from those of CMessenger, for classes derived from both.
    bool HasRunFlag(std::uint32_t flag) const { return (fFlags & flag) != 0; }
    void SetRunFlag(std::uint32_t flag, bool on) { fFlags = on ? fFlags | flag : fFlags & ~flag; }
    bool HasChild(const CExecutable* child) const;
    void RemoveChild(CExecutable* child);
    template <class Visit>
    void VisitChildrenBackward(Visit visit);

    CExecutable* fSuper;                 // not owned
    std::vector<CExecutable*> fChildren; // owned if they are marked so
    CVisit* fVisit = nullptr;            // the innermost of the children
    std::int32_t fResult = 0;
    std::uint32_t fFlags;
};

} // namespace Kesto
