// CTaskStack, the tasks that can be undone and those that can be redone, each list with the newest
// at its head.
//
// The stack owns its tasks and knows nothing of their work. What a task's work throws passes
// through; the task stays where it was. A task may call the stack while it works: Undo, Redo and
// Toggle do nothing then, and the task itself is deleted only when its work is over.
#pragma once

#include "view/tasks/task.h"

#include <cstdint>
#include <memory>

namespace Kesto {

class CTaskStack {
public:
    CTaskStack() = default;
    CTaskStack(const CTaskStack&) = delete;
    CTaskStack& operator=(const CTaskStack&) = delete;
    virtual ~CTaskStack();

    virtual bool CanUndo() const;
    virtual bool CanRedo() const;

    // What the next Undo or Redo is called, localised. Return CanUndo and CanRedo.
    virtual bool GetUndoName(CText& text) const;
    virtual bool GetRedoName(CText& text) const;

    // Whether the one command for both would undo.
    virtual bool IsToggleUndo() const;

    // Does the task if it hasn't been done, takes it in as the newest and forgets what could be
    // redone. Null takes nothing in. The lists are trimmed in the end.
    virtual void Do(std::unique_ptr<CTask> task);

    // Undoes the newest task, or redoes the one undone last. Nothing without one.
    virtual void Undo();
    virtual void Redo();

    // Takes back what the last Undo did, or else undoes.
    virtual void Toggle();

    virtual void ClearAll();
    virtual void ClearUndo();
    virtual void ClearRedo();

    // Deletes tasks until both lists together hold no more than the limit: those that could be
    // redone first, the oldest first.
    virtual void Trim();

    // How many tasks are kept; 0 counts as 1. False: there is no limit. In the base it is 1.
    virtual bool GetLimit(std::uint32_t& limit) const;

private:
    using TaskList = CLinkList<CTask>;

    // A task at work. Once it is no longer in the stack it belongs here.
    struct Work {
        CTask* task;
        std::unique_ptr<CTask> dropped;
    };

    void Move(TaskList& from, TaskList& to, void (CTask::*work)(), bool undone,
              void (CTask::*did)());
    void Clear(TaskList& list);
    void DropTail(TaskList& list);

    TaskList fUndo;
    TaskList fRedo;
    bool fUndoneLast = false; // the last thing that happened was an undo
    Work* fWork = nullptr;
};

} // namespace Kesto
