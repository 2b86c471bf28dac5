// What an undoable change of settings asks of the plug-in that has the settings and of the dialog
// that shows them.
#pragma once

#include "foundation/settings/plugin_settings.h"
#include "view/messages/messenger.h"

#include <memory>

namespace Project {

// The dialog of a plug-in's settings.
class PSettingsDialog {
public:
    // Has every control show the settings as they are. `send`: the controls tell of it as if the
    // user had changed them.
    virtual void SetValuesFromSettings(bool send) = 0;

    // Where the keyboard goes for a control, its first tab stop or the control itself; null without
    // one or the control.
    virtual Kesto::CMessenger* FocusOfControl(Kesto::CObjID control) = 0;

    // The pane of the preview, or null, and the dialog itself.
    virtual Kesto::CMessenger* PreviewMessenger() = 0;
    virtual Kesto::CMessenger& DialogMessenger() = 0;

protected:
    ~PSettingsDialog() = default;
};

// A plug-in whose settings can be changed by tasks. Implemented by a class that is a process.
class PSettingsOwner {
public:
    // The settings in force, never null. A task puts another object in their place, so nobody keeps
    // a pointer to it.
    virtual std::unique_ptr<PSettings>& CurrentSettings() = 0;

    // The dialog that is up, or null.
    virtual PSettingsDialog* CurrentDialog() = 0;

protected:
    ~PSettingsOwner() = default;
};

} // namespace Project
