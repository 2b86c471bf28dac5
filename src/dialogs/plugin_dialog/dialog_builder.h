// The class "PDialog" of layouts, and how a plug-in's dialog is made of one.
#pragma once

#include "dialogs/plugin_dialog/plugin_dialog.h"

#include <functional>
#include <memory>
#include <string_view>

namespace Project {

// Has "PDialog" known to the generator beside the classes of the toolkit, for the life of the
// process. A second call does nothing.
void RegisterDialogClasses();

// Makes a dialog of the plan that a layout comes to.
using DialogMaker = std::function<std::unique_ptr<PDialog>(const Kesto::CWindowPlan& plan)>;

// Builds the dialog that a layout of this module describes, by the layout's name; `make` makes its
// outermost view, a PDialog. Throws std::runtime_error when there is no such layout or it describes
// no such dialog, and what reading a layout throws; nothing is left behind then.
std::unique_ptr<PDialog> LoadDialog(std::string_view layout, const DialogMaker& make);

} // namespace Project
