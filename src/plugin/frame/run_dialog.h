// How every plug-in shows its dialog.
#pragma once

#include "foundation/settings/settings_record.h"
#include "plugin/frame/plugin_dialog.h"

namespace Kesto {

// Shows a dialog in the modal style where the settings say, waits for the user, and keeps the state
// of its window in the settings. Whether it was accepted; if not, the project's own settings are
// what they were before. Settings that can't be stored are
// reported, and the user's answer holds. Throws std::logic_error for null, and what the dialog
// throws.
bool RunPluginDialog(CPluginDialog* dialog, CSettingsRecord& settings);

} // namespace Kesto
