// What a process is set up with before it shows anything.
#pragma once

namespace Platform {

// Tells the system that this process scales its own windows, where the system wants to know. Without effect elsewhere.
void MakeProcessDpiAware();

// Readies the system's common controls, all classes that a dialog can ask for. Without effect elsewhere.
void ReadyCommonControls();

} // namespace Platform
