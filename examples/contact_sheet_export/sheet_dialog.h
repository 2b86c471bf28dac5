// The dialog of the export: a slider for each number.
#pragma once

#include "sheet_settings.h"

#include "plugin/frame/plugin_dialog.h"

#include <memory>

namespace ContactSheet {

// Made from its layout. What the user sets is in the settings at once; they outlive the dialog.
std::unique_ptr<Kesto::CPluginDialog> LoadSheetDialog(Settings& settings);

} // namespace ContactSheet
