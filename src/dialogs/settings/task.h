// The undoable steps of a plug-in's dialog.
#pragma once

#include "foundation/settings/plugin_settings.h"
#include "view/messages/object_id.h"
#include "view/tasks/task.h"
#include "view/tasks/task_stack.h"

#include <memory>

namespace Project {

class PTask : public Kesto::CTask {
public:
    using CTask::CTask;
};

class PTaskStack : public Kesto::CTaskStack {
public:
    static constexpr std::uint32_t kLimit = 100;

    bool GetLimit(std::uint32_t& limit) const override;
};

// A change of a plug-in's settings. To do and to undo it is one and the same: the settings in force
// change places with those that the task holds, the dialog shows them, and the keyboard goes to the
// control that made the change.
//
// The process at work is a PSettingsOwner, or the task throws std::logic_error and changes nothing.
class PSettingsTask : public PTask {
public:
    // `done`: the change is made and `other` is what was before; otherwise `other` is what shall
    // be. Not null. std::invalid_argument for null.
    PSettingsTask(std::unique_ptr<PSettings> other, Kesto::CObjID control, bool done);

    bool GetName(Kesto::CText& name) const override;
    void DoUndo() override;
    void DoDo() override;

    // Whether the settings were ever exchanged by this task.
    bool Changed() const { return fChanged; }

private:
    void Exchange();

    bool fChanged = false;
    std::unique_ptr<PSettings> fOther;
    Kesto::CObjID fControl;
};

} // namespace Project
