// What panes share that keep a control of the platform in their window: where it lies, and how its
// keys and presses come to the pane first.
#pragma once

#include "foundation/base/geometry.h"
#include "platform/windows/child_control.h"

namespace Kesto {

class CPane;

// The native window that the pane is in; null off the screen.
Platform::NativeWindow NativeWindowOf(const CPane& pane);

// A rectangle of the pane's space in pixels of its window.
PixelRect ChildPixels(const CPane& pane, const Rect& local);

// True when nothing of a rectangle of the pane's space is hidden by what lies around it. A control
// can't be clipped, so it shows only there.
bool IsWhollyInSight(const CPane& pane, const Rect& local);

// The messages of a control. What their handlers throw is reported, and the message was taken then.

// A key that came to the control goes to whoever has the focus in the window. True: it was taken.
bool SendChildKey(CPane& pane, const Platform::WindowMessage& message);

// A press on the control, at a point of its own, is one on the pane: it asks for the focus. True:
// it was not refused, and the pane lives, so the control may have it.
bool SendChildPress(CPane& pane, const Platform::WindowMessage& message, const PixelPoint& corner);

// The wheel over the control turns over the pane.
bool SendChildWheel(CPane& pane, const Platform::WindowMessage& message);

bool IsKey(const Platform::WindowMessage& message);
bool IsSystemKey(const Platform::WindowMessage& message); // with Alt
bool IsPress(const Platform::WindowMessage& message);     // double ones too
bool IsWheel(const Platform::WindowMessage& message);

} // namespace Kesto
