// CWindowTips, the tip that a window shows while the mouse rests on a view that has one.
#pragma once

#include "foundation/base/text.h"
#include "platform/windows/tip_window.h"
#include "view/input/mouse_event.h"
#include "view/process/timer.h"

namespace Kesto {

class CPane;
class CView;
class CWindow;

class CWindowTips : private CTimer {
public:
    explicit CWindowTips(CWindow& window);

    // The mouse is there now. Over another tip's view the waiting begins anew.
    void MouseMoved(const CMouseEvent& event);
    // The mouse has left, or something was pressed: no tip until the mouse comes to another view.
    void Dismiss();

    // Opens the tip of a pane at once.
    void OpenFor(CPane& pane);

    bool IsShown() const { return fTip.IsShown(); }
    // What the tip says, or would say.
    const CText& Text() const { return fText; }

private:
    static constexpr double kDelay = 0.5; // seconds of rest before a tip opens
    static constexpr double kStay = 10.0;

    void Fire(double now, double elapsed) override;
    void Note(CView& view, const CText& text);
    void Open();

    CWindow& fWindow;
    Platform::TipWindow fTip;
    const CView* fView = nullptr; // of the mouse; compared, never followed
    CText fText;
    Platform::PixelRect fPlace;
};

} // namespace Kesto
