// Windows of the operating system: their life, and what can be seen of them.
//
// All calls are for the thread of the user interface. A null window or one that is gone changes
// nothing and answers with false, 0 or null. On a system without a display the same windows live in
// memory: they get the same messages, a shown one counts as active, and what was painted is kept.
#pragma once

#include "platform/windows/window_kinds.h"
#include "platform/windows/window_procedure.h"

#include <string>
#include <string_view>
#include <vector>

namespace Platform {

// Whether windows can be seen by anyone. Windows has a display always, even one that shows nothing.
bool HasDisplay();

struct WindowPlan {
    WindowKind kind = WindowKind::kDialog;
    std::uint32_t features = 0;
    NativeWindow owner = nullptr; // lies below it and closes it when it is closed; may be foreign
    std::string className;        // what the system is to call its kind
    std::string title;
    PixelRect content;      // in pixels of the screen
    bool takesMouse = true; // a popup that is shown: presses anywhere on the screen come here
};

// Makes a window, hidden. The procedure must outlive it. Null, with the system's code in LastError,
// if the system refuses; then nothing is left of it.
NativeWindow MakeSystemWindow(const WindowPlan& plan, WindowProcedure& procedure);

// Ends a window with the ones that it owns. Its procedure hears nothing of it, theirs
// kFrameDestroyed. Throws nothing.
void EndSystemWindow(NativeWindow window);

// True while it lives, in this process or another.
bool IsSystemWindow(NativeWindow window);

// Shows or hides it; sends what goes with that: kShowWindow, activation, focus, kSize and kMove
// when it is shown for the first time.
void ShowSystemWindow(NativeWindow window, ShowCommand command);
// How whoever started this program wants its first window to be shown.
ShowCommand StartShowCommand();
bool IsShown(NativeWindow window);
bool IsMinimized(NativeWindow window);
bool IsMaximized(NativeWindow window);

// A window that isn't enabled gets no input.
void EnableSystemWindow(NativeWindow window, bool enable);
bool IsSystemWindowEnabled(NativeWindow window);

// Makes it the active one, in front of those of this program, unless it is disabled or hidden.
void ActivateWindow(NativeWindow window);

// Puts it in front of its siblings without activating it.
void RaiseWindow(NativeWindow window);

void SetWindowTitle(NativeWindow window, std::string_view title);
std::string WindowTitle(NativeWindow window);

// The window below which it was made, or null.
NativeWindow OwnerOf(NativeWindow window);

// The window itself, or for a child control the one that holds it.
NativeWindow TopWindowOf(NativeWindow window);

// All windows of this thread that were made here and have a frame of their own, front to back.
std::vector<NativeWindow> ThreadWindows();

// Changes what the frame offers: closing, sizing and so on.
void SetWindowFeatures(NativeWindow window, std::uint32_t features);

} // namespace Platform
