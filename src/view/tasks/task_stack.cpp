#include "view/tasks/task_stack.h"

#include "foundation/localization/localize.h"

#include <algorithm>

namespace Kesto {

CTaskStack::~CTaskStack()
{
    Clear(fRedo);
    Clear(fUndo);
}

bool CTaskStack::CanUndo() const
{
    return !fUndo.IsEmpty();
}

bool CTaskStack::CanRedo() const
{
    return !fRedo.IsEmpty();
}

bool CTaskStack::GetUndoName(CText& text) const
{
    if (!CanUndo())
        text = "$$$/Kesto/Tasks/CannotUndo=Cannot Undo";
    else if (!fUndo.Head()->GetUndoName(text))
        text = "$$$/Kesto/Tasks/Undo=Undo";
    Localize(text);
    return CanUndo();
}

bool CTaskStack::GetRedoName(CText& text) const
{
    if (!CanRedo())
        text = "$$$/Kesto/Tasks/CannotRedo=Cannot Redo";
    else if (!fRedo.Head()->GetRedoName(text))
        text = "$$$/Kesto/Tasks/Redo=Redo";
    Localize(text);
    return CanRedo();
}

bool CTaskStack::IsToggleUndo() const
{
    return !(CanRedo() && fUndoneLast);
}

void CTaskStack::Do(std::unique_ptr<CTask> task)
{
    if (task != nullptr) {
        if (task->IsUndone())
            task->Toggle();
        ClearRedo();
        CTask& newest = *task.release(); // the list's from here on
        fUndo.AddHead(newest);
        fUndoneLast = false;
        newest.DidDo();
    }
    Trim();
}

void CTaskStack::Undo()
{
    Move(fUndo, fRedo, &CTask::Undo, true, &CTask::DidUndo);
}

void CTaskStack::Redo()
{
    Move(fRedo, fUndo, &CTask::Redo, false, &CTask::DidRedo);
}

void CTaskStack::Toggle()
{
    if (!CanRedo())
        fUndoneLast = false;
    if (fUndoneLast)
        Redo();
    else
        Undo();
}

// The task works while it is still in its list, so that nothing has moved when it throws.
void CTaskStack::Move(TaskList& from, TaskList& to, void (CTask::*work)(), bool undone,
                      void (CTask::*did)())
{
    if (fWork != nullptr || from.IsEmpty())
        return;
    Work now{from.Head(), nullptr};
    fWork = &now;
    try {
        (now.task->*work)();
    } catch (...) {
        if (now.dropped == nullptr)
            fWork = nullptr;
        throw;
    }
    if (now.dropped != nullptr)
        return; // and so may be the stack
    fWork = nullptr;
    from.Remove(*now.task);
    to.AddHead(*now.task);
    fUndoneLast = undone;
    (now.task->*did)();
}

void CTaskStack::ClearAll()
{
    ClearRedo();
    ClearUndo();
}

void CTaskStack::ClearUndo()
{
    Clear(fUndo);
}

void CTaskStack::ClearRedo()
{
    Clear(fRedo);
}

void CTaskStack::Clear(TaskList& list)
{
    while (!list.IsEmpty())
        DropTail(list);
}

void CTaskStack::DropTail(TaskList& list)
{
    std::unique_ptr<CTask> oldest(list.Tail());
    list.Remove(*oldest);
    if (fWork != nullptr && fWork->task == oldest.get()) {
        fWork->dropped = std::move(oldest);
        fWork = nullptr;
    }
}

void CTaskStack::Trim()
{
    std::uint32_t limit = 1;
    if (!GetLimit(limit))
        return;
    limit = std::max(limit, 1U);
    std::size_t total = fUndo.Count() + fRedo.Count();
    for (; total > limit; --total)
        DropTail(fRedo.IsEmpty() ? fUndo : fRedo);
}

bool CTaskStack::GetLimit(std::uint32_t& limit) const
{
    limit = 1;
    return true;
}

} // namespace Kesto
