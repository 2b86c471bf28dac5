// The frame dialog by this toolkit, from its layout text.
#pragma once

#include <functional>
#include <memory>
#include <string>

namespace Kesto {
class CProcess;
class CWindow;
} // namespace Kesto

namespace Bench {

std::string FrameDialogText();
std::unique_ptr<Kesto::CWindow> BuildDialog(const std::string& text);

// Calls this once nothing is left to be painted.
void CallWhenPainted(Kesto::CProcess& process, std::function<void()> call);

// Builds the dialog and runs it modally until it has been painted once.
void RunDialog(Kesto::CProcess& process, const std::string& text);

} // namespace Bench
