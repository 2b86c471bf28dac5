#include "view/tasks/task.h"

#include "foundation/localization/localize.h"
#include "foundation/localization/marks.h"

namespace Kesto {
namespace {

// `pattern` with the task's name in it.
bool NameFrom(const CTask& task, const char* pattern, CText& text)
{
    CText name;
    if (!task.GetName(name))
        return false;
    text = pattern;
    Localize(text);
    ReplaceArgument(text, 0, name);
    return true;
}

} // namespace

bool CTask::IsDone() const
{
    return (fFlags & kDone) != 0;
}

bool CTask::IsUndone() const
{
    return (fFlags & kDone) == 0;
}

bool CTask::GetName(CText& /*name*/) const
{
    return false;
}

bool CTask::GetUndoName(CText& text) const
{
    return NameFrom(*this, "$$$/Kesto/Tasks/UndoOp=Undo ^0", text);
}

bool CTask::GetRedoName(CText& text) const
{
    return NameFrom(*this, "$$$/Kesto/Tasks/RedoOp=Redo ^0", text);
}

void CTask::DidDo() {}
void CTask::DidUndo() {}
void CTask::DidRedo() {}

void CTask::Undo()
{
    if (!IsDone())
        return;
    DoUndo();
    fFlags &= ~kDone;
}

void CTask::Redo()
{
    if (IsDone())
        return;
    DoDo();
    fFlags |= kDone;
}

void CTask::Toggle()
{
    if (IsDone())
        Undo();
    else
        Redo();
}

} // namespace Kesto
