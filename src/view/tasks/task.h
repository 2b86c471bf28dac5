// CTask, one step of work that can be undone and done again. It keeps what it needs for both.
#pragma once

#include "foundation/base/link.h"
#include "foundation/base/text.h"

#include <cstdint>

namespace Kesto {

class CTask : public CLink<CTask> {
public:
    // `done`: the work is done already, and the task is there to undo it.
    explicit CTask(bool done = false) : fFlags(done ? kDone : 0) {}
    virtual ~CTask() = default;

    virtual bool IsDone() const;
    virtual bool IsUndone() const;

    // The step's name for the user; false, with `name` as it was, if it has none.
    virtual bool GetName(CText& name) const;

    // What to call undoing and redoing it, "Undo Filter Setting". False, with `text` as it was,
    // without a name.
    virtual bool GetUndoName(CText& text) const;
    virtual bool GetRedoName(CText& text) const;

    // Called by the stack when the task has been taken in, undone, redone. Empty.
    virtual void DidDo();
    virtual void DidUndo();
    virtual void DidRedo();

    // Undo the work if it is done; do it if it isn't; whichever is possible. When the work throws,
    // the task is as done as it was.
    virtual void Undo();
    virtual void Redo();
    virtual void Toggle();

    virtual void DoUndo() = 0;
    virtual void DoDo() = 0;

private:
    static constexpr std::uint32_t kDone = 1U << 0;

    std::uint32_t fFlags;
};

} // namespace Kesto
